// SPDX-License-Identifier: MIT
// The sender's half of a load for these tests, in literal bytes and waits: 7.83 Hz into level 1 of bank 7, all other
// levels unset. It shares no code with the program, which is tested elsewhere.
#pragma once

#include "emulator/generator.h"
#include "support/scripted_desktop.h"

#include <vector>

namespace tessit::emulator::test {

using testing::joined;
using testing::SimulatedClock;
using Bytes = std::vector<Byte>;

inline std::string violation_texts(const Generator& generator) {
    std::string texts;
    for (const Violation& violation : generator.violations()) {
        texts += (texts.empty() ? "" : "; ") + violation.expected + " / " + violation.came;
    }
    return texts;
}

struct Sent {
    Microseconds wait; // since the byte before
    Byte byte;
};

using Script = std::vector<Sent>;

// Positions in the script of a load.
inline constexpr std::size_t call_at = 0;
inline constexpr std::size_t high_at = 1;
inline constexpr std::size_t low_at = 2;
inline constexpr std::size_t record_at = 3; // byte 0 to 11 of level 1
inline constexpr std::size_t padding_at = 15;
inline constexpr std::size_t count_at = 19;
inline constexpr std::size_t next_level_at = 20; // level 2's address high

inline constexpr LevelBytes hz_7_83 = {0x00, 0x1e, 0x96, 0x08, 0x00, 0x03, 0x1d, 0x05,
                                       0x00, 0x00, 0x00, 0x1f, 0xff, 0xff, 0xff, 0xff};
inline constexpr LevelBytes unset_level = {0xff, 0xff, 0xff, 0xff, 0xff, 0xff, 0xff, 0xff,
                                           0xff, 0xff, 0xff, 0x00, 0xff, 0xff, 0xff, 0xff};
inline constexpr LevelBytes never_loaded = {0xff, 0xff, 0xff, 0xff, 0xff, 0xff, 0xff, 0xff,
                                            0xff, 0xff, 0xff, 0xff, 0xff, 0xff, 0xff, 0xff};

inline void append_level(Script& script, int address, const LevelBytes& bytes, Byte count, Microseconds wait_before) {
    script.push_back({wait_before, static_cast<Byte>(address / 256)});
    script.push_back({10'000, static_cast<Byte>(address % 256)});
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        script.push_back({i == 0 ? 0 : i == 1 ? 10'000 : 5'000, bytes[i]});
    }
    script.push_back({5'000, count});
}

inline Script load_script(int levels = 50) {
    Script script = {{0, 'V'}};
    append_level(script, 4800, hz_7_83, 4, 10'000);
    for (int level = 2; level <= levels; ++level) {
        append_level(script, 4800 + 16 * (level - 1), unset_level, 15, 0);
    }
    return script;
}

// Plays the bytes at their exact times; gives the time of the last.
inline Microseconds play(Generator& generator, const Script& script, Microseconds at = 1'000'000) {
    for (const Sent& sent : script) {
        at += sent.wait;
        generator.receive(sent.byte, at);
    }
    return at;
}

} // namespace tessit::emulator::test
