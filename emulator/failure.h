// SPDX-License-Identifier: MIT
// The ways in which the emulated generator can fail, so that the program's answers to them can be seen and tested.
#pragma once

#include "platform/clock.h"

#include <optional>
#include <string_view>
#include <vector>

namespace tessit::emulator {

// Step of the dialogue, then what goes wrong there. "The level" is Failure::level. The sending ones count an offset in
// the 969 bytes that a reading gets, from 0.
enum class FailureMode {
    none,                   // Everything works.
    handshake_silent,       // A call "V" gets no answer.
    handshake_split,        // 170 comes at once, the 6 only 15 ms later: between two of the program's reads.
    handshake_late,         // The whole answer comes 25 ms after the call.
    handshake_wrong_first,  // The answer is 85, 6.
    handshake_wrong_second, // The answer is 170, 7.
    handshake_stale_bytes,  // 6, 255, 170 wait in the line before the first call, left from before.
    handshake_hang_up,      // The line hangs up on a call.
    address_ack_lost,       // The level's address is taken but never acknowledged.
    address_ack_late,       // It is acknowledged after 40 ms, while the program still asks.
    address_ack_too_late,   // It is acknowledged after 1 s, when the program has given up.
    address_ack_wrong,      // It is answered with 21 in place of 6.
    address_stray_bytes,    // 0, 255, 21 come before the acknowledge.
    address_hang_up,        // The line hangs up instead of acknowledging.
    data_ack_lost,          // The level is stored but never acknowledged.
    data_ack_late,          // It is acknowledged after 40 ms.
    data_ack_too_late,      // It is acknowledged after 1 s.
    data_ack_wrong,         // It is answered with 21 in place of 6; the level is stored.
    data_stray_bytes,       // 0, 255, 21 come before the acknowledge.
    data_hang_up,           // The line hangs up on the level's seventh byte.
    between_levels_hang_up, // The line hangs up on the first byte that follows the acknowledged level.
    sending_silent,         // No call "V" comes in spite of the keys.
    sending_extra_calls,    // Failure::offset more calls come between the answer and the first record.
    sending_byte_lost,      // The byte at the offset does not arrive.
    sending_byte_doubled,   // It arrives twice.
    sending_byte_flipped,   // All its bits are inverted.
    sending_stops,          // It and all after it are not sent.
    sending_hang_up,        // The line hangs up in its place.
};

inline constexpr Microseconds split_delay = 15'000;
inline constexpr Microseconds late_answer = 25'000;
inline constexpr Microseconds late_acknowledge = 40'000;
inline constexpr Microseconds too_late_acknowledge = 1'000'000;

// What the line does after it hung up.
enum class AfterHangUp { can_be_opened_again, stays_away };

struct Failure {
    FailureMode mode = FailureMode::none;
    int level = 1;  // 1 to 50; the failures of the handshake and of the sending ignore it
    int offset = 0; // 0 to 968; the sending ones alone use it
    int times = 0;  // plays that often, then all is well again; 0: every time
    AfterHangUp after_hang_up = AfterHangUp::can_be_opened_again;
};

// What the number behind a mode's name counts.
enum class FailurePlace { level, offset, calls };

FailurePlace place(FailureMode mode);
std::string_view name(FailureMode mode); // as in the enumeration
std::optional<FailureMode> failure_mode(std::string_view name);
std::vector<std::string_view> failure_names();

} // namespace tessit::emulator
