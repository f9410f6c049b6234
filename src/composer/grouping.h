// SPDX-License-Identifier: MIT
// Finds frequencies that lie close together, so that one spread or sweep can cover them. A run is measured from its
// first member: a chain of near neighbours does not stretch it.
#pragma once

#include "platform/array.h"
#include "platform/control.h"
#include "platform/text.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tessit {

inline constexpr double run_span = 18.0; // Hz; a distance of exactly this begins a new run
inline constexpr Color run_color{0xFF6600};
inline constexpr Color lone_color{0x000000};

double distance_between(double a, double b); // never negative

struct RunSummary {
    std::int32_t width = 1; // half of the distance between the outermost members, at least 1
    double center = 0;      // the lowest member and the width

    bool operator==(const RunSummary&) const = default;
};

// One row of the composer's frequency list.
struct PrimeRow {
    double frequency = 0;
    Color color = lone_color;
    std::optional<RunSummary> run; // on a run's last row

    bool operator==(const PrimeRow&) const = default;
};

// Rows in the list's order; zeros are dropped. `numbers` holds `count` frequencies and a 0 behind them, which is in no
// run. Fault out_of_bounds when it is no 0.
std::vector<PrimeRow> group_frequencies(const Array<double>& numbers, std::int32_t count);

// Texts of the list: always with a decimal mark, so 528 is "528.". A centre keeps its point in the comma notation too
// and gets a comma behind it: "123.5,".
std::string prime_text(double frequency, DecimalMark mark);
std::string center_text(double center, DecimalMark mark);

} // namespace tessit
