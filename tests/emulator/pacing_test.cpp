// SPDX-License-Identifier: MIT
#include "emulator/pacing.h"

#include <gtest/gtest.h>

namespace tessit::emulator {
namespace {

// Bytes at these intervals, each with a wait of 5 ms behind it; the slacks in between.
std::vector<Microseconds> slacks(std::initializer_list<Arrival> arrivals) {
    Pacing pacing;
    std::vector<Microseconds> result;
    for (const Arrival& arrival : arrivals) {
        if (const auto gap = pacing.arrive(arrival, 1, Wait::padding)) {
            result.push_back(gap->slack);
        }
    }
    return result;
}

using Slacks = std::vector<Microseconds>;

TEST(Pacing, exact_times_short_wait_is_told_once_and_by_how_much) {
    EXPECT_EQ(slacks({{0, 0}, {5'000, 5'000}, {9'999, 9'999}, {14'999, 14'999}}), (Slacks{0, -1, 0}));
}

TEST(Pacing, reader_woke_late_short_looking_gap_is_not_held_against_the_sender) {
    // The second byte came at 5,000 and was read at 9,000; the third came at 10,000.
    EXPECT_EQ(slacks({{0, 0}, {4'500, 9'000}, {9'500, 10'000}}), (Slacks{4'000, 0}));
    // Held up for three bytes: they are read together.
    EXPECT_EQ(slacks({{0, 0}, {4'500, 15'000}, {4'500, 15'000}, {4'500, 15'000}}), (Slacks{10'000, 5'000, 0}));
}

TEST(Pacing, every_wait_a_little_short_adds_up_until_it_is_certain) {
    // 4.9 ms in place of 5, seen to the millisecond: 0.8 ms of doubt are used up at the ninth wait.
    Pacing pacing;
    int shortfalls = 0;
    for (int i = 0; i <= 9; ++i) {
        const Microseconds came = 4'900 * i;
        const auto gap = pacing.arrive({came - 800, came}, 1, Wait::padding);
        shortfalls += gap && gap->slack < 0 ? 1 : 0;
        EXPECT_EQ(shortfalls, i == 9 ? 1 : 0) << i;
    }
}

TEST(Pacing, clock_steps_back_nothing_is_measured_across_the_step) {
    EXPECT_EQ(slacks({{9'000, 9'000}, {2'000, 2'000}, {7'500, 7'500}}), (Slacks{500}));
}

TEST(Pacing, prescribed_waits_are_the_dialogues) {
    EXPECT_EQ(prescribed(Wait::call), 10'000);
    EXPECT_EQ(prescribed(Wait::address_high), 10'000);
    EXPECT_EQ(prescribed(Wait::first_byte), 10'000);
    EXPECT_EQ(prescribed(Wait::further_byte), 5'000);
    EXPECT_EQ(prescribed(Wait::padding), 5'000);
}

} // namespace
} // namespace tessit::emulator
