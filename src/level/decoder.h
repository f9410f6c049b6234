// SPDX-License-Identifier: MIT
// Level records to table texts: one reader, with a named policy for what files and generator data are shown like.
#pragma once

#include "level/clock_text.h"
#include "level/level_record.h"
#include "level/level_table.h"
#include "platform/text.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>

namespace tessit {

// Where a record comes from. Both readings are meant as they are:
//
//                      file                                  generator
//   wave codes         5, 6, 2, 4, 0; others leave the cell  1, 3 and 7 are Single Frequency too
//   duty cycle         for Square only                       for every shape
//   # Freqs.           width times steps cut to eight bits   full product
//   word 0             shown as "0" with its point           leaves the Base cell
//   total in seconds   without the level's whole hours       with them
enum class RecordSource { file, generator };

struct DecodingRules {
    TimeForm time_form = TimeForm::clock;
    DecimalMark mark = DecimalMark::point;
    RecordSource source = RecordSource::file;
};

// What a record says of each column. No value: the cell is left as it is (column 0 always).
struct DecodedLevel {
    std::array<std::optional<std::string>, column::count> cells;
    std::int32_t frequencies = 0;
    ClockTime total; // of the level, carried
};

DecodedLevel decode_level(const LevelBytes& record, const DecodingRules& rules);

// A level of generator data that is shown as "blank": no time and no frequency, or a time that was never set.
bool is_blank(const LevelBytes& record);

// The digits of the word with the point where the scale says. Short words keep the digits they have: word 5 with
// two decimals reads ".5". Three decimals get leading zeros for four and five digits only: "001.234". Any scale but
// 1, 2, 4 and 8 gives the empty text.
std::string decode_base(std::int32_t word, std::uint8_t db3);

// Writes what the record says into a row.
void show_level(Listbox& table, int row, const DecodedLevel& level);

// A bank's totals as levels are added one by one.
struct BankTotals {
    std::int32_t frequencies = 0;
    ClockTime time;

    void add(const DecodedLevel& level);
};

} // namespace tessit
