// SPDX-License-Identifier: MIT
#include "platform/text.h"

#include "platform/ref.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <rapidcheck/gtest.h>

namespace tessit {
namespace {

using Texts = Array<std::string>;

TEST(Text, a_split_gives_every_piece_and_none_of_the_empty_text) {
    struct Case {
        const char* text;
        const char* separator;
        Texts pieces;
    };
    const Case cases[] = {
        {"", ";", {}},
        {";", ";", {"", ""}},
        {"a", ";", {"a"}},
        {"a;b;", ";", {"a", "b", ""}},
        {";;b", ";", {"", "", "b"}},
        {"7.83, 12", ", ", {"7.83", "12"}},
        {"a,, b, c,", ", ", {"a,", "b", "c,"}},
        {"\r\n", ";", {"\r\n"}},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(Split(c.text, c.separator), c.pieces) << c.text;
        EXPECT_EQ(CountFields(c.text, c.separator), c.pieces.count()) << c.text;
    }
}

RC_GTEST_PROP(Text, pieces_joined_again_are_the_text, (const std::string& text)) {
    std::string joined;
    for (const std::string& piece : Split(text, ",")) {
        joined += piece + ",";
    }
    RC_ASSERT(joined == (text.empty() ? "" : text + ","));
}

TEST(Text, every_line_end_becomes_a_carriage_return) {
    struct Case {
        const char* text;
        const char* result;
    };
    const Case cases[] = {
        {"", ""},
        {"a\rb", "a\rb"},
        {"a\nb\n", "a\rb\r"},
        {"a\r\nb\r\n", "a\rb\r"},
        {"a\n\nb", "a\r\rb"},
        {"a\r\r\nb", "a\r\rb"},
        {"a\n\rb", "a\r\rb"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(with_carriage_returns(c.text), c.result);
    }
}

TEST(Text, numeric_is_digits_with_one_mark_at_most) {
    struct Case {
        const char* text;
        bool point, comma; // with the decimal point, with the decimal comma
    };
    const Case cases[] = {
        {"7", true, true},       {"007.83", true, true},     {"7,83", false, true},
        {".5", true, true},      {"5.", true, true},         {",5", false, true},
        {"  7.8 ", true, true},  {"7 8", false, false},      {"7.8.3", false, false},
        {"7.8,3", false, false}, {".", false, false},        {",", false, false},
        {"", false, false},      {"   ", false, false},      {"-7", false, false},
        {"+7", false, false},    {"1e3", false, false},      {"7\r", false, false},
        {"0x10", false, false},  {"\xC2\xB2", false, false}, // a superscript two
    };
    for (const auto& c : cases) {
        EXPECT_EQ(IsNumeric(c.text, DecimalMark::point), c.point) << c.text;
        EXPECT_EQ(IsNumeric(c.text, DecimalMark::comma), c.comma) << c.text;
    }
}

TEST(Text, a_character_is_a_code_point_or_a_byte_that_belongs_to_none) {
    struct Case {
        const char* text;
        Texts result;
    };
    const Case cases[] = {
        {"", {}},
        {"a\xC3\xA9z", {"a", "\xC3\xA9", "z"}},
        {"\xE2\x82\xAC\xF0\x9F\x8E\xB5", {"\xE2\x82\xAC", "\xF0\x9F\x8E\xB5"}},
        {"\xE9t\xE9", {"\xE9", "t", "\xE9"}}, // Latin-1
        {"\x80\xBF", {"\x80", "\xBF"}},       // no lead byte
        {"\xE2\x82", {"\xE2", "\x82"}},       // cut off
        {"\xC3\x31", {"\xC3", "1"}},
        {"\xFD\xFF", {"\xFD", "\xFF"}},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(characters(c.text), c.result);
        EXPECT_EQ(Len(c.text), c.result.count());
    }
    EXPECT_EQ(Len(std::string_view("a\0b", 3)), 3);
}

RC_GTEST_PROP(Text, no_byte_is_lost_between_characters, (const std::string& text)) {
    std::string joined;
    for (const std::string& character : characters(text)) {
        RC_ASSERT(!character.empty());
        joined += character;
    }
    RC_ASSERT(joined == text);
}

TEST(Text, replacing_goes_from_left_to_right_and_does_not_look_at_what_it_put_in) {
    EXPECT_EQ(Replace("a.zp2.zp2", ".zp2", ""), "a.zp2");
    EXPECT_EQ(Replace("abc", "x", "y"), "abc");
    EXPECT_EQ(ReplaceAll("1,2,3", ",", "."), "1.2.3");
    EXPECT_EQ(ReplaceAll("aaa", "aa", "a"), "aa");
    EXPECT_EQ(ReplaceAll("ab", "", "x"), "ab");
    EXPECT_EQ(ReplaceAll("a,", ",", ",,"), "a,,");
}

TEST(Text, comparison_ignores_the_case_of_ascii_letters_alone) {
    EXPECT_TRUE(same_text("Sweep INCREASING", "sweep increasing"));
    EXPECT_TRUE(same_text("", ""));
    EXPECT_FALSE(same_text("Sine", "Sine "));
    EXPECT_FALSE(same_text("Sine", "Sin"));
    EXPECT_FALSE(same_text("[", "{"));               // 32 apart, as letters of both cases are
    EXPECT_FALSE(same_text("\xC3\x89", "\xC3\xA9")); // capital and small e with an acute accent
}

TEST(Text, numbers_saturate_truncate_and_wrap) {
    constexpr double infinity = std::numeric_limits<double>::infinity();
    struct Case {
        double value;
        std::int32_t result;
    };
    const Case cases[] = {
        {465.0 - 1e-9, 464},
        {-0.9, 0},
        {-7.9, -7},
        {2147483647.5, 2147483647},
        {1e30, 2147483647},
        {infinity, 2147483647},
        {-2147483649., -2147483647 - 1},
        {-infinity, -2147483647 - 1},
        {std::nan(""), 0},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(truncate(c.value), c.result) << c.value;
    }
    EXPECT_EQ(wrap32(2147483648LL), -2147483647 - 1);
    EXPECT_EQ(low_byte(-1), 255);
    EXPECT_EQ(low_byte(766), 254);
    EXPECT_EQ(ChrB(13), "\r");
    EXPECT_EQ(ChrB(256 + 3), "\x03");
    EXPECT_EQ(two_digits(9) + two_digits(10) + two_digits(100), "0910100");
}

TEST(Array, both_ends_are_guarded) {
    Array<int> three{1, 2, 3};
    FixedArray<std::uint8_t, 50> fifty_one;
    EXPECT_EQ(three.upper_bound(), 2);
    EXPECT_EQ(Array<int>().upper_bound(), -1);
    EXPECT_NO_THROW(fifty_one[0] = fifty_one[50]);
    EXPECT_THROW(fifty_one[51] = 0, Fault);
    EXPECT_THROW(fifty_one[-1] = 0, Fault);
    EXPECT_THROW(three[-1], Fault);
    try {
        three[3] = 0;
        FAIL();
    } catch (const Fault& fault) {
        EXPECT_EQ(fault.kind(), FaultKind::out_of_bounds);
        EXPECT_STREQ(fault.what(), "An array index was out of bounds: 3 of 3 elements.");
    }
}

TEST(Ref, using_nil_is_a_fault) {
    const Ref<int> nil;
    EXPECT_TRUE(nil.is_nil());
    try {
        *nil;
        FAIL();
    } catch (const Fault& fault) {
        EXPECT_EQ(fault.kind(), FaultKind::nil_object);
        EXPECT_STREQ(fault.what(), "An object that does not exist was used.");
    }
    EXPECT_EQ(*Ref<int>(std::make_unique<int>(7)), 7);
}

} // namespace
} // namespace tessit
