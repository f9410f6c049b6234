// SPDX-License-Identifier: MIT
// Sorting and removal as the rules tell them, element by element: the reference of the tests, and of the measurements.
#pragma once

#include "consolidator/frequency_list.h"

#include <array>
#include <cstddef>
#include <string>
#include <utility>
#include <vector>

namespace tessit::testing {

inline void sort_by_loops(std::vector<double>& a, SortOrder order) {
    const int n = static_cast<int>(a.size()) - 1;
    for (int k = 1; k <= n; ++k) {
        for (int g = 0; g <= n - 1; ++g) {
            for (int i = n; i >= g; --i) {
                auto& one = a[static_cast<std::size_t>(i)];
                auto& other = a[static_cast<std::size_t>(i - g)];
                if (order == SortOrder::increasing ? one < other : other < one) {
                    std::swap(one, other);
                }
            }
        }
    }
}

struct LoopResult {
    std::vector<double> numbers;
    int count;
    std::string report;
};

inline LoopResult remove_by_loops(std::vector<double> a) {
    const auto n = a.size() - 1;
    std::vector<std::array<float, 2>> table(n + 1);
    int removed = 0;
    for (std::size_t b = 0; b < n; ++b) {
        for (std::size_t p = 1; p <= n; ++p) {
            for (std::size_t j = b; j < n; ++j) {
                if (a[j] != 0.0 && a[j + 1] == a[b]) {
                    table[p] = {static_cast<float>(a[j]), table[p][1] + 1};
                    a.erase(a.begin() + static_cast<std::ptrdiff_t>(b));
                    a.push_back(0);
                    ++removed;
                }
            }
        }
    }
    LoopResult result{.numbers = a, .count = static_cast<int>(n) - removed, .report = ""};
    for (std::size_t r = 0; r <= n - static_cast<std::size_t>(removed); ++r) {
        if (table[r][0] != 0) {
            result.report +=
                "\r" + Str(table[r][1]) + " duplicates of frequency " + Str(table[r][0]) + "Hz  were removed";
        }
    }
    return result;
}

} // namespace tessit::testing
