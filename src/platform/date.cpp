// SPDX-License-Identifier: MIT
#include "platform/date.h"

#include "platform/text.h"

namespace tessit {

std::string Date::SQLDate() const {
    return Str(year) + "-" + two_digits(month) + "-" + two_digits(day);
}

Date local_date(std::time_t time) {
    std::tm parts{};
    localtime_r(&time, &parts);
    return {.year = parts.tm_year + 1900,
            .month = parts.tm_mon + 1,
            .day = parts.tm_mday,
            .hour = parts.tm_hour,
            .minute = parts.tm_min,
            .second = parts.tm_sec,
            .day_of_week = parts.tm_wday,
            .GMTOffset = static_cast<double>(parts.tm_gmtoff) / 3600};
}

} // namespace tessit
