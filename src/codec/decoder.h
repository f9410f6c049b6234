// SPDX-License-Identifier: MIT
// Level records to table texts, as protocol files are shown in the editor.
#pragma once

#include "codec/level_record.h"
#include "core/clock_text.h"
#include "core/level_table.h"
#include "platform/text.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>

namespace tessit {

struct DecodingRules {
    TimeForm time_form = TimeForm::clock;
    DecimalMark mark = DecimalMark::point;
};

// What a record says of each column. No value: the cell is left as it is (column 0 always).
struct DecodedLevel {
    std::array<std::optional<std::string>, column::count> cells;
    std::int32_t frequencies = 0;
    ClockTime total; // of the level, carried
};

DecodedLevel decode_level(const LevelBytes& record, const DecodingRules& rules);

// The digits of the word with the point where the scale says. Short words keep the digits they have: word 5 with
// two decimals reads ".5". Three decimals get leading zeros for four and five digits only: "001.234". Any scale but
// 1, 2, 4 and 8 gives the empty text.
std::string decode_base(std::int32_t word, std::uint8_t db3);

// A bank's totals as levels are added one by one.
struct BankTotals {
    std::int32_t frequencies = 0;
    ClockTime time;

    void add(const DecodedLevel& level);
};

} // namespace tessit
