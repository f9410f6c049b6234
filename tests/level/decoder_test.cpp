// SPDX-License-Identifier: MIT
#include "level/decoder.h"

#include <gtest/gtest.h>

namespace tessit {
namespace {

constexpr LevelBytes schumann{0, 30, 150, 8, 0, 3, 0x1D, 5, 0, 0, 1, 0x1E};

LevelBytes with(std::size_t offset, int value, LevelBytes record = schumann) {
    record[offset] = static_cast<std::uint8_t>(value);
    return record;
}

std::string text(const DecodedLevel& level, int index) {
    return level.cells[static_cast<std::size_t>(index)].value_or("(left)");
}

std::string joined(const DecodedLevel& level) {
    std::string result;
    for (int i = 1; i < column::count; ++i) {
        result += (i == 1 ? "" : "|") + text(level, i);
    }
    return result;
}

TEST(DecodeBase, puts_the_point_and_keeps_short_words_short) {
    const std::tuple<std::int32_t, std::uint8_t, const char*> cases[] = {
        {123456, 1, "123456"}, {123456, 2, "12345.6"}, {123456, 4, "1234.56"}, {123456, 8, "123.456"},
        {12345, 8, "012.345"}, {1234, 8, "001.234"},   {123, 8, ".123"},       {12, 8, ".12"},
        {5, 8, ".5"},          {500, 8, ".500"},       {5, 2, ".5"},           {5, 4, ".5"},
        {12, 4, ".12"},        {123456, 0, ""},        {123456, 3, ""},        {123456, 255, ""},
    };
    for (const auto& [word, db3, text] : cases) {
        EXPECT_EQ(decode_base(word, db3), text) << word << " " << int{db3};
    }
}

TEST(DecodeLevel, schumann_level_reads_like_this_in_both_forms) {
    EXPECT_EQ(joined(decode_level(schumann, {})),
              "Single Frequency|007.830|(left)|1|3:00|00:03:00|OFF|1|Square|50%|Positive");
    EXPECT_EQ(joined(decode_level(schumann, {TimeForm::seconds, DecimalMark::comma})),
              "Single Frequency|007,830|(left)|1|180|180|OFF|1|Square|50%|Positive");
}

TEST(DecodeLevel, modes_outside_their_values_leave_the_cell) {
    using namespace record_offset;
    EXPECT_EQ(joined(decode_level(with(db6, 0xFF), {})), "(left)|007.830|0|1|3:00|00:03:00|OFF|1|(left)||(left)");
    EXPECT_EQ(text(decode_level(with(dutycycle, 10), {}), column::duty_cycle), "(left)");
    EXPECT_EQ(text(decode_level(with(db6, 0x40 + 5), {}), column::duty_cycle), ""); // a sine empties it
    EXPECT_EQ(text(decode_level(with(fbyte2, 255), {}), column::base), "007.830");  // an unset high byte counts as 0
}

TEST(DecodeLevel, frequencies_are_cut_to_eight_bits_before_the_one_is_added) {
    const std::tuple<int, int, int> cases[] = {{5, 9, 1},     {6, 4, 5},   {2, 9, 10},    {4, 4, 9}, {0, 9, 19},
                                               {6, 255, 256}, {4, 128, 1}, {0, 200, 145}, {7, 9, 1}};
    for (const auto& [wave, width, frequencies] : cases) {
        const auto record = with(record_offset::wpwidth, width, with(record_offset::db6, wave));
        EXPECT_EQ(decode_level(record, {}).frequencies, frequencies) << wave << " " << width;
    }
}

TEST(DecodeLevel, seconds_form_counts_the_minutes_once) {
    LevelBytes record = with(record_offset::wpwidth, 2, with(record_offset::db6, 6)); // three frequencies
    record[record_offset::timemin] = 1;
    record[record_offset::timesec] = 5;
    const auto seconds = decode_level(record, {.time_form = TimeForm::seconds});
    EXPECT_EQ(text(seconds, column::time_each), "65");
    EXPECT_EQ(text(seconds, column::total_time), "75");
    EXPECT_EQ(text(decode_level(record, {}), column::total_time), "00:03:15");
}

TEST(BankTotals, whole_hours_of_a_level_do_not_reach_the_sum) {
    const auto record = with(record_offset::wpwidth, 255, with(record_offset::db6, 6));
    const auto level = decode_level(record, {});
    EXPECT_EQ(text(level, column::total_time), "12:48:00");
    BankTotals totals;
    totals.add(level);
    EXPECT_EQ(totals.time, (ClockTime{0, 48, 0}));
    totals.add(level);
    EXPECT_EQ(totals.time, (ClockTime{1, 36, 0}));
    EXPECT_EQ(totals.frequencies, 512);
}

} // namespace
} // namespace tessit
