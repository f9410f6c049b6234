// SPDX-License-Identifier: MIT
// The steady clock in microseconds. Waiting costs little: it sleeps until shortly before the end and spins the rest.
#pragma once

#include "platform/clock.h"

#include <functional>

namespace tessit::qt {

class QtClock : public Clock {
public:
    // `housekeeping` runs about ten times a second at the beginning of longer waits; null for none.
    explicit QtClock(std::function<void()> housekeeping = {});

    Microseconds now() override;
    void idle(Microseconds at_most) override;

private:
    void keep_house();

    const std::function<void()> housekeeping_;
    Microseconds next_housekeeping_ = 0;
};

} // namespace tessit::qt
