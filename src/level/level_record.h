// SPDX-License-Identifier: MIT
// One level as the generator holds it: twelve bytes, the same in a protocol file and on the serial line.
// Format: docs/file-formats.md, docs/wire-format.md.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace tessit {

inline constexpr std::size_t level_record_size = 12;
using LevelBytes = std::array<std::uint8_t, level_record_size>;

// Offsets within the twelve bytes.
namespace record_offset {
inline constexpr std::size_t fbyte2 = 0;    // frequency word, bits 23 to 16
inline constexpr std::size_t fbyte1 = 1;    // bits 15 to 8
inline constexpr std::size_t fbyte0 = 2;    // bits 7 to 0
inline constexpr std::size_t db3 = 3;       // decimal scale: 1, 2, 4, 8 for 0, 1, 2, 3 decimals
inline constexpr std::size_t timesec = 4;   // time at each frequency, seconds part
inline constexpr std::size_t timemin = 5;   // and minutes part
inline constexpr std::size_t db6 = 6;       // mode: wave, pulse, output, shape
inline constexpr std::size_t dutycycle = 7; // tens of percent, 1 to 9
inline constexpr std::size_t wpwidth = 8;   // steps of a sweep or spread; 0 for a single frequency
inline constexpr std::size_t pratehi = 9;   // pulse rate, high byte
inline constexpr std::size_t pratelo = 10;  // and low byte
inline constexpr std::size_t errorchk = 11; // makes the twelve bytes add up to 0 modulo 256
} // namespace record_offset

// Fields of the mode byte.
namespace mode {
inline constexpr std::uint8_t wave_mask = 7;
inline constexpr std::uint8_t spread_contracting = 0;
inline constexpr std::uint8_t sweep_decreasing = 2;
inline constexpr std::uint8_t spread_expanding = 4;
inline constexpr std::uint8_t single_frequency = 5;
inline constexpr std::uint8_t sweep_increasing = 6;
inline constexpr std::uint8_t pulse_off = 8;
inline constexpr std::uint8_t output_mask = 48;
inline constexpr std::uint8_t negative = 0;
inline constexpr std::uint8_t positive = 16;
inline constexpr std::uint8_t offset = 32;
inline constexpr std::uint8_t shape_mask = 192;
inline constexpr std::uint8_t square = 0;
inline constexpr std::uint8_t sine = 64;
inline constexpr std::uint8_t triangle = 128;
} // namespace mode

inline constexpr std::uint8_t unset = 255;

} // namespace tessit
