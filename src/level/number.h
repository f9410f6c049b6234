// SPDX-License-Identifier: MIT
// The program's one number reader: settings, cells, times, rates and frequency lists all go through it.
#pragma once

#include "platform/array.h"

#include <string>
#include <string_view>

namespace tessit {

// A single-precision digit accumulator over the characters of a text. It skips whatever is neither a digit nor a
// point: signs, commas, colons, blanks and exponents count for nothing, so "7,83" is 783. Of several points the last
// decides, and every character behind it counts as a decimal, digit or not. The empty text is 0.
float read_number(const Array<std::string>& characters);
float read_number(std::string_view text);

} // namespace tessit
