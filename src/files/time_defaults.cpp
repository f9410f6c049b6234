// SPDX-License-Identifier: MIT
#include "files/time_defaults.h"

#include "level/number.h"

namespace tessit {

TimeDefault set_time_default(const TimeDefault& old, const std::string& typed, TimeForm form) {
    const float value = read_number(typed);
    const double unit = form == TimeForm::seconds ? 60.0 : 100.0;
    const std::int32_t minutes = truncate(value / unit);
    const std::int32_t seconds = truncate(value) % static_cast<std::int32_t>(unit);
    if (form == TimeForm::clock) {
        return {.seconds = Str(wrap32(seconds + std::int64_t{60} * minutes)), .minutes = typed};
    }
    return {.seconds = typed, .minutes = (minutes < 1 ? "0" : old.minutes) + format_minutes(minutes, seconds)};
}

} // namespace tessit
