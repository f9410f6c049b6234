// SPDX-License-Identifier: MIT
#include "consolidator/frequency_list.h"
#include "support/frequency_loops.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cmath>
#include <limits>
#include <ostream>

namespace tessit {

using namespace testing;

namespace {

constexpr auto point = DecimalMark::point;
constexpr auto comma = DecimalMark::comma;

std::vector<double> values(const Array<double>& numbers) {
    return {numbers.begin(), numbers.end()};
}

// Lists with many equal values and zeros, of every length that the loops can bear, ended by a 0.
rc::Gen<std::vector<double>> lists() {
    const auto number = rc::gen::element(0.0, 1.0, 2.0, 2.5, 3.0, 7.0, static_cast<double>(7.83F),
                                         std::numeric_limits<double>::infinity());
    return rc::gen::map(rc::gen::container<std::vector<double>>(number), [](std::vector<double> list) {
        list.push_back(0);
        return list;
    });
}

Array<double> numbers_of(const std::string& text, DecimalMark mark = point) {
    return read_frequency_list(text, mark).numbers;
}

std::string sorted(const std::string& text, SortOrder order, DecimalMark mark = point) {
    FrequencyList list = read_frequency_list(text, mark);
    sort_frequencies(list.numbers, order);
    return write_frequency_list(list.numbers, list.count, mark, WrittenMark::as_set);
}

} // namespace

TEST(FrequencyList, parses_what_stands_in_the_text) {
    const std::tuple<const char*, DecimalMark, std::vector<double>> cases[] = {
        {"", point, {0}},
        {"5", point, {5, 0}},
        {"3, 1, 2,", point, {3, 1, 2, 0}},
        {"3, ,", point, {3, 0, 0}}, // one empty piece counts
        {"1.5Hz, -2, a7b, 1.2.5", point, {static_cast<double>(0.015F), 2, 7, 12.5, 0}},
        {"1,5 : 2,5,1", comma, {1.5, static_cast<double>(0.251F), 0}}, // a second comma is one more place
        {"1.5, 2.5", comma, {152.5, 0}},                               // the other notation: one entry
        {"123456.781,123456.782", point, {123456.78125, 123456.78125, 0}},
        {"16777217", point, {16777216, 0}},
    };
    for (const auto& [text, mark, numbers] : cases) {
        const FrequencyList list = read_frequency_list(text, mark);
        EXPECT_EQ(list.count, static_cast<int>(numbers.size()) - 1) << text;
        EXPECT_EQ(count_entries(text, mark), list.count) << text;
        EXPECT_EQ(list.entries.count(), list.numbers.count()) << text;
        EXPECT_EQ(values(list.numbers), numbers) << text;
    }
}

TEST(FrequencyList, a_sort_adds_the_zero_behind_the_list) {
    constexpr auto up = SortOrder::increasing;
    constexpr auto down = SortOrder::decreasing;
    EXPECT_EQ(sorted("3, 1, 2", up), "0, 1, 2, 3");
    EXPECT_EQ(sorted("3, 1, 2", down), "3, 2, 1, 0");
    EXPECT_EQ(sorted("0, 1, 2, 3", up), "0, 0, 1, 2, 3");
    EXPECT_EQ(sorted("1,5 : 2,5", up, comma), "0 : 1,5 : 2,5");
    EXPECT_EQ(sorted("5", up), "5, 0"); // a single entry is not sorted
    EXPECT_EQ(sorted("7.83, 14.1, 7.830", up), "0, 7.83, 7.83, 14.1");
    const std::string long_digits(40, '9');
    EXPECT_EQ(sorted("1," + long_digits + ",2", up), "0, 1, 2, inf");
}

RC_GTEST_PROP(FrequencyList, sorts_as_the_loops_do, ()) {
    std::vector<double> by_loops = *lists();
    Array<double> numbers(by_loops);
    const auto order = *rc::gen::element(SortOrder::increasing, SortOrder::decreasing);
    sort_by_loops(by_loops, order);
    sort_frequencies(numbers, order);
    RC_ASSERT(values(numbers) == by_loops);
}

TEST(FrequencyList, removal_keeps_the_last_of_equals_and_reports_by_scan) {
    const std::string removed = "Hz  were removed";
    const std::tuple<const char*, const char*, std::string> cases[] = {
        {"1, 2, 2, 3", "1, 2, 3, 0", "\r1 duplicates of frequency 2" + removed},
        {"5, 7, 5", "7, 5, 0", "\r1 duplicates of frequency 7" + removed},             // in front of the match
        {"1, 1, 2, 2, 3, 3", "1, 2, 3, 0", "\r3 duplicates of frequency 3" + removed}, // one scan for all three
        {"3, 3, 3, 3", "3, 0", "\r2 duplicates of frequency 3" + removed},             // the second scan's is beyond
        {"0, 0, 1, 2, 3", "1, 2, 3, 0",
         "\r1 duplicates of frequency 3" + removed + "\r1 duplicates of frequency 3" +
             removed}, // found in the 0 at the end
        {"4", "4, 0", ""},
    };
    for (const auto& [text, left, report] : cases) {
        const RemovalResult result = remove_duplicates(numbers_of(text));
        EXPECT_EQ(write_frequency_list(result.numbers, result.count, point, WrittenMark::point), left);
        EXPECT_EQ(duplicates_report(result), report) << text;
    }
    const RemovalResult result = remove_duplicates(numbers_of("1,5: 1,5: 2,5", comma));
    EXPECT_EQ(write_frequency_list(result.numbers, result.count, comma, WrittenMark::point), "1.5 : 2.5 : 0");
}

RC_GTEST_PROP(FrequencyList, removes_as_the_loops_do, ()) {
    const std::vector<double> list = *lists();
    const LoopResult by_loops = remove_by_loops(list);
    const RemovalResult result = remove_duplicates(Array<double>(list));
    RC_ASSERT(values(result.numbers) == by_loops.numbers);
    RC_ASSERT(result.count == by_loops.count);
    RC_ASSERT(duplicates_report(result) == by_loops.report);
}

TEST(FrequencyList, notations_are_no_mirrors) {
    EXPECT_EQ(in_point_notation("1,5: 2,5"), "1.5, 2.5");
    EXPECT_EQ(in_point_notation("1.5, 2.5"), "1.5, 2.5");
    EXPECT_EQ(in_comma_notation("1.5, 2.5"), "1,5: 2,5");
    EXPECT_EQ(in_comma_notation("1,5: 2,5"), "1:5: 2:5");
}

TEST(FrequencyList, what_is_no_number_keeps_its_place_in_a_sort) {
    const double none = std::nan("");
    const std::vector<double> lists[] = {{4, 3, none, 2, 9, 1, 0}, {5, 7, none, 0}, {5, none, 0}};
    for (const std::vector<double>& list : lists) {
        std::vector<double> by_loops = list;
        sort_by_loops(by_loops, SortOrder::increasing);
        Array<double> numbers(list);
        sort_frequencies(numbers, SortOrder::increasing);
        const int place = numbers.count() > 4 ? 2 : numbers.count() - 2;
        ASSERT_TRUE(std::isnan(numbers[place]));
        numbers[place] = by_loops[static_cast<std::size_t>(place)] = -1;
        EXPECT_EQ(values(numbers), by_loops);
    }
}

} // namespace tessit
