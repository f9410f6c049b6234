// SPDX-License-Identifier: MIT
#include "qt/qt_clock.h"

#include <algorithm>
#include <cerrno>
#include <sys/prctl.h>
#include <time.h>

namespace tessit::qt {

namespace {

constexpr Microseconds million = 1'000'000;
constexpr Microseconds usual_lateness = 100;
constexpr Microseconds least_lateness = 20;
constexpr Microseconds most_lateness = 200;        // a busy machine's is beyond all bounds
constexpr Microseconds worth_housekeeping = 4'000; // shorter waits are not disturbed
constexpr Microseconds housekeeping_interval = 100'000;

Microseconds microseconds(const timespec& time) {
    return time.tv_sec * million + time.tv_nsec / 1000;
}

void wake_this_thread_on_time() { // not some fifty microseconds later, to save power
    prctl(PR_SET_TIMERSLACK, 1);
}

} // namespace

QtClock::QtClock(std::function<void()> housekeeping)
    : housekeeping_(std::move(housekeeping)), lateness_(usual_lateness) {
    wake_this_thread_on_time();
}

Microseconds QtClock::now() {
    timespec time{};
    clock_gettime(CLOCK_MONOTONIC, &time);
    return microseconds(time);
}

void QtClock::idle(Microseconds at_most) {
    const Microseconds end = now() + at_most;
    if (at_most >= worth_housekeeping) {
        keep_house();
    }
    if (end - lateness_ > now()) {
        sleep_until(end - lateness_);
    }
    while (now() < end) {
    }
}

// The lateness grows by nineteen where a sleep was later and shrinks by one where it was not: so it stays where one in
// twenty is later.
void QtClock::sleep_until(Microseconds moment) {
    const timespec target{moment / million, (moment % million) * 1000};
    while (clock_nanosleep(CLOCK_MONOTONIC, TIMER_ABSTIME, &target, nullptr) == EINTR) {
    }
    const bool later = now() - moment > lateness_;
    lateness_ = std::clamp(lateness_ + (later ? 19 : -1), least_lateness, most_lateness);
}

void QtClock::keep_house() {
    if (housekeeping_ && now() >= next_housekeeping_) {
        housekeeping_();
        next_housekeeping_ = now() + housekeeping_interval;
    }
}

} // namespace tessit::qt
