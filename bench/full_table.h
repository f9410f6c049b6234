// SPDX-License-Identifier: MIT
// A full table of fifty levels as the editor shows it: every wave, shape and output, one to six digits. Needs nothing
// of the program, so that the bare window can show the same texts.
#pragma once

#include <array>
#include <string>
#include <vector>

namespace tessit::bench {

using Row = std::array<std::string, 12>; // in the order of the table's columns

inline constexpr std::array headings = {"Level",      "Waveform", "Base", "Width",     "# Freqs.",   "Time each",
                                        "Total Time", "Pulse",    "Rate", "WaveShape", "Duty Cycle", "Output"};

inline std::string minutes_and_seconds(int seconds) {
    const std::string rest = std::to_string(seconds % 60);
    return std::to_string(seconds / 60) + (rest.size() < 2 ? ":0" : ":") + rest;
}

inline Row table_row(int level) {
    static const std::array waves = {"Single Frequency", "Spread Contracting", "Spread Expanding", "Sweep Increasing",
                                     "Sweep Decreasing"};
    static const std::array bases = {"7.83",   "20.5", "432",     "1234.5", "9.6", "123.456",
                                     "1234.5", "5000", "12345.6", "123456", "0.5"};
    static const std::array shapes = {"Square", "Sine", "Triangle"};
    static const std::array outputs = {"Positive", "Negative", "Offset"};
    const auto pick = [level](const auto& from) { return from[static_cast<std::size_t>(level) % from.size()]; };
    const int wave = level % 5;
    const int width = wave == 0 ? 0 : 1 + level % 9;
    const int frequencies = wave == 0 ? 1 : wave < 3 ? 2 * width + 1 : width + 1;
    const int seconds = 60 + level;
    return {std::to_string(level),
            pick(waves),
            pick(bases),
            wave == 0 ? "" : std::to_string(width),
            std::to_string(frequencies),
            minutes_and_seconds(seconds),
            "0:" + minutes_and_seconds(seconds * frequencies),
            level % 2 == 0 ? "ON" : "OFF",
            std::to_string(1 + level * 7),
            pick(shapes),
            std::to_string(10 * (1 + level % 9)) + "%",
            pick(outputs)};
}

// Row 0 is empty, as in the editor: 51 rows.
inline std::vector<Row> full_table() {
    std::vector<Row> rows(1);
    for (int level = 1; level <= 50; ++level) {
        rows.push_back(table_row(level));
    }
    return rows;
}

} // namespace tessit::bench
