// SPDX-License-Identifier: MIT
#include "emulator/device.h"

#include <algorithm>
#include <stdexcept>

namespace tessit::emulator {

int Memory::address_of(int bank, int level) {
    if (bank < 1 || bank > bank_count || level < 1 || level > levels_per_bank) {
        throw std::out_of_range("no such level");
    }
    return (bank - 1) * bank_size + (level - 1) * level_size;
}

LevelBytes Memory::level(int bank, int level) const {
    LevelBytes bytes;
    std::copy_n(bytes_.begin() + address_of(bank, level), level_size, bytes.begin());
    return bytes;
}

void Memory::store(int bank, int level, const LevelBytes& bytes) {
    store(address_of(bank, level), bytes);
}

void Memory::store(int address, const LevelBytes& bytes) {
    std::copy(bytes.begin(), bytes.end(), bytes_.begin() + address);
}

void Outgoing::send(std::span<const Byte> bytes, Microseconds due) {
    const auto later = [](Microseconds time, const Item& item) { return time < item.due; };
    for (const Byte byte : bytes) {
        waiting_.insert(std::upper_bound(waiting_.begin(), waiting_.end(), due, later), {.due = due, .byte = byte});
    }
}

std::vector<Byte> Outgoing::take(Microseconds now, std::size_t at_most) {
    std::vector<Byte> bytes;
    while (bytes.size() < at_most && !waiting_.empty() && waiting_.front().due + latency_ <= now) {
        bytes.push_back(waiting_.front().byte);
        waiting_.pop_front();
    }
    return bytes;
}

std::optional<Microseconds> Outgoing::next_due() const {
    return waiting_.empty() ? std::nullopt : std::optional(waiting_.front().due + latency_);
}

void FailurePlan::set(const Failure& failure) {
    failure_ = failure;
    done_ = failure.mode == FailureMode::none;
}

bool FailurePlan::plays(FailureMode mode) {
    if (done_ || mode != failure_.mode) {
        return false;
    }
    if (failure_.times > 0 && --failure_.times == 0) {
        done_ = true;
    }
    return true;
}

bool FailurePlan::plays(FailureMode mode, int at_level) {
    return at_level == failure_.level && plays(mode);
}

bool FailurePlan::plays_at_offset(FailureMode mode, int offset) {
    return offset == failure_.offset && plays(mode);
}

std::string byte_text(int byte) {
    return "byte " + std::to_string(byte);
}

std::string to_text(const Violation& violation) {
    return std::to_string(violation.at) + " us, level " + std::to_string(violation.level) + ": expected " +
           violation.expected + ", came " + violation.came;
}

} // namespace tessit::emulator
