// SPDX-License-Identifier: MIT
#include "tools/fuzzing/target.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

void tessit::fuzzing::require(bool holds, const char* what) {
    if (!holds) {
        std::fprintf(stderr, "does not hold: %s\n", what);
        std::abort();
    }
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t count);
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t count) {
    tessit::fuzzing::try_input({reinterpret_cast<const char*>(bytes), count});
    return 0;
}
