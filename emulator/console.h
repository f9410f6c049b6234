// SPDX-License-Identifier: MIT
// The commands on the emulated generator's standard input: its keypad, looks into its memory and its records, its
// failures. A command is a line; so is each line of the answer, the last of which is "ok" or "error: " and a reason.
#pragma once

#include "emulator/generator.h"

#include <string>
#include <string_view>
#include <vector>

namespace tessit::emulator {

struct Reply {
    std::vector<std::string> lines; // the last one is "ok" or "error: ..."
    bool quit = false;
};

inline constexpr int longest_latency_in_milliseconds = 16;

// Raises std::runtime_error, with a text for the user, unless the word is a whole number from 0 to 16.
Microseconds latency_in_milliseconds(const std::string& word);

Reply execute(Generator& generator, std::string_view command);

} // namespace tessit::emulator
