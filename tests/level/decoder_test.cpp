// SPDX-License-Identifier: MIT
#include "level/decoder.h"

#include "level/encoder.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

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
    struct Case {
        std::int32_t word;
        std::uint8_t db3;
        const char* text;
    };
    const Case cases[] = {
        {123456, 1, "123456"}, {123456, 2, "12345.6"}, {123456, 4, "1234.56"}, {123456, 8, "123.456"},
        {12345, 8, "012.345"}, {1234, 8, "001.234"},   {123, 8, ".123"},       {12, 8, ".12"},
        {5, 8, ".5"},          {500, 8, ".500"},       {5, 2, ".5"},           {5, 4, ".5"},
        {12, 4, ".12"},        {123456, 0, ""},        {123456, 3, ""},        {123456, 255, ""},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(decode_base(c.word, c.db3), c.text) << c.word << " " << int{c.db3};
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
    struct Case {
        int wave, width, frequencies;
    };
    const Case cases[] = {{5, 9, 1},     {6, 4, 5},   {2, 9, 10},    {4, 4, 9}, {0, 9, 19},
                          {6, 255, 256}, {4, 128, 1}, {0, 200, 145}, {7, 9, 1}};
    for (const auto& c : cases) {
        const auto record = with(record_offset::wpwidth, c.width, with(record_offset::db6, c.wave));
        EXPECT_EQ(decode_level(record, {}).frequencies, c.frequencies) << c.wave << " " << c.width;
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

RC_GTEST_PROP(Codec, a_level_in_its_own_range_survives_encoding_and_decoding, ()) {
    const auto choose = [](auto... items) { return *rc::gen::element(std::string(items)...); };
    const bool single = *rc::gen::arbitrary<bool>();
    LevelCells cells;
    cells[column::waveform] =
        single ? "Single Frequency"
               : choose("Spread Contracting", "Spread Expanding", "Sweep Increasing", "Sweep Decreasing");
    // Three integer digits and three decimals: what the decoder writes for this scale.
    cells[column::base] =
        std::to_string(*rc::gen::inRange(100, 1000)) + "." + std::to_string(*rc::gen::inRange(100, 1000));
    cells[column::width] = single ? "" : std::to_string(*rc::gen::inRange(0, 10));
    cells[column::time_each] = format_minutes(*rc::gen::inRange(0, 256), *rc::gen::inRange(0, 60));
    cells[column::pulse] = choose("ON", "OFF");
    cells[column::rate] = std::to_string(*rc::gen::inRange(0, 510));
    cells[column::wave_shape] = choose("Square", "Sine", "Triangle");
    cells[column::duty_cycle] =
        cells[column::wave_shape] == "Square" ? std::to_string(*rc::gen::inRange(1, 10)) + "0%" : "";
    cells[column::output] = choose("Positive", "Negative");

    RegisterImage image;
    image.reset();
    RC_ASSERT(encode_level(image, 1, cells, {}) == EncodingResult::done);
    const DecodedLevel decoded = decode_level(image.bytes(1), {});
    for (const int index : {column::waveform, column::base, column::width, column::time_each, column::pulse,
                            column::rate, column::wave_shape, column::duty_cycle, column::output}) {
        RC_ASSERT(decoded.cells[static_cast<std::size_t>(index)].value_or("") ==
                  cells[static_cast<std::size_t>(index)]);
    }
}

} // namespace
} // namespace tessit
