// SPDX-License-Identifier: MIT
// What a fuzz target is made of. A target is one file of tests/fuzz, `NAME_target.cpp`, that defines `try_input`, with
// a folder of kept inputs, tests/fuzz/corpus/NAME. entry.cpp makes LLVMFuzzerTestOneInput of it, which either libFuzzer
// drives (tools/fuzz) or driver.cpp (the tests).
#pragma once

#include <string>

namespace tessit::fuzzing {

// Does with any input what the program would do, and requires what must hold. Whatever it throws is a failure.
void try_input(const std::string& input);

// Ends the program where something does not hold, which keeps the input.
void require(bool holds, const char* what);

} // namespace tessit::fuzzing
