// SPDX-License-Identifier: MIT
// Times as the tables and totals write them.
#pragma once

#include "platform/text.h"

#include <cstdint>
#include <string>

namespace tessit {

enum class TimeForm { seconds, clock }; // "180", or "3:00" and "00:03:00"

// The index that `default_timeformat` and the format boxes hold: 1 is the clock form, anything else seconds.
inline TimeForm time_form_of(int index) {
    return index == 1 ? TimeForm::clock : TimeForm::seconds;
}

struct ClockTime {
    std::int32_t hours = 0;
    std::int32_t minutes = 0;
    std::int32_t seconds = 0;

    bool operator==(const ClockTime&) const = default;
};

// Carries whole sixties of seconds into minutes and of minutes into hours.
inline ClockTime carried(ClockTime time) {
    if (time.seconds > 59) {
        time.minutes = wrap32(std::int64_t{time.minutes} + time.seconds / 60);
        time.seconds %= 60;
    }
    if (time.minutes > 59) {
        time.hours = wrap32(std::int64_t{time.hours} + time.minutes / 60);
        time.minutes %= 60;
    }
    return time;
}

// HH:MM:SS, at least two digits each.
inline std::string format_clock(const ClockTime& time) {
    return two_digits(time.hours) + ":" + two_digits(time.minutes) + ":" + two_digits(time.seconds);
}

// M:SS, as "Time each" shows it.
inline std::string format_minutes(int minutes, int seconds) {
    return Str(minutes) + ":" + two_digits(seconds);
}

} // namespace tessit
