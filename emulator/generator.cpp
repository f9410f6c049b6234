// SPDX-License-Identifier: MIT
#include "emulator/generator.h"

#include <algorithm>

namespace tessit::emulator {

namespace {

constexpr std::array<Byte, 3> stale_bytes = {6, 255, 170};
constexpr Microseconds at_once = 0;

} // namespace

void Generator::receive(Byte byte, Arrival arrival) {
    if (!hung_up()) {
        loading_.receive(byte, arrival);
    }
}

std::vector<Byte> Generator::take(Microseconds now, std::size_t at_most) {
    return device_.line.take(now, at_most);
}

std::optional<Microseconds> Generator::next_event() const {
    const auto due = device_.line.next_due();
    const auto gives_up = loading_.gives_up_at();
    return due && gives_up ? std::min(due, gives_up) : due ? due : gives_up;
}

void Generator::hang_up(AfterHangUp after) {
    device_.hang_up(after);
    loading_.break_off();
}

void Generator::set_failure(const Failure& failure) {
    device_.failures.set(failure);
    if (failure.mode == FailureMode::handshake_stale_bytes) {
        device_.line.send(stale_bytes, at_once);
    }
}

} // namespace tessit::emulator
