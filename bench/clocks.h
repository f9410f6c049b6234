// SPDX-License-Identifier: MIT
// Times, and two simple ways to wait, beside which the program's clock is measured.
#pragma once

#include "platform/clock.h"

namespace tessit::bench {

Microseconds steady_now();
Microseconds processor_time(); // of this process

class SteadyClock : public Clock {
public:
    Microseconds now() override { return steady_now(); }
};

// Sleeps to the end; what the system wakes it late is lost.
class SleepingClock : public SteadyClock {
public:
    void idle(Microseconds at_most) override;
};

// Never sleeps: as exact as it gets, at the price of a core.
class SpinningClock : public SteadyClock {
public:
    void idle(Microseconds at_most) override;
};

} // namespace tessit::bench
