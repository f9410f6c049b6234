// SPDX-License-Identifier: MIT
#include "editor/level_entry.h"

#include "platform/fault.h"
#include "support/scripted_desktop.h"

#include <gtest/gtest.h>

namespace tessit {
namespace {

using testing::joined;

TEST(LevelEntry, widths_follow_wave_and_frequencies) {
    EXPECT_EQ(width_index("spread expanding", 9), 4);
    EXPECT_EQ(width_index("Sweep Increasing", 5), 5); // not 4: the width column corrects it
    EXPECT_EQ(width_index("Single Frequency", 1), 1);
    EXPECT_EQ(width_index("Sawtooth", 1), std::nullopt);
}

TEST(LevelEntry, total_in_seconds_is_cut_after_the_multiplication) {
    EXPECT_EQ(joined(total_seconds(1, 180), total_seconds(3, 1.5F), total_seconds(19, 1e30F)), "180|4|2147483647");
}

TEST(LevelEntry, total_as_a_clock_carries) {
    const std::tuple<float, const char*, const char*> cases[] = {
        {3, "45", "00:02:15"}, // no colon: seconds
        {50, "1:20", "01:06:40"}, {1, "545:3", "09:05:03"}, {1, "1:2:3", "00:01:02"},
        {9, "", "00:00:00"},      {1, "abc", "00:00:00"},   {1, "0:3600000", "1000:00:00"},
    };
    for (const auto& [frequencies, each, total] : cases) {
        EXPECT_EQ(format_clock(total_clock(frequencies, each)), total) << each;
    }
}

TEST(LevelEntry, bank_frequencies_start_where_they_are_told) {
    EXPECT_EQ(bank_frequencies(0, {1, 9, 5}), 15);
    EXPECT_EQ(bank_frequencies(50, {9}), 59);
    EXPECT_EQ(bank_frequencies(0, {1.6F, 1.6F}), 2); // cut after each addition
    EXPECT_EQ(bank_frequencies(7, {}), std::nullopt);
}

TEST(LevelEntry, last_row_decides_the_form_of_the_bank_time) {
    const std::pair<std::vector<std::string>, const char*> cases[] = {
        {{"180", "3600"}, "3780"},
        {{"00:59:59", "00:00:02"}, "01:00:01"},
        {{"01:00:00", "40"}, "40"}, // the clock row's hour is not shown
        {{"90", "00:00:10"}, "00:01:40"},
        {{"2:30"}, "00:02:30"},
        {{}, "00:00:00"},
    };
    for (const auto& [cells, time] : cases) {
        EXPECT_EQ(bank_time(cells), time);
    }
    EXPECT_THROW(bank_time({"00:03:00", ""}), Fault);
}

TEST(LevelEntry, return_enter_and_the_letter_l_enter) {
    EXPECT_TRUE(is_enter_key("\r") && is_enter_key("\x03") && is_enter_key("L") && is_enter_key("l"));
    EXPECT_FALSE(is_enter_key("\n") || is_enter_key("k") || is_enter_key(""));
}

} // namespace
} // namespace tessit
