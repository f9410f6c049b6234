// SPDX-License-Identifier: MIT
// The microsecond clock, and the one wait that the device's dialogues use.
#pragma once

#include <cstdint>

namespace tessit {

using Microseconds = std::int64_t;

class Clock {
public:
    virtual ~Clock() = default;

    virtual Microseconds now() = 0;

    // Passes some time, at most until `now() + at_most`; may return early. A simulated clock moves itself on.
    virtual void idle(Microseconds at_most) = 0;
};

// Never ends early. When the clock steps backwards, the time passed so far is taken off the wait and the wait
// restarts from the new reading.
void wait(Clock& clock, Microseconds duration);

} // namespace tessit
