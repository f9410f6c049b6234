// SPDX-License-Identifier: MIT
#include "composer/grouping.h"

#include <gtest/gtest.h>

namespace tessit {

namespace {

// "120 117.9 110[5@115] 100": frequencies in order, with width and centre behind a run's last one, in "()" where lone.
std::string grouped(const std::vector<double>& list) {
    std::vector<double> with_zero = list;
    with_zero.push_back(0);
    std::string text;
    for (const PrimeRow& row : group_frequencies(Array<double>(with_zero), static_cast<int>(list.size()))) {
        const std::string number = Str(static_cast<float>(row.frequency));
        text += text.empty() ? "" : " ";
        text += row.color == run_color ? number : "(" + number + ")";
        if (row.run) {
            text += "[" + Str(row.run->width) + "@" + Str(static_cast<float>(row.run->center)) + "]";
        }
    }
    return text;
}

} // namespace

TEST(Grouping, a_run_is_measured_from_its_first_member) {
    const std::pair<std::vector<double>, const char*> cases[] = {
        {{}, ""},
        {{100}, "(100)"},
        {{120, 117.9F, 110, 100}, "120 117.9 110[5@115] (100)"},
        {{100.5, 100}, "100.5 100[1@101]"}, // at least 1
        {{118, 100}, "(118) (100)"},        // exactly 18 apart
        {{117.9F, 100}, "117.9 100[8@108]"},
        {{110, 101}, "110 101[4@105]"},
        {{0, 50, 0, 45, 0}, "(50) (45)"},              // a 0 gives no row and ends a run
        {{10, 20, 30, 40}, "10 20[5@15] 30 40[5@35]"}, // a list sorted upward stays so
    };
    for (const auto& [list, rows] : cases) {
        EXPECT_EQ(grouped(list), rows);
    }
    EXPECT_THROW(group_frequencies(Array<double>{1, 2}, 1), Fault); // no 0 behind the list
}

TEST(Grouping, every_text_has_a_mark) {
    const auto primes = [](float prime) {
        return prime_text(prime, DecimalMark::point) + " " + prime_text(prime, DecimalMark::comma);
    };
    EXPECT_EQ(primes(528), "528. 528,");
    EXPECT_EQ(primes(7.83F), "7.83 7,83");
    EXPECT_EQ(center_text(123.5, DecimalMark::point), "123.5");
    EXPECT_EQ(center_text(123.5, DecimalMark::comma), "123.5,"); // keeps its point
    EXPECT_EQ(center_text(7.83F + 1.0, DecimalMark::point), "8.83");
}

} // namespace tessit
