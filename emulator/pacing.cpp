// SPDX-License-Identifier: MIT
#include "emulator/pacing.h"

#include <algorithm>
#include <utility>

namespace tessit::emulator {

namespace {

struct WaitFacts {
    std::string_view name;
    Microseconds prescribed;
};

constexpr std::array<WaitFacts, 9> facts = {{{"none", 0},
                                             {"call", 10'000},
                                             {"address_high", 10'000},
                                             {"first_byte", 10'000},
                                             {"further_byte", 5'000},
                                             {"padding", 5'000},
                                             {"answer", 5'000},
                                             {"record_acknowledge", 12'000},
                                             {"address_acknowledge", 10}}};

const WaitFacts& facts_of(Wait wait) {
    return facts[static_cast<std::size_t>(wait)];
}

} // namespace

Microseconds prescribed(Wait wait) {
    return facts_of(wait).prescribed;
}

std::string_view name(Wait wait) {
    return facts_of(wait).name;
}

std::string demanded(const Gap& gap) {
    return "a wait of " + std::to_string(prescribed(gap.wait)) + " us after " + std::string(name(gap.wait));
}

std::string shortfall(const Gap& gap) {
    return "the next byte " + std::to_string(-gap.slack) + " us too early";
}

std::optional<Gap> Pacing::arrive(Arrival arrival, int level, Wait next) {
    const Wait due = std::exchange(due_, next);
    const auto before = std::exchange(last_, arrival.latest);
    if (!before || arrival.latest < *before) {
        possible_ = arrival.earliest;
        return std::nullopt;
    }
    const Microseconds permitted = possible_ + prescribed(due);
    const Gap gap = {.wait = due,
                     .level = due == Wait::call ? 0 : level,
                     .measured = arrival.latest - *before,
                     .slack = arrival.latest - permitted};
    // After a wait that was too short the reckoning begins anew, so that one fault is told once.
    possible_ = gap.slack < 0 ? arrival.earliest : std::max(arrival.earliest, permitted);
    return due == Wait::none ? std::nullopt : std::optional(gap);
}

} // namespace tessit::emulator
