// SPDX-License-Identifier: MIT
// The five wave types as one table: encoder, decoder and the windows' lists are made from it.
#pragma once

#include "level/level_record.h"
#include "platform/text.h"

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tessit {

struct Wave {
    const char* text = "";
    std::uint8_t code = 0;   // in the mode byte
    int steps_per_width = 0; // 0: one frequency, 1: a sweep, 2: a spread

    int frequencies(int width) const { return width * steps_per_width + 1; }
};

// In the order of the editor's and the preferences' lists, which their indices mean.
inline constexpr std::array<Wave, 5> waves = {{
    {"Single Frequency", mode::single_frequency, 0},
    {"Spread Contracting", mode::spread_contracting, 2},
    {"Spread Expanding", mode::spread_expanding, 2},
    {"Sweep Increasing", mode::sweep_increasing, 1},
    {"Sweep Decreasing", mode::sweep_decreasing, 1},
}};
inline constexpr const Wave* single_frequency = waves.data();
inline constexpr int single_frequency_index = 0; // in every list

// The composer lists the two sweeps the other way round.
using WaveOrder = std::array<int, waves.size()>;
inline constexpr WaveOrder editor_wave_order = {0, 1, 2, 3, 4};
inline constexpr WaveOrder composer_wave_order = {0, 1, 2, 4, 3};

std::vector<std::string> wave_texts(const WaveOrder& order);

// By text, in either case, and by code; null for what is no wave's.
const Wave* wave_with_text(std::string_view text);
const Wave* wave_with_code(std::uint8_t code);

// "# Freqs." of an entry of a list and a width; empty for a text that is in no list (-1).
std::string frequencies_text(const WaveOrder& order, int list_index, int width);

} // namespace tessit
