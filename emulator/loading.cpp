// SPDX-License-Identifier: MIT
#include "emulator/loading.h"

#include <limits>

namespace tessit::emulator {

namespace {

constexpr Microseconds never = std::numeric_limits<Microseconds>::max();
constexpr std::array<Byte, 3> stray_bytes = {0, 255, 21};
constexpr Byte wrong_acknowledge = 21;

// Calls that were sent before the answer could be seen are no fault, nor are some more while stale bytes hide it. As
// many as this mean that it was lost.
constexpr int calls_until_answered_again = 10;

std::string address_text(int address) {
    return "address " + std::to_string(address) + " (" + std::to_string(address / 256) + ", " +
           std::to_string(address % 256) + ")";
}

} // namespace

const LoadingDialogue::AcknowledgeFailures LoadingDialogue::address_failures = {
    .lost = FailureMode::address_ack_lost,
    .late = FailureMode::address_ack_late,
    .too_late = FailureMode::address_ack_too_late,
    .wrong = FailureMode::address_ack_wrong,
    .stray = FailureMode::address_stray_bytes,
    .hang_up = FailureMode::address_hang_up,
};
const LoadingDialogue::AcknowledgeFailures LoadingDialogue::data_failures = {
    .lost = FailureMode::data_ack_lost,
    .late = FailureMode::data_ack_late,
    .too_late = FailureMode::data_ack_too_late,
    .wrong = FailureMode::data_ack_wrong,
    .stray = FailureMode::data_stray_bytes,
    .hang_up = FailureMode::none, // played on the seventh byte
};

void LoadingDialogue::enter_receive_mode() {
    leave();
    unheard_calls_ = 0;
    phase_ = Phase::ready;
}

void LoadingDialogue::break_off() {
    leave();
}

void LoadingDialogue::receive(Byte byte, Arrival arrival) {
    pass_time(arrival.earliest);
    check_pace(byte, arrival);
    last_byte_ = arrival.latest;
    if (begins_anew(byte)) {
        if (!excused_) {
            violation(arrival.latest, "the rest of the load", "a new call");
        }
        enter_receive_mode();
    }
    switch (phase_) {
    case Phase::asleep:
    case Phase::ready:
        return idle_byte(byte, arrival.latest);
    case Phase::address_high:
        return address_high(byte, arrival);
    case Phase::address_low:
        return address_low(byte, arrival.latest);
    case Phase::record:
        return record_byte(byte, arrival.latest);
    }
}

void LoadingDialogue::pass_time(Microseconds quiet_until) {
    if (!loading() || quiet_until - last_byte_ < silence_limit) {
        return;
    }
    if (!excused_) {
        violation(quiet_until, "the rest of the load", "nothing");
    }
    leave();
}

std::optional<Microseconds> LoadingDialogue::gives_up_at() const {
    return loading() ? std::optional(last_byte_ + silence_limit) : std::nullopt;
}

void LoadingDialogue::excuse() {
    excused_ = true;
    acknowledge_failed_ = true;
}

void LoadingDialogue::idle_byte(Byte byte, Microseconds at) {
    if (byte != call_byte) {
        if (!stray_reported_) {
            violation(at, "a call, " + byte_text(call_byte), byte_text(byte));
        }
        stray_reported_ = true; // the rest of such a run tells nothing new
        return;
    }
    stray_reported_ = false;
    if (phase_ == Phase::asleep) {
        ++unheard_calls_;
    } else {
        answer_call(at);
    }
}

void LoadingDialogue::answer_call(Microseconds at) {
    if (times_are_old_) {
        times_are_old_ = false;
        excused_ = false;
        acknowledge_failed_ = false;
        times_ = {.first_call = at, .first_address = {}, .last_acknowledge = {}};
        gaps_.clear();
    }
    unheard_calls_ = 0;
    if (plays(FailureMode::handshake_silent)) {
        return;
    }
    if (plays(FailureMode::handshake_hang_up)) {
        return hang_up();
    }
    send_answer(at);
    phase_ = Phase::address_high;
    level_ = 1;
    acknowledged_at_ = at;
    calls_since_answer_ = 0;
}

void LoadingDialogue::send_answer(Microseconds at) {
    plays(FailureMode::handshake_stale_bytes); // they are in the line already; this counts them as played
    auto answer = call_answer;
    Microseconds first = at;
    Microseconds second = at;
    if (plays(FailureMode::handshake_split)) {
        second += split_delay;
    } else if (plays(FailureMode::handshake_late)) {
        first = second = at + late_answer;
    } else if (plays(FailureMode::handshake_wrong_first)) {
        answer[0] = 85;
    } else if (plays(FailureMode::handshake_wrong_second)) {
        answer[1] = 7;
    }
    device_.line.send(answer[0], first);
    device_.line.send(answer[1], second);
}

void LoadingDialogue::called_again(Arrival arrival) {
    const bool crossed_the_answer = arrival.earliest < acknowledged_at_ || device_.line.on_its_way(arrival.latest);
    if (crossed_the_answer || ++calls_since_answer_ < calls_until_answered_again) {
        return;
    }
    if (!excused_) {
        violation(arrival.latest, "the first address", "calls although they were answered");
    }
    answer_call(arrival.latest);
}

void LoadingDialogue::address_high(Byte byte, Arrival arrival) {
    if (level_ == 1 && byte == call_byte) { // no bank begins at an address with this high byte
        return called_again(arrival);
    }
    if (level_ > 1 && device_.failures.plays(FailureMode::between_levels_hang_up, level_ - 1)) {
        return hang_up();
    }
    if (level_ == 1) {
        times_.first_address = arrival.latest;
    }
    check_acknowledged(arrival.latest);
    high_ = byte;
    phase_ = Phase::address_low;
}

void LoadingDialogue::address_low(Byte byte, Microseconds at) {
    const int address = high_ * 256 + byte;
    if (level_ == 1 && !bank_starting_at(address)) {
        violation(at, "the start of a bank", address_text(address));
        return leave();
    }
    if (level_ > 1 && address != address_) {
        violation(at, address_text(address_), address_text(address));
        return leave();
    }
    address_ = address;
    position_ = 0;
    refused_ = false;
    phase_ = Phase::record;
    send_acknowledge(address_failures, at);
}

void LoadingDialogue::record_byte(Byte byte, Microseconds at) {
    if (position_ == 0) {
        check_acknowledged(at);
    }
    if (position_ == level_size) {
        return record_complete(byte, at);
    }
    if (position_ == 6 && plays(FailureMode::data_hang_up)) {
        return hang_up();
    }
    if (position_ >= record_size && byte != unset) {
        violation(at, "padding, byte 255", byte_text(byte));
        refused_ = true;
    }
    bytes_[static_cast<std::size_t>(position_++)] = byte;
}

void LoadingDialogue::record_complete(Byte count, Microseconds at) {
    const std::span<const Byte, record_size - 1> first_eleven(bytes_.data(), record_size - 1);
    const auto demand = [&](const char* what, Byte expected, Byte came) {
        if (came != expected) {
            violation(at, what + byte_text(expected), byte_text(came));
            refused_ = true;
        }
    };
    demand("check ", check_byte(first_eleven), bytes_[record_size - 1]);
    demand("count ", count_byte(first_eleven), count);
    if (refused_) {
        return leave();
    }
    device_.memory.store(address_, bytes_);
    level_stored(at);
}

void LoadingDialogue::level_stored(Microseconds at) {
    send_acknowledge(data_failures, at);
    if (level_ == levels_per_bank) {
        times_.last_acknowledge = acknowledged_at_;
        return leave();
    }
    ++level_;
    address_ += level_size;
    phase_ = Phase::address_high;
}

void LoadingDialogue::send_acknowledge(const AcknowledgeFailures& failures, Microseconds at) {
    acknowledged_at_ = at;
    if (plays(failures.hang_up)) {
        return hang_up();
    }
    if (plays(failures.lost)) {
        acknowledged_at_ = never;
    } else if (plays(failures.wrong)) {
        acknowledged_at_ = never;
        device_.line.send(wrong_acknowledge, at);
    } else if (plays(failures.late)) {
        acknowledged_at_ += late_acknowledge;
    } else if (plays(failures.too_late)) {
        acknowledged_at_ += too_late_acknowledge;
    } else if (plays(failures.stray)) {
        device_.line.send(stray_bytes, at);
    }
    acknowledge_failed_ = acknowledge_failed_ || acknowledged_at_ - at > late_acknowledge;
    if (acknowledged_at_ != never) {
        device_.line.send(acknowledge_byte, acknowledged_at_);
    }
}

// A call in the middle of a load: the program gave that load up and tries again. Where the byte could also belong to
// the load, it is a call only after an acknowledge that failed.
bool LoadingDialogue::begins_anew(Byte byte) const {
    const bool between_levels = phase_ == Phase::address_high && level_ > 1;
    const bool before_record = phase_ == Phase::record && position_ == 0;
    return byte == call_byte && ((between_levels && (address_ / 256 != call_byte || acknowledge_failed_)) ||
                                 (before_record && acknowledge_failed_));
}

void LoadingDialogue::check_pace(Byte byte, Arrival arrival) {
    const auto gap = pacing_.arrive(arrival, level_, wait_after(byte));
    if (!gap) {
        return;
    }
    if (receiving() && !times_are_old_) {
        gaps_.push_back(*gap);
    }
    if (gap->slack < 0) {
        violation(arrival.latest, demanded(*gap), shortfall(*gap));
    }
}

void LoadingDialogue::check_acknowledged(Microseconds at) {
    if (at < acknowledged_at_) {
        violation(at, "a pause until the acknowledge", "the next byte");
    }
}

Wait LoadingDialogue::wait_after(Byte byte) const {
    switch (phase_) {
    case Phase::asleep:
    case Phase::ready:
        return byte == call_byte ? Wait::call : Wait::none;
    case Phase::address_high:
        return byte == call_byte && (level_ == 1 || begins_anew(byte)) ? Wait::call : Wait::address_high;
    case Phase::address_low:
        return Wait::none;
    case Phase::record:
        break;
    }
    if (position_ == 0) {
        return begins_anew(byte) ? Wait::call : Wait::first_byte;
    }
    if (position_ == level_size) {
        return Wait::none;
    }
    return position_ < record_size ? Wait::further_byte : Wait::padding;
}

bool LoadingDialogue::plays(FailureMode mode) {
    auto& failures = device_.failures;
    const bool played = mode < FailureMode::address_ack_lost ? failures.plays(mode) : failures.plays(mode, level_);
    excused_ = excused_ || played;
    return played;
}

void LoadingDialogue::violation(Microseconds at, std::string expected, std::string came) {
    device_.violations.push_back({.at = at, .level = level_, .expected = std::move(expected), .came = std::move(came)});
}

void LoadingDialogue::hang_up() {
    device_.hang_up(device_.failures.failure().after_hang_up);
    break_off();
}

void LoadingDialogue::leave() {
    phase_ = after_load_ == AfterLoad::stay_in_receive_mode ? Phase::ready : Phase::asleep;
    level_ = 0;
    times_are_old_ = true;
    stray_reported_ = false;
}

} // namespace tessit::emulator
