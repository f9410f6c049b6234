// SPDX-License-Identifier: MIT
// The full table as the program encodes it.
#pragma once

#include "bench/full_table.h"
#include "level/encoder.h"

namespace tessit::bench {

inline void encode_table(RegisterImage& image, const std::vector<Row>& table) {
    image.reset();
    for (int level = 1; level <= most_levels; ++level) {
        encode_level(image, level, table[static_cast<std::size_t>(level)], EncodingRules{});
    }
}

} // namespace tessit::bench
