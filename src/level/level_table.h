// SPDX-License-Identifier: MIT
// The level table that editor, composer and read window share: twelve text columns, an empty row 0, and level n in
// row n, so a full table has 51 rows.
#pragma once

#include "platform/listbox.h"
#include "platform/text.h"

#include <array>
#include <string>

namespace tessit {

namespace column {
inline constexpr int level = 0;
inline constexpr int waveform = 1;
inline constexpr int base = 2;
inline constexpr int width = 3;
inline constexpr int frequencies = 4;
inline constexpr int time_each = 5;
inline constexpr int total_time = 6;
inline constexpr int pulse = 7;
inline constexpr int rate = 8;
inline constexpr int wave_shape = 9;
inline constexpr int duty_cycle = 10;
inline constexpr int output = 11;
inline constexpr int count = 12;
} // namespace column

inline constexpr int most_levels = 50;

inline constexpr const char* level_table_headings =
    "Level\tWaveform\tBase\tWidth\t# Freqs.\tTime each\tTotal Time\tPulse\tRate\tWaveShape\tDuty Cycle\tOutput";

// On the screen, in points; the two empty places let Waveform and Base share what is left over.
inline constexpr const char* level_table_widths = "40, , ,50 ,60 ,70 ,70 ,40 ,50 ,80 ,70 ,70 , ";

// On the printed page, in points.
inline constexpr const char* report_column_widths = "30,90 ,40 ,30 ,40 ,50 ,50 ,25 ,25 ,55 ,50 ,50 , ";
inline constexpr std::array<const char*, column::count> report_column_alignments = {
    "Center", "Left", "Right", "Center", "Center", "Right", "Right", "Center", "Center", "Left", "Center", "Left"};

using LevelCells = std::array<std::string, column::count>;

inline LevelCells cells_of(const Listbox& table, int row) {
    LevelCells cells;
    for (int i = 0; i < column::count; ++i) {
        cells[static_cast<std::size_t>(i)] = table.Cell(row, i);
    }
    return cells;
}

// Row 0, headings and screen widths.
inline void set_up_level_table(Listbox& table) {
    table.AddRow("");
    table.SetHeadings(level_table_headings);
    table.SetColumnWidths(level_table_widths);
}

inline void align_level_table(Listbox& table) {
    for (const int right : {column::base, column::time_each, column::total_time}) {
        table.SetColumnAlignment(right, Align::right);
    }
    for (const int center : {column::width, column::frequencies, column::pulse, column::rate, column::duty_cycle}) {
        table.SetColumnAlignment(center, Align::center);
    }
}

inline void renumber_levels(Listbox& table) {
    for (int row = 1; row < table.ListCount(); ++row) {
        table.SetCell(row, column::level, Str(row));
    }
}

// Column 2 of every row with the decimal mark exchanged; no other column knows the setting.
inline void exchange_base_marks(Listbox& table, std::string_view from, std::string_view to) {
    for (int row = 0; row <= table.LastIndex(); ++row) {
        table.SetCell(row, column::base, ReplaceAll(table.Cell(row, column::base), from, to));
    }
}

} // namespace tessit
