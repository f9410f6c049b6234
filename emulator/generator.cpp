// SPDX-License-Identifier: MIT
#include "emulator/generator.h"

#include "emulator/example_bank.h"

#include <algorithm>

namespace tessit::emulator {

namespace {

constexpr std::array<Byte, 3> stale_bytes = {6, 255, 170};
constexpr Microseconds at_once = 0;

} // namespace

void Generator::press_receive() {
    sending_.break_off();
    loading_.enter_receive_mode();
}

void Generator::press_send(int bank) {
    loading_.break_off();
    sending_.start_calling(bank);
}

void Generator::receive(Byte byte, Arrival arrival) {
    if (hung_up()) {
        return;
    }
    if (sending()) {
        sending_.receive(byte, arrival);
    } else {
        loading_.receive(byte, arrival);
    }
}

void Generator::pass_time(Microseconds quiet_until) {
    if (!hung_up()) {
        sending_.pass_time(quiet_until);
        loading_.pass_time(quiet_until);
    }
}

std::vector<Byte> Generator::take(Microseconds now, std::size_t at_most) {
    return device_.line.take(now, at_most);
}

std::optional<Microseconds> Generator::next_event() const {
    std::optional<Microseconds> next;
    for (const auto event : {device_.line.next_due(), loading_.gives_up_at(), sending_.next_event()}) {
        if (event) {
            next = std::min(next.value_or(*event), *event);
        }
    }
    return next;
}

void Generator::hang_up(AfterHangUp after) {
    device_.hang_up(after);
    loading_.break_off();
    sending_.break_off();
}

void Generator::fill_with_example(int bank) {
    const auto levels = example_bank();
    for (int level = 1; level <= levels_per_bank; ++level) {
        store(bank, level, levels[static_cast<std::size_t>(level - 1)]);
    }
}

void Generator::set_failure(const Failure& failure) {
    device_.failures.set(failure);
    if (failure.mode == FailureMode::handshake_stale_bytes) {
        device_.line.send(stale_bytes, at_once);
    }
}

} // namespace tessit::emulator
