// SPDX-License-Identifier: MIT
// How a table's columns share its width.
#pragma once

#include <string_view>
#include <vector>

namespace tessit::qt {

// `widths` is a list such as "40, ,50": points, an empty place takes an equal share of what is left. Where they don't
// fit, they give what they have to spare. No column gets less than it needs. One entry for each of `needed`; all in
// logical pixels but the points, which are `scale` pixels each.
std::vector<int> column_widths(std::string_view widths, double scale, const std::vector<int>& needed, int available);

} // namespace tessit::qt
