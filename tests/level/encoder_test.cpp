// SPDX-License-Identifier: MIT
#include "level/encoder.h"

#include "platform/fault.h"
#include "platform/text.h"

#include <gtest/gtest.h>

namespace tessit {
namespace {

constexpr std::optional<std::uint8_t> no_scale;

struct FrequencyCase {
    const char* text;
    std::int32_t word;
    std::optional<std::uint8_t> db3;
    int decimals;
};

TEST(EncodeFrequency, takes_the_point_out_and_pads_to_the_digits_of_its_scale) {
    const FrequencyCase cases[] = {
        // text        word     db3  decimals
        {"5", 5000, 8, 0}, // one digit becomes two
        {"50", 50000, 8, 0},         {"500", 500000, 8, 0},     {"1.5", 1500, 8, 1},
        {"7.83", 7830, 8, 2},        {"12.345", 12345, 8, 3},   {"123.4", 123400, 8, 1},
        {"0.5", 500, 8, 1},          {"1000", 100000, 4, 0},    {"1234.5", 123450, 4, 1},
        {"1234.567", 234567, 4, 3}, // the leading digit is lost without a word
        {"12345.6", 123456, 2, 1},   {"123456", 123456, 1, 0},  {"1234567", 234567, no_scale, 0},
        {".5", 500000, no_scale, 1},                        // no integer digit, no scale
        {"5.", 5000, 8, 0},          {"1.2.3", 1203, 8, 3}, // the left point is found, the other counts as 0
        {"7,83", 708300, 4, 0},                             // a comma that stays is one more character and reads as 0
        {"12a4", 120400, 4, 0},      {"1.23456", 123456, 8, 5}, // too many for the generator, told by `decimals`
    };
    for (const auto& c : cases) {
        EXPECT_EQ(encode_frequency(c.text), (FrequencyWord{c.word, c.db3, c.decimals})) << c.text;
    }
}

TEST(EncodeFrequency, more_than_nine_characters_are_out_of_bounds) {
    EXPECT_NO_THROW(encode_frequency("123456789"));
    EXPECT_THROW(encode_frequency("1234567890"), Fault);
}

LevelCells level(const std::string& base, const std::string& wave = "Single Frequency") {
    return {"1", wave, base, "4", "9", "3:00", "", "OFF", "1", "Square", "50%", "Positive"};
}

TEST(EncodeMode, reads_wave_pulse_output_and_shape_in_this_order) {
    const std::tuple<const char*, const char*, const char*, const char*, int> cases[] = {
        {"Single Frequency", "ON", "Positive", "Square", 0x15},
        {"Single frequency", "off", "POSITIVE", "square", 0x1D}, // case does not count
        {"Spread Contracting", "ON", "Negative", "Sine", 0x40},
        {"Spread Expanding", "OFF", "Negative", "Triangle", 0x8C},
        {"Sweep Increasing", "ON", "Positive", "Triangle", 0x96},
        {"Sweep Decreasing", "OFF", "Positive", "Sine", 0x5A},
        {"Sweep Decreasing", "ON", "Offset", "Square", 47}, // Offset turns the whole byte into 47
        {"Single Frequency", "ON", "Offset", "Sine", 111},
        {"Spread Expanding", "OFF", "Offset", "Triangle", 175},
        {"", "", "", "", 255}, // unknown texts leave the unset byte
        {"", "ON", "", "", 7},
    };
    for (const auto& [wave, pulse, output, shape, mode] : cases) {
        LevelCells cells = level("5");
        cells[column::waveform] = wave;
        cells[column::pulse] = pulse;
        cells[column::output] = output;
        cells[column::wave_shape] = shape;
        EXPECT_EQ(encode_mode(cells), mode) << wave << pulse << output << shape;
    }
}

class EncodeLevel : public ::testing::Test {
protected:
    RegisterImage image;
    EncodingRules rules;

    void SetUp() override { image.reset(); }

