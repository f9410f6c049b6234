// SPDX-License-Identifier: MIT
// The scratch image of a bank: the level record as twelve parallel arrays with indices 0 to 50, level n at index n;
// a bank read from the generator uses 0 to 49. The table in a window is the master copy, never this.
#pragma once

#include "level/level_record.h"
#include "platform/array.h"

#include <cstdint>

namespace tessit {

struct RegisterImage {
    using Bytes = FixedArray<std::uint8_t, 50>;

    Bytes fbyte2, fbyte1, fbyte0, db3, timesec, timemin, db6, dutycycle, wpwidth, pratehi, pratelo;
    FixedArray<std::int32_t, 50> errorchk; // its low byte goes to files and the wire
    Bytes hi_add, lo_add;                  // the address of each level read from the generator

    // Unsets levels 1 to 50: every byte 255, the check value 0. Index 0 stays as it is.
    void reset();

    // The record of a level as files and the wire carry it. Fault out_of_bounds beyond 0 to 50.
    LevelBytes bytes(int level) const;

    bool operator==(const RegisterImage&) const = default;
};

} // namespace tessit
