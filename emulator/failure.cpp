// SPDX-License-Identifier: MIT
#include "emulator/failure.h"

#include <algorithm>
#include <array>

namespace tessit::emulator {

namespace {

constexpr std::array<std::string_view, 28> names = {
    "none",
    "handshake_silent",
    "handshake_split",
    "handshake_late",
    "handshake_wrong_first",
    "handshake_wrong_second",
    "handshake_stale_bytes",
    "handshake_hang_up",
    "address_ack_lost",
    "address_ack_late",
    "address_ack_too_late",
    "address_ack_wrong",
    "address_stray_bytes",
    "address_hang_up",
    "data_ack_lost",
    "data_ack_late",
    "data_ack_too_late",
    "data_ack_wrong",
    "data_stray_bytes",
    "data_hang_up",
    "between_levels_hang_up",
    "sending_silent",
    "sending_extra_calls",
    "sending_byte_lost",
    "sending_byte_doubled",
    "sending_byte_flipped",
    "sending_stops",
    "sending_hang_up",
};
static_assert(names.size() == static_cast<std::size_t>(FailureMode::sending_hang_up) + 1);

} // namespace

FailurePlace place(FailureMode mode) {
    if (mode == FailureMode::sending_extra_calls) {
        return FailurePlace::calls;
    }
    return mode < FailureMode::sending_silent ? FailurePlace::level : FailurePlace::offset;
}

std::string_view name(FailureMode mode) {
    return names[static_cast<std::size_t>(mode)];
}

std::optional<FailureMode> failure_mode(std::string_view name) {
    const auto found = std::find(names.begin(), names.end(), name);
    return found == names.end() ? std::nullopt : std::optional(static_cast<FailureMode>(found - names.begin()));
}

std::vector<std::string_view> failure_names() {
    return {names.begin(), names.end()};
}

} // namespace tessit::emulator
