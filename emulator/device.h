// SPDX-License-Identifier: MIT
// What the generator's dialogues share: memory, the bytes on their way out, the failure to play, the violations, and
// whether the line is there at all. The dialogues themselves are elsewhere (loading.h, sending.h).
#pragma once

#include "emulator/failure.h"
#include "emulator/level_rules.h"

#include <deque>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace tessit::emulator {

// A dialogue that nobody continues for this long is given up. It is far above every wait, so that a busy machine
// never looks like a partner that stopped.
inline constexpr Microseconds silence_limit = 5'000'000;

// 40 banks of 50 levels of 16 bytes; all 255 until loaded.
class Memory {
public:
    Memory() { bytes_.fill(unset); }

    // Bank 1 to 40, level 1 to 50; anything else raises std::out_of_range.
    LevelBytes level(int bank, int level) const;
    void store(int address, const LevelBytes& bytes); // the address of a level
    void store(int bank, int level, const LevelBytes& bytes);

private:
    static int address_of(int bank, int level);

    std::array<Byte, bank_count * bank_size> bytes_;
};

// Bytes that the generator sends, each due at its time; what is due and not yet taken waits in the line. An adapter
// may hand every byte over later by a latency.
class Outgoing {
public:
    void send(std::span<const Byte> bytes, Microseconds due);
    void send(Byte byte, Microseconds due) { send({&byte, 1}, due); }
    std::vector<Byte> take(Microseconds now, std::size_t at_most);
    std::optional<Microseconds> next_due() const;
    bool on_its_way(Microseconds now) const { return !waiting_.empty() && waiting_.back().due + latency_ > now; }
    void clear() { waiting_.clear(); }
    void set_latency(Microseconds latency) { latency_ = latency; }

private:
    struct Item {
        Microseconds due;
        Byte byte;
    };
    std::deque<Item> waiting_; // by due time, then in the order of sending
    Microseconds latency_ = 0;
};

// The failure that was asked for and how often it is still to be played.
class FailurePlan {
public:
    void set(const Failure& failure);
    const Failure& failure() const { return failure_; }

    bool plays(FailureMode mode); // true: it is played now, and counted
    bool plays(FailureMode mode, int at_level);
    bool plays_at_offset(FailureMode mode, int offset);

private:
    Failure failure_;
    bool done_ = true;
};

// A breach of the dialogue by the program.
struct Violation {
    Microseconds at = 0;
    int level = 0; // of a load or a reading, 0 outside its levels
    std::string expected;
    std::string came;
};

std::string to_text(const Violation& violation); // one line
std::string byte_text(int byte);                 // for its texts

// How fast a reading's records leave the generator: as fast as the line, or each part at once.
enum class Pace { unpaced, line_speed };

struct Device {
    Memory memory;
    Outgoing line;
    FailurePlan failures;
    std::vector<Violation> violations;
    std::optional<AfterHangUp> hung_up;
    Pace pace = Pace::unpaced;

    void hang_up(AfterHangUp after) {
        hung_up = after;
        line.clear();
    }
};

} // namespace tessit::emulator
