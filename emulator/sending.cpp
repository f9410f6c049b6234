// SPDX-License-Identifier: MIT
#include "emulator/sending.h"

#include <algorithm>

namespace tessit::emulator {

namespace {

// A record leaves in two parts, so that its address can be acknowledged before its data: part 2r holds the address of
// record r, counted from 0, and part 2r + 1 the rest.
constexpr int address_size = 2;
constexpr int parts = 2 * records_sent;

int part_begin(int part) {
    return part / 2 * line_record_size + (part % 2 == 0 ? 0 : address_size);
}

} // namespace

std::vector<Byte> bytes_of_reading(const Memory& memory, int bank) {
    std::vector<Byte> bytes;
    for (int i = 0; i < records_sent; ++i) {
        const int address = (bank - 1) * bank_size + i * level_size;
        LevelBytes level;
        level.fill(unset);
        if (address < bank_count * bank_size) {
            level = memory.level(address / bank_size + 1, address % bank_size / level_size + 1);
        }
        bytes.push_back(static_cast<Byte>(address / 256));
        bytes.push_back(static_cast<Byte>(address % 256));
        bytes.insert(bytes.end(), level.begin(), level.end());
        bytes.push_back(count_byte(std::span<const Byte, record_size - 1>(level.data(), record_size - 1)));
    }
    return bytes;
}

void SendingDialogue::start_calling(int bank) {
    interrupted_ = phase_ == Phase::answered || phase_ == Phase::sending;
    bytes_ = bytes_of_reading(device_.memory, bank);
    phase_ = Phase::calling;
    next_call_.reset();
    hang_up_at_.reset();
}

void SendingDialogue::break_off() {
    phase_ = Phase::asleep;
    hang_up_at_.reset();
}

void SendingDialogue::receive(Byte byte, Arrival arrival) {
    pass_time(arrival.earliest);
    check_pace(byte, arrival);
    last_byte_ = arrival.latest;
    switch (phase_) {
    case Phase::asleep:
        return;
    case Phase::calling:
        return receive_answer(byte, arrival.latest);
    case Phase::answered:
        return receive_first_acknowledge(byte, arrival.latest);
    case Phase::sending:
        return receive_acknowledge(byte, arrival.latest);
    }
}

void SendingDialogue::pass_time(Microseconds quiet_until) {
    if (phase_ == Phase::calling) {
        return call_until(quiet_until);
    }
    if (hang_up_at_ && *hang_up_at_ <= quiet_until) {
        device_.hang_up(device_.failures.failure().after_hang_up);
        return break_off();
    }
    if (active() && quiet_until - last_byte_ >= silence_limit) {
        violation(quiet_until, "the rest of the acknowledges", "nothing");
        break_off();
    }
}

std::optional<Microseconds> SendingDialogue::next_event() const {
    if (phase_ == Phase::asleep) {
        return std::nullopt;
    }
    if (phase_ == Phase::calling) {
        return next_call_.value_or(0);
    }
    return std::min(last_byte_ + silence_limit, hang_up_at_.value_or(last_byte_ + silence_limit));
}

void SendingDialogue::call_until(Microseconds now) {
    for (next_call_ = next_call_.value_or(now); *next_call_ <= now; *next_call_ += call_interval) {
        if (!device_.failures.plays(FailureMode::sending_silent)) {
            device_.line.send(call_byte, *next_call_);
        }
    }
}

// A load's call is the user's mistake, not the program's; the keys say what the generator does.
void SendingDialogue::receive_answer(Byte byte, Microseconds at) {
    if (byte == call_answer[0]) {
        phase_ = Phase::answered;
        acknowledges_ = 0;
        stopped_ = false;
        line_free_ = at;
        const int extra_calls = device_.failures.failure().offset;
        if (device_.failures.plays(FailureMode::sending_extra_calls)) {
            for (int i = 0; i < extra_calls; ++i) {
                transmit(call_byte);
            }
        }
    } else if (byte != call_byte && !(interrupted_ && byte == acknowledge_byte)) {
        violation(at, "an answer, " + byte_text(call_answer[0]), byte_text(byte));
    }
}

void SendingDialogue::receive_first_acknowledge(Byte byte, Microseconds at) {
    if (byte != call_answer[1]) {
        violation(at, "the answer's " + byte_text(call_answer[1]), byte_text(byte));
        phase_ = Phase::calling;
        next_call_ = at + call_interval;
        return;
    }
    phase_ = Phase::sending;
    send_part(0, at);
}

// An acknowledge may come while the part before is still leaving; it counts all the same.
void SendingDialogue::receive_acknowledge(Byte byte, Microseconds at) {
    if (byte != acknowledge_byte) {
        violation(at, "an acknowledge, " + byte_text(acknowledge_byte), byte_text(byte));
        return break_off();
    }
    ++acknowledges_;
    if (acknowledges_ < parts) {
        send_part(acknowledges_, at);
    } else if (acknowledges_ == acknowledges_expected) {
        break_off();
    }
}

void SendingDialogue::send_part(int part, Microseconds at) {
    line_free_ = std::max(line_free_, at);
    for (int offset = part_begin(part); offset < part_begin(part + 1); ++offset) {
        send_byte(offset);
    }
}

void SendingDialogue::send_byte(int offset) {
    const auto plays = [&](FailureMode mode) { return !stopped_ && device_.failures.plays_at_offset(mode, offset); };
    if (plays(FailureMode::sending_hang_up)) {
        hang_up_at_ = line_free_;
        stopped_ = true;
    }
    stopped_ = stopped_ || plays(FailureMode::sending_stops);
    if (stopped_ || plays(FailureMode::sending_byte_lost)) {
        return;
    }
    const Byte byte = bytes_[static_cast<std::size_t>(offset)];
    transmit(plays(FailureMode::sending_byte_flipped) ? static_cast<Byte>(~byte) : byte);
    if (plays(FailureMode::sending_byte_doubled)) {
        transmit(byte);
    }
}

void SendingDialogue::transmit(Byte byte) {
    line_free_ += device_.pace == Pace::line_speed ? byte_time : 0;
    device_.line.send(byte, line_free_);
}

void SendingDialogue::check_pace(Byte byte, Arrival arrival) {
    if (phase_ == Phase::calling && byte == call_answer[0]) {
        pacing_ = {};
        gaps_.clear();
    }
    const auto gap = pacing_.arrive(arrival, record(), wait_after(byte));
    if (!gap || phase_ == Phase::calling) {
        return;
    }
    gaps_.push_back(*gap);
    if (gap->slack < 0) {
        violation(arrival.latest, demanded(*gap), shortfall(*gap));
    }
}

Wait SendingDialogue::wait_after(Byte byte) const {
    switch (phase_) {
    case Phase::calling:
        return byte == call_answer[0] ? Wait::answer : Wait::none;
    case Phase::answered:
        return Wait::record_acknowledge;
    case Phase::sending:
        return acknowledges_ % 2 == 0 ? Wait::address_acknowledge : Wait::record_acknowledge;
    case Phase::asleep:
        break;
    }
    return Wait::none;
}

void SendingDialogue::violation(Microseconds at, std::string expected, std::string came) {
    device_.violations.push_back(
        {.at = at, .level = record(), .expected = std::move(expected), .came = std::move(came)});
}

} // namespace tessit::emulator
