// SPDX-License-Identifier: MIT
// What the generator demands of the bytes of a load: constants and pure rules, described in docs/wire-format.md.
// They are stated here a second time on purpose, apart from the program's own: a constant that is wrong on one side
// of the line shows in a test.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>

namespace tessit::emulator {

using Byte = std::uint8_t;

inline constexpr int bank_count = 40;
inline constexpr int levels_per_bank = 50;
inline constexpr int level_size = 16;                          // bytes of memory: record and padding
inline constexpr int bank_size = levels_per_bank * level_size; // 800 bytes
inline constexpr int record_size = 12;                         // the last one is the check byte
inline constexpr Byte unset = 255;                             // memory that was never loaded, and the padding

inline constexpr Byte call_byte = 'V'; // "are you there"
inline constexpr std::array<Byte, 2> call_answer = {170, 6};
inline constexpr Byte acknowledge_byte = 6;

// A reading: the bank's fifty levels and the one that follows them in memory, each with its address and count byte.
inline constexpr int line_record_size = 2 + level_size + 1;
inline constexpr int records_sent = levels_per_bank + 1;
inline constexpr int bytes_sent = records_sent * line_record_size; // 969

using LevelBytes = std::array<Byte, level_size>;

// 1 to 40 when a bank begins at this address.
std::optional<int> bank_starting_at(int address);

// What the twelfth byte must be: it brings the sum of the twelve to 0 modulo 256, except that an unset level (eleven
// times 255) carries 0.
Byte check_byte(std::span<const Byte, record_size - 1> bytes);

// What the byte behind the padding must be. All 255s of the level are counted, the four of the padding among them,
// but one to three of them in the record itself do not count.
Byte count_byte(std::span<const Byte, record_size - 1> bytes);

} // namespace tessit::emulator
