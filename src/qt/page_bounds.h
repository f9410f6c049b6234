// SPDX-License-Identifier: MIT
// What an HTML page may be for the text browser to lay it out in a moment. Each nested table doubles the time, elements
// within elements and long words take it by the square, and a table is made with all cells of its widest row in every
// row.
#pragma once

#include <cstddef>
#include <string_view>

namespace tessit::qt {

inline constexpr std::size_t most_page_bytes = 100'000;
inline constexpr int most_nested_tables = 5;
inline constexpr int most_nested_elements = 50;
inline constexpr int most_table_cells = 5'000; // of all tables of the page
inline constexpr std::size_t longest_page_word = 2'000;

// Goes by the marks "<" and ">" alone: what only looks like an element counts as one.
bool is_within_bounds(std::string_view page);

} // namespace tessit::qt
