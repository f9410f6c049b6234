// SPDX-License-Identifier: MIT
#include "device/wire.h"

#include <gtest/gtest.h>

namespace tessit {
namespace {

TEST(Wire, banks_begin_every_800_bytes) {
    const std::pair<int, wire::Address> cases[] = {
        {1, {0, 0}}, {2, {3, 32}}, {7, {18, 192}}, {9, {25, 0}}, {40, {121, 224}}};
    for (const auto& [bank, address] : cases) {
        EXPECT_EQ(wire::bank_address(bank), address) << bank;
    }
    const wire::Address level_17 = wire::bank_address(1).plus(16 * wire::bytes_per_level);
    EXPECT_EQ(level_17, (wire::Address{1, 0}));
}

TEST(Wire, one_to_three_255s_count_for_nothing) {
    LevelBytes record{};
    const int expected[] = {4, 4, 4, 4, 8, 9, 10, 11, 12, 13, 14, 15};
    for (std::size_t c = 0; c <= 11; ++c) {
        EXPECT_EQ(wire::count_byte(record), expected[c]) << c;
        if (c < 11) {
            record[c] = 255;
        }
    }
    record[record_offset::errorchk] = 255; // the check byte is not counted
    EXPECT_EQ(wire::count_byte(record), 15);
}

} // namespace
} // namespace tessit
