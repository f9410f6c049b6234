// SPDX-License-Identifier: MIT
#include "platform/text.h"

#include "platform/ref.h"
#include "support/scripted_desktop.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace tessit {
namespace {

using testing::joined;
using Texts = Array<std::string>;

TEST(Text, a_split_gives_every_piece_and_none_of_the_empty_text) {
    const std::tuple<const char*, const char*, Texts> cases[] = {
        {"", ";", {}},
        {";", ";", {"", ""}},
        {"a", ";", {"a"}},
        {"a;b;", ";", {"a", "b", ""}},
        {";;b", ";", {"", "", "b"}},
        {"7.83, 12", ", ", {"7.83", "12"}},
        {"a,, b, c,", ", ", {"a,", "b", "c,"}},
        {"\r\n", ";", {"\r\n"}},
    };
    for (const auto& [text, separator, pieces] : cases) {
        EXPECT_EQ(Split(text, separator), pieces) << text;
        EXPECT_EQ(CountFields(text, separator), pieces.count()) << text;
    }
}

TEST(Text, numeric_is_digits_with_one_mark_at_most) {
    // with the decimal point, with the decimal comma
    const std::tuple<const char*, bool, bool> cases[] = {
        {"7", true, true},       {"007.83", true, true},     {"7,83", false, true},
        {".5", true, true},      {"5.", true, true},         {",5", false, true},
        {"  7.8 ", true, true},  {"7 8", false, false},      {"7.8.3", false, false},
        {"7.8,3", false, false}, {".", false, false},        {",", false, false},
        {"", false, false},      {"   ", false, false},      {"-7", false, false},
        {"+7", false, false},    {"1e3", false, false},      {"7\r", false, false},
        {"0x10", false, false},  {"\xC2\xB2", false, false}, // a superscript two
    };
    for (const auto& [text, point, comma] : cases) {
        EXPECT_EQ(IsNumeric(text, DecimalMark::point), point) << text;
        EXPECT_EQ(IsNumeric(text, DecimalMark::comma), comma) << text;
    }
}

TEST(Text, a_character_is_a_code_point_or_a_byte_that_belongs_to_none) {
    const std::pair<const char*, Texts> cases[] = {
        {"", {}},
        {"a\xC3\xA9z", {"a", "\xC3\xA9", "z"}},
        {"\xE2\x82\xAC\xF0\x9F\x8E\xB5", {"\xE2\x82\xAC", "\xF0\x9F\x8E\xB5"}},
        {"\xE9t\xE9", {"\xE9", "t", "\xE9"}}, // Latin-1
        {"\x80\xBF", {"\x80", "\xBF"}},       // no lead byte
        {"\xE2\x82", {"\xE2", "\x82"}},       // cut off
        {"\xC3\x31", {"\xC3", "1"}},
        {"\xFD\xFF", {"\xFD", "\xFF"}},
    };
    for (const auto& [text, result] : cases) {
        EXPECT_EQ(characters(text), result);
        EXPECT_EQ(Len(text), result.count());
    }
    EXPECT_EQ(Len(std::string_view("a\0b", 3)), 3);
}

TEST(Text, replacing_goes_from_left_to_right_and_does_not_look_at_what_it_put_in) {
    EXPECT_EQ(joined(Replace("a.zp2.zp2", ".zp2", ""), Replace("abc", "x", "y"), ReplaceAll("1,2,3", ",", ".")),
              "a.zp2|abc|1.2.3");
    EXPECT_EQ(joined(ReplaceAll("aaa", "aa", "a"), ReplaceAll("ab", "", "x"), ReplaceAll("a,", ",", ",,")),
              "aa|ab|a,,");
}

TEST(Text, comparison_ignores_the_case_of_ascii_letters_alone) {
    EXPECT_TRUE(same_text("Sweep INCREASING", "sweep increasing") && same_text("", "") && !same_text("Sine", "Sine "));
    EXPECT_FALSE(same_text("Sine", "Sin"));
    EXPECT_FALSE(same_text("[", "{"));               // 32 apart, as letters of both cases are
    EXPECT_FALSE(same_text("\xC3\x89", "\xC3\xA9")); // capital and small e with an acute accent
}

TEST(Text, numbers_saturate_truncate_and_wrap) {
    constexpr double infinity = std::numeric_limits<double>::infinity();
    const std::pair<double, std::int32_t> cases[] = {
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
    for (const auto& [value, result] : cases) {
        EXPECT_EQ(truncate(value), result) << value;
    }
    EXPECT_EQ(wrap32(2147483648LL), -2147483647 - 1);
    EXPECT_EQ(joined(low_byte(-1), low_byte(766), ChrB(13), ChrB(256 + 3)), "255|254|\r|\x03");
    EXPECT_EQ(two_digits(9) + two_digits(10) + two_digits(100), "0910100");
}

TEST(Array, both_ends_are_guarded) {
    Array<int> three{1, 2, 3};
    FixedArray<std::uint8_t, 50> fifty_one;
    EXPECT_EQ(joined(three.upper_bound(), Array<int>().upper_bound()), "2|-1");
    EXPECT_NO_THROW(fifty_one[0] = fifty_one[50]);
    EXPECT_THROW(fifty_one[51] = 0, Fault);
    EXPECT_THROW(fifty_one[-1] = 0, Fault);
    EXPECT_THROW(three[-1], Fault);
    const auto fault = testing::fault_of([&] { three[3] = 0; });
    EXPECT_EQ(fault->kind(), FaultKind::out_of_bounds);
    EXPECT_STREQ(fault->what(), "An array index was out of bounds: 3 of 3 elements.");
}

TEST(Ref, using_nil_is_a_fault) {
    const Ref<int> nil;
    EXPECT_TRUE(nil.is_nil());
    const auto fault = testing::fault_of([&] { *nil; });
    EXPECT_EQ(fault->kind(), FaultKind::nil_object);
    EXPECT_STREQ(fault->what(), "An object that does not exist was used.");
    EXPECT_EQ(*Ref<int>(std::make_unique<int>(7)), 7);
}

} // namespace
} // namespace tessit
