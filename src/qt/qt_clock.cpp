// SPDX-License-Identifier: MIT
#include "qt/qt_clock.h"

#include <cerrno>
#include <sys/prctl.h>
#include <time.h>

namespace tessit::qt {

namespace {

constexpr Microseconds million = 1'000'000;
constexpr Microseconds spin = 200;                 // what a sleep may be late
constexpr Microseconds worth_housekeeping = 4'000; // shorter waits are not disturbed
constexpr Microseconds housekeeping_interval = 100'000;

Microseconds microseconds(const timespec& time) {
    return time.tv_sec * million + time.tv_nsec / 1000;
}

void wake_this_thread_on_time() { // not some fifty microseconds later, to save power
    prctl(PR_SET_TIMERSLACK, 1);
}

void sleep_until(Microseconds moment) {
    const timespec target{moment / million, (moment % million) * 1000};
    while (clock_nanosleep(CLOCK_MONOTONIC, TIMER_ABSTIME, &target, nullptr) == EINTR) {
    }
}

} // namespace

QtClock::QtClock(std::function<void()> housekeeping) : housekeeping_(std::move(housekeeping)) {
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
    if (end - spin > now()) {
        sleep_until(end - spin);
    }
    while (now() < end) {
    }
}

void QtClock::keep_house() {
    if (housekeeping_ && now() >= next_housekeeping_) {
        housekeeping_();
        next_housekeeping_ = now() + housekeeping_interval;
    }
}

} // namespace tessit::qt
