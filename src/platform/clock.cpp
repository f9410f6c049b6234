// SPDX-License-Identifier: MIT
#include "platform/clock.h"

namespace tessit {

void wait(Clock& clock, Microseconds duration) {
    Microseconds start = clock.now();
    Microseconds last = start;
    while (last - start < duration) {
        clock.idle(duration - (last - start));
        const Microseconds now = clock.now();
        if (now < last) {
            duration -= last - start;
            start = now;
        }
        last = now;
    }
}

} // namespace tessit
