// SPDX-License-Identifier: MIT
// The rules of level entry as functions on texts: what a row's cells and the two totals are. Entry keeps the text
// that the user typed; nothing becomes bytes here.
#pragma once

#include "core/enter_key.h"
#include "level/clock_text.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tessit {

// The width that a row's wave and number of frequencies tell; none for a wave text that is in no list.
std::optional<std::int32_t> width_index(std::string_view waveform, float frequencies);

// Total time of a row in seconds: multiplied in single precision, then cut.
std::int32_t total_seconds(float frequencies, float time);

// Total time of a row from a time such as "1:20"; without a colon it counts as seconds, and empty as 0.
ClockTime total_clock(float frequencies, const std::string& time);

// What "Total Freqs." shows after each row, ending with the sum. No rows: nothing.
std::optional<std::int32_t> bank_frequencies(std::int32_t start, const std::vector<float>& rows);

// "Total Bank Time" from the Total Time cells of rows 1 on. The last row decides the form: plain seconds show the
// seconds' sum alone, without the clock rows' hours and minutes. An empty cell is Fault out_of_bounds.
enum class PlainSeconds { added, out_of_bounds }; // out of bounds where Delete Row adds up: it knows clock times only
std::string bank_time(const std::vector<std::string>& cells, PlainSeconds plain_seconds = PlainSeconds::added);

} // namespace tessit
