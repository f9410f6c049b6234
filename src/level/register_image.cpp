// SPDX-License-Identifier: MIT
#include "level/register_image.h"

#include "level/level_table.h"

namespace tessit {

void RegisterImage::reset() {
    for (int level = 1; level <= most_levels; ++level) {
        for (Bytes* bytes : {&fbyte2, &fbyte1, &fbyte0, &db3, &timesec, &timemin, &db6, &dutycycle, &wpwidth, &pratehi,
                             &pratelo, &hi_add, &lo_add}) {
            (*bytes)[level] = unset;
        }
        errorchk[level] = 0;
    }
}

LevelBytes RegisterImage::bytes(int level) const {
    return {fbyte2[level],  fbyte1[level],  fbyte0[level],  db3[level],
            timesec[level], timemin[level], db6[level],     dutycycle[level],
            wpwidth[level], pratehi[level], pratelo[level], static_cast<std::uint8_t>(errorchk[level])};
}

} // namespace tessit
