// SPDX-License-Identifier: MIT
#include "level/number.h"

#include "platform/text.h"

#include <cmath>

namespace tessit {

float read_number(const Array<std::string>& characters) {
    float value = 0;
    int decimals = 0;
    bool significant = false; // a digit other than 0 has been seen
    const int last = characters.upper_bound();
    for (int i = 0; i <= last; ++i) {
        const std::string& character = characters[i];
        const char c = character.size() == 1 ? character.front() : ' ';
        if (c >= '1' && c <= '9') {
            value = value * 10.0F; // each step rounds to single precision
            value = value + static_cast<float>(c - '0');
            significant = true;
        } else if (c == '0' && significant) {
            value = value * 10.0F;
        } else if (c == '.') {
            decimals = last - i;
        }
    }
    return static_cast<float>(static_cast<double>(value) / std::pow(10.0, decimals));
}

float read_number(std::string_view text) {
    return read_number(characters(text));
}

} // namespace tessit