    EncodingResult encode(const LevelCells& cells, int at = 1) { return encode_level(image, at, cells, rules); }
};

TEST_F(EncodeLevel, schumann_level_gives_these_twelve_bytes) {
    EXPECT_EQ(encode(level("7.83")), EncodingResult::done);
    EXPECT_EQ(image.bytes(1), (LevelBytes{0, 30, 150, 8, 0, 3, 0x1D, 5, 0, 0, 1, 0x1E}));
    EXPECT_EQ(image.errorchk[1], 512 - (30 + 150 + 8 + 3 + 0x1D + 5 + 1));
}

TEST_F(EncodeLevel, twelve_bytes_add_up_to_zero_in_every_row) {
    for (const int row : {1, 2, 50}) {
        encode(level("123.4", "Spread Expanding"), row);
        int sum = 0;
        for (const int byte : image.bytes(row)) {
            sum += byte;
        }
        EXPECT_EQ(sum % 256, 0) << row;
    }
    EXPECT_EQ(image.errorchk[1] - image.errorchk[2], 256); // only the first level counts from 512
}

TEST_F(EncodeLevel, time_is_read_in_the_form_of_the_window) {
    const std::tuple<TimeForm, const char*, int, int> cases[] = {
        {TimeForm::seconds, "90", 1, 30}, {TimeForm::seconds, "59.9", 0, 59},
        {TimeForm::seconds, "", 0, 0},    {TimeForm::seconds, "15420", 1, 0}, // 257 minutes are kept to eight bits
        {TimeForm::clock, "3:00", 3, 0},  {TimeForm::clock, ":10", 0, 10},
        {TimeForm::clock, "1:75", 1, 75}, {TimeForm::clock, "1:2:3", 1, 2},
    };
    for (const auto& [form, text, minutes, seconds] : cases) {
        rules.time_form = form;
        LevelCells cells = level("7.83");
        cells[column::time_each] = text;
        encode(cells);
        EXPECT_EQ(image.timemin[1], minutes) << text;
        EXPECT_EQ(image.timesec[1], seconds) << text;
    }
}

TEST_F(EncodeLevel, rate_divides_by_255_and_multiplies_by_256) {
    const std::tuple<RateRule, const char*, int, int> cases[] = {
        {RateRule::high_byte_by_255, "0", 0, 0},     {RateRule::high_byte_by_255, "255", 0, 255},
        {RateRule::high_byte_by_255, "256", 1, 0},   {RateRule::high_byte_by_255, "300", 1, 44},
        {RateRule::high_byte_by_255, "510", 2, 254},                                              // reads back as 766
        {RateRule::high_byte_by_10, "10", 0, 10},    {RateRule::high_byte_by_10, "300", 30, 255}, // low stays unset
    };
    for (const auto& [rule, text, high, low] : cases) {
        image.reset();
        rules.rate = rule;
        LevelCells cells = level("7.83");
        cells[column::rate] = text;
        encode(cells);
        EXPECT_EQ(image.pratehi[1], high) << text;
        EXPECT_EQ(image.pratelo[1], low) << text;
    }
}

TEST_F(EncodeLevel, width_counts_for_packets_alone_and_duty_in_tens) {
    encode(level("7.83", "Sweep Increasing"));
    EXPECT_EQ(image.wpwidth[1], 4);
    encode(level("7.83", "SINGLE FREQUENCY"));
    EXPECT_EQ(image.wpwidth[1], 0);
    EXPECT_EQ(image.dutycycle[1], 5);
    LevelCells cells = level("7.83");
    cells[column::duty_cycle] = "";
    encode(cells);
    EXPECT_EQ(image.dutycycle[1], 0);
}

TEST_F(EncodeLevel, decimal_comma_becomes_a_point_only_where_the_window_says_so) {
    rules.comma = CommaRule::becomes_point;
    encode(level("7,83"));
    EXPECT_EQ(image.bytes(1)[record_offset::fbyte0], 150);
    rules.comma = CommaRule::stays;
    encode(level("7,83"));
    EXPECT_EQ(image.fbyte2[1] * 65536 + image.fbyte1[1] * 256 + image.fbyte0[1], 708300);
}

TEST_F(EncodeLevel, too_many_decimals_stop_after_the_mode_byte) {
    EXPECT_EQ(encode(level("1.2345")), EncodingResult::too_many_decimals);
    EXPECT_EQ(image.db6[1], 0x1D);
    EXPECT_EQ(image.db3[1], unset);
}

TEST_F(EncodeLevel, faults_leave_what_was_written_before_them) {
    EXPECT_THROW(encode(level("0.255")), Fault); // word 255: one byte, and no digit for the next
    EXPECT_EQ(image.db3[1], 8);
    EXPECT_EQ(image.fbyte0[1], 255);
    EXPECT_EQ(image.fbyte1[1], unset);
    EXPECT_NO_THROW(encode(level("0.256")));

    EXPECT_THROW(encode(level("")), Fault);
    LevelCells no_colon = level("7.83");
    no_colon[column::time_each] = "2";
    EXPECT_THROW(encode(no_colon), Fault);
    EXPECT_EQ(image.timemin[1], 2);
}

} // namespace
} // namespace tessit
