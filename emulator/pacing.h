// SPDX-License-Identifier: MIT
// Judges whether the bytes of a load, or the acknowledges of a reading, came at the prescribed pace.
//
// A reader of a real line learns of a byte late, so it can't know when the byte came; what it knows is an interval:
// not before the line was last seen empty, not after the read that returned it. A wait is called too short only when
// no instants within the intervals of all bytes so far would satisfy every wait. A reader that was held up widens an
// interval and loses some sharpness, but never accuses a sender that kept its waits. Waits that are all too short add
// up against the first byte's interval, so with a reader that looks every millisecond, waits short by more than a
// sixteenth of a millisecond are caught within one level.
#pragma once

#include "platform/clock.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace tessit::emulator {

// The wait that is due after a byte, named after that byte.
enum class Wait {
    none,
    call,
    address_high,
    first_byte,
    further_byte,
    padding,
    answer,              // the reading's 170
    record_acknowledge,  // its second acknowledge of a record, and the one that ends its answer
    address_acknowledge, // its first
};

inline constexpr std::array waits = {Wait::call, Wait::address_high, Wait::first_byte, Wait::further_byte,
                                     Wait::padding};
inline constexpr std::array reading_waits = {Wait::answer, Wait::record_acknowledge, Wait::address_acknowledge};

Microseconds prescribed(Wait wait);
std::string_view name(Wait wait); // such as "further_byte"

// When a byte came, as far as it is known; both ends are the same on a simulated clock.
struct Arrival {
    Microseconds earliest = 0;
    Microseconds latest = 0;
};

struct Gap {
    Wait wait = Wait::none;
    int level = 0;             // 0 in the handshake
    Microseconds measured = 0; // between the time stamps of the two bytes
    Microseconds slack = 0;    // what was waited above the prescribed, at most; below 0 it was certainly too short
};

// What is to be remembered of a wait that was too short.
std::string demanded(const Gap& gap);
std::string shortfall(const Gap& gap);

class Pacing {
public:
    // Takes in a byte after which `next` is due, and gives the gap before it; none before the first byte, where no
    // wait was due, or when the clock stepped backwards.
    std::optional<Gap> arrive(Arrival arrival, int level, Wait next);

private:
    std::optional<Microseconds> last_; // time stamp of the byte before
    Microseconds possible_ = 0;        // the earliest instant at which it can have come if all waits were kept
    Wait due_ = Wait::none;
};

} // namespace tessit::emulator
