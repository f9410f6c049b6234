// SPDX-License-Identifier: MIT
// A calendar date with the time of day, in local time.
#pragma once

#include <ctime>
#include <string>

namespace tessit {

struct Date {
    int year = 1970;
    int month = 1; // from 1
    int day = 1;
    int hour = 0;
    int minute = 0;
    int second = 0;
    int day_of_week = 0;  // 0 is Sunday
    double GMTOffset = 0; // of local time, in hours

    std::string SQLDate() const; // "2026-03-09"

    bool operator==(const Date&) const = default;
};

Date local_date(std::time_t time);

} // namespace tessit
