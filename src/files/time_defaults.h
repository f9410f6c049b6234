// SPDX-License-Identifier: MIT
// The two texts of a default time, in seconds and in minutes and seconds, and how the one typed makes the other.
#pragma once

#include "level/clock_text.h"

#include <string>

namespace tessit {

struct TimeDefault {
    std::string seconds; // "180"
    std::string minutes; // "3:00"

    bool operator==(const TimeDefault&) const = default;
};

// What is stored when `typed` is set in the given form.
// In seconds, from one minute on, the minutes text is added behind the old one: 150 behind "3:00" makes "3:002:30".
// That is how it is meant. Below a minute it begins anew: 45 makes "00:45".
// In minutes the digits count as MMSS: "2:30" and "230" both make 150 seconds.
TimeDefault set_time_default(const TimeDefault& old, const std::string& typed, TimeForm form);

} // namespace tessit
