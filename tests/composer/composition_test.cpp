// SPDX-License-Identifier: MIT
#include "composer/composition.h"

#include "platform/fault.h"

#include <gtest/gtest.h>

namespace tessit {

TEST(Composition, row_totals_by_the_way_the_row_came) {
    const std::tuple<const char*, float, const char*, const char*> cases[] = {
        {"3:00", 1, "3:00", "3:00"},       {":10", 19, "3:10", "3:10"},
        {"1:30", 3, "4:0-150", "4:0-150"}, // sixty times all minutes go
        {":10", 6, "1:00", "0:60"},        // 59 is the limit in one, 60 in the other
        {"20:00", 4, "20:00", "80:00"},    // minutes go to hours that are not shown
        {":", 5, "0:00", "0:00"},
    };
    for (const auto& [text, frequencies, new_row, single_carry] : cases) {
        const ClockTime each = minutes_and_seconds(text);
        EXPECT_EQ(format_row_total(row_total(each, frequencies, RowCarry::new_row)), new_row) << text;
        EXPECT_EQ(format_row_total(row_total(each, frequencies, RowCarry::single_carry)), single_carry) << text;
    }
    EXPECT_THROW(minutes_and_seconds("180"), Fault);
    EXPECT_THROW(minutes_and_seconds(""), Fault);
}

TEST(Composition, bank_totals) {
    EXPECT_EQ(seconds_total(0, 180), (ClockTime{.hours = 0, .minutes = 3, .seconds = 0}));
    EXPECT_EQ(seconds_total(20, 3650), (ClockTime{.hours = 1, .minutes = 1, .seconds = 10}));

    const std::vector<std::string> cells{"40:50", "30:50"};
    EXPECT_EQ(total_of_new_row(cells), (ClockTime{.hours = 1, .minutes = 11, .seconds = 40}));
    EXPECT_EQ(total_of_changed_row(cells, 30), (ClockTime{.hours = 0, .minutes = 71, .seconds = 40}));
    EXPECT_EQ(total_of_changed_row(cells, 60), (ClockTime{.hours = 1, .minutes = 11, .seconds = 40}));
    EXPECT_EQ(total_of_new_row({"4:0-150"}).seconds, 30); // the sign is skipped
    EXPECT_THROW(total_of_new_row({"3:00", ""}), Fault);

    EXPECT_EQ(added_up({.hours = 0, .minutes = 59, .seconds = 50}, {.hours = 0, .minutes = 0, .seconds = 70}),
              (ClockTime{.hours = 1, .minutes = 1, .seconds = 0}));
}

} // namespace tessit
