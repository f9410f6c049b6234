// SPDX-License-Identifier: MIT
// What the generator's dialogues share: memory, the bytes on their way out, the failure to play, the violations, and
// whether the line is there at all. The dialogues themselves are elsewhere (loading.h).
#pragma once

#include "emulator/failure.h"
#include "emulator/level_rules.h"

#include <deque>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace tessit::emulator {

// 40 banks of 50 levels of 16 bytes; all 255 until loaded.
class Memory {
public:
    Memory() { bytes_.fill(unset); }

    // Bank 1 to 40, level 1 to 50; anything else raises std::out_of_range.
    LevelBytes level(int bank, int level) const;
    void store(int address, const LevelBytes& bytes); // the address of a level

private:
    std::array<Byte, bank_count * bank_size> bytes_;
};

// Bytes that the generator sends, each due at its time; what is due and not yet taken waits in the line.
class Outgoing {
public:
    void send(std::span<const Byte> bytes, Microseconds due);
    void send(Byte byte, Microseconds due) { send({&byte, 1}, due); }
    std::vector<Byte> take(Microseconds now, std::size_t at_most);
    std::optional<Microseconds> next_due() const;
    bool on_its_way(Microseconds now) const { return !waiting_.empty() && waiting_.back().due > now; }
    void clear() { waiting_.clear(); }

private:
    struct Item {
        Microseconds due;
        Byte byte;
    };
    std::deque<Item> waiting_; // by due time, then in the order of sending
};

// The failure that was asked for and how often it is still to be played.
class FailurePlan {
public:
    void set(const Failure& failure);
    const Failure& failure() const { return failure_; }

    bool plays(FailureMode mode); // true: it is played now, and counted
    bool plays(FailureMode mode, int at_level);

private:
    Failure failure_;
    bool done_ = true;
};

// A breach of the dialogue by the program.
struct Violation {
    Microseconds at = 0;
    int level = 0; // 0 outside a load's levels
    std::string expected;
    std::string came;
};

std::string to_text(const Violation& violation); // one line

struct Device {
    Memory memory;
    Outgoing line;
    FailurePlan failures;
    std::vector<Violation> violations;
    std::optional<AfterHangUp> hung_up;

    void hang_up(AfterHangUp after) {
        hung_up = after;
        line.clear();
    }
};

} // namespace tessit::emulator
