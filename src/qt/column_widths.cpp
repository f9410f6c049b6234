// SPDX-License-Identifier: MIT
#include "qt/column_widths.h"

#include "platform/text.h"
#include "qt/look.h"

#include <algorithm>
#include <charconv>
#include <numeric>

namespace tessit::qt {

namespace {

// 0 where the place is empty, missing or no number.
int designed_width(const Array<std::string>& places, std::size_t column) {
    int width = 0;
    if (static_cast<int>(column) < places.count()) {
        const std::string& place = places[static_cast<int>(column)];
        const auto first = std::min(place.find_first_not_of(' '), place.size());
        std::from_chars(place.data() + first, place.data() + place.size(), width);
    }
    return std::max(0, width);
}

// Takes `excess` from the columns that are wider than they need, in the measure of what they have to spare.
void give_way(std::vector<int>& widths, const std::vector<int>& needed, int excess) {
    int spare = std::accumulate(widths.begin(), widths.end(), 0) - std::accumulate(needed.begin(), needed.end(), 0);
    excess = std::min(excess, spare);
    for (std::size_t column = 0; column < widths.size() && excess > 0; ++column) {
        const int own = widths[column] - needed[column];
        const int given = spare == 0 ? 0 : (own * excess + spare - 1) / spare;
        widths[column] -= given;
        excess -= given;
        spare -= own;
    }
}

} // namespace

std::vector<int> column_widths(std::string_view widths, double scale, const std::vector<int>& needed, int available) {
    const Array<std::string> places = Split(widths, ",");
    std::vector<int> result = needed;
    std::vector<std::size_t> sharing;
    for (std::size_t column = 0; column < needed.size(); ++column) {
        const int designed = scaled(designed_width(places, column), scale);
        result[column] = std::max(needed[column], designed);
        if (designed == 0) {
            sharing.push_back(column);
        }
    }
    // The widest need first: where it takes more than its share, the others share the rest.
    std::stable_sort(sharing.begin(), sharing.end(), [&](auto a, auto b) { return needed[a] > needed[b]; });
    int left = available - std::accumulate(result.begin(), result.end(), 0);
    for (const std::size_t column : sharing) {
        left += needed[column];
    }
    int sharers = static_cast<int>(sharing.size());
    for (const std::size_t column : sharing) {
        result[column] = std::max(needed[column], (left + sharers - 1) / sharers);
        left -= result[column];
        --sharers;
    }
    give_way(result, needed, std::accumulate(result.begin(), result.end(), 0) - available);
    return result;
}

} // namespace tessit::qt
