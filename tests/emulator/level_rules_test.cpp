// SPDX-License-Identifier: MIT
#include "emulator/level_rules.h"

#include <gtest/gtest.h>

namespace tessit::emulator {
namespace {

using Eleven = std::array<Byte, 11>;

TEST(LevelRules, count_byte_few_unset_bytes_are_not_counted) {
    const std::pair<Eleven, int> cases[] = {
        {{0, 30, 150, 8, 0, 3, 29, 5, 0, 0, 0}, 4},
        {{0, 30, 255, 8, 0, 3, 29, 5, 0, 0, 0}, 4},
        {{0, 255, 255, 255, 0, 3, 29, 5, 0, 0, 0}, 4},
        {{0, 255, 255, 255, 255, 3, 29, 5, 0, 0, 0}, 8},
        {{0, 255, 255, 255, 255, 3, 29, 5, 0, 0, 255}, 9},
        {{255, 255, 255, 255, 255, 255, 255, 255, 255, 255, 255}, 15},
    };
    for (const auto& [bytes, count] : cases) {
        EXPECT_EQ(count_byte(bytes), count);
    }
}

TEST(LevelRules, check_byte_brings_the_sum_to_zero_except_for_an_unset_level) {
    const std::pair<Eleven, int> cases[] = {
        {{0, 30, 150, 8, 0, 3, 29, 5, 0, 0, 0}, 31},
        {{0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}, 0},
        {{15, 66, 63, 1, 59, 99, 200, 9, 255, 255, 255}, 3},
        {{255, 255, 255, 255, 255, 255, 255, 255, 255, 255, 254}, 12},
        {{255, 255, 255, 255, 255, 255, 255, 255, 255, 255, 255}, 0}, // and not 11
    };
    for (const auto& [bytes, check] : cases) {
        EXPECT_EQ(check_byte(bytes), check);
    }
}

TEST(LevelRules, addresses_only_the_forty_bank_starts_begin_a_bank) {
    const std::pair<int, std::optional<int>> cases[] = {{0, 1},      {800, 2}, {25 * 256, 9}, {121 * 256 + 224, 40},
                                                        {32000, {}}, {16, {}}, {799, {}},     {65535, {}}};
    for (const auto& [address, bank] : cases) {
        EXPECT_EQ(bank_starting_at(address), bank) << address;
    }
}

} // namespace
} // namespace tessit::emulator
