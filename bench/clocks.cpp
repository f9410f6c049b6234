// SPDX-License-Identifier: MIT
#include "bench/clocks.h"

#include <chrono>
#include <sys/resource.h>
#include <thread>

namespace tessit::bench {

using std::chrono::microseconds;
using std::chrono::steady_clock;

Microseconds steady_now() {
    return std::chrono::duration_cast<microseconds>(steady_clock::now().time_since_epoch()).count();
}

Microseconds processor_time() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return (usage.ru_utime.tv_sec + usage.ru_stime.tv_sec) * 1'000'000 + usage.ru_utime.tv_usec +
           usage.ru_stime.tv_usec;
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
