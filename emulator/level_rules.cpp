// SPDX-License-Identifier: MIT
#include "emulator/level_rules.h"

#include <algorithm>
#include <numeric>

namespace tessit::emulator {

namespace {

constexpr int padding_size = level_size - record_size;

int unset_bytes(std::span<const Byte> bytes) {
    return static_cast<int>(std::count(bytes.begin(), bytes.end(), unset));
}

} // namespace

std::optional<int> bank_starting_at(int address) {
    const bool starts = address % bank_size == 0 && address / bank_size < bank_count;
    return starts ? std::optional(address / bank_size + 1) : std::nullopt;
}

Byte check_byte(std::span<const Byte, record_size - 1> bytes) {
    if (unset_bytes(bytes) == record_size - 1) {
        return 0;
    }
    return static_cast<Byte>(256 - std::accumulate(bytes.begin(), bytes.end(), 0) % 256);
}

Byte count_byte(std::span<const Byte, record_size - 1> bytes) {
    const int counted = unset_bytes(bytes);
    return static_cast<Byte>(counted < padding_size ? padding_size : counted + padding_size);
}

} // namespace tessit::emulator
