// SPDX-License-Identifier: MIT
// The arithmetic of composed levels: a row's Total Time and the totals below it. It differs from the editor's, and
// between the three ways in which a row comes to its values; each function says how.
#pragma once

#include "level/clock_text.h"

#include <cstdint>
#include <string>
#include <vector>

namespace tessit {

// Minutes and seconds of "1:30", cut to whole numbers. Fault out_of_bounds without a colon.
ClockTime minutes_and_seconds(const std::string& time);

// A row's total time in the clock form: `each` times the frequencies, and the carries of the way it came.
enum class RowCarry {
    new_row,      // minutes above 59, then seconds above 59
    single_carry, // seconds above 60 alone: of a changed row, and of each row of Default all
};
ClockTime row_total(const ClockTime& each, float frequencies, RowCarry carry);

// M:SS without hours. The carry of seconds takes sixty times all the minutes off, so 3 times 1:30 is "4:0-150".
std::string format_row_total(const ClockTime& total);

// The bank's total time in the form of seconds: the seconds that earlier rows left over and the row's own. Minutes and
// hours of earlier rows are dropped.
ClockTime seconds_total(std::int32_t seconds_left_over, std::int32_t row_seconds);

// The bank's total time in the clock form from the Total Time cells of rows 1 on. The hours are not shown. Fault
// out_of_bounds for a cell without a colon.
ClockTime total_of_new_row(const std::vector<std::string>& cells); // carries at the end
// Carries after each row; minutes go to hours only where the changed row's own are above 59.
ClockTime total_of_changed_row(const std::vector<std::string>& cells, std::int32_t changed_row_minutes);

// One more row of Default all.
ClockTime added_up(ClockTime total, const ClockTime& row);

} // namespace tessit
