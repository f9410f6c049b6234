// SPDX-License-Identifier: MIT
#include "bench/clocks.h"

#include <chrono>
#include <thread>

namespace tessit::bench {

using std::chrono::microseconds;
using std::chrono::steady_clock;

Microseconds steady_now() {
    return std::chrono::duration_cast<microseconds>(steady_clock::now().time_since_epoch()).count();
}

void SleepingClock::idle(Microseconds at_most) {
    std::this_thread::sleep_until(steady_clock::now() + microseconds(at_most));
}

void SpinningClock::idle(Microseconds at_most) {
    const auto end = steady_clock::now() + microseconds(at_most);
    while (steady_clock::now() < end) {
    }
}

} // namespace tessit::bench
