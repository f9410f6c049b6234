// SPDX-License-Identifier: MIT
// Fifty levels in which every waveform, shape, scale and pulse state occurs, for demonstrations, tests and
// measurements that need a full bank and no loading.
#pragma once

#include "emulator/level_rules.h"

namespace tessit::emulator {

std::array<LevelBytes, levels_per_bank> example_bank();

} // namespace tessit::emulator
