// SPDX-License-Identifier: MIT
#include "level/number.h"

#include "platform/text.h"

#include <algorithm>
#include <cmath>

namespace tessit {

namespace {

class NumberReader {
public:
    void take(char c) { // another character than an ASCII one counts like a blank
        decimals_ = c == '.' ? 0 : decimals_ + 1;
        point_seen_ = point_seen_ || c == '.';
        if (c >= '1' && c <= '9') {
            value_ = value_ * 10.0F; // each step rounds to single precision
            value_ = value_ + static_cast<float>(c - '0');
            significant_ = true;
        } else if (c == '0' && significant_) {
            value_ = value_ * 10.0F;
        }
    }
    float number() const {
        return static_cast<float>(static_cast<double>(value_) / std::pow(10.0, point_seen_ ? decimals_ : 0));
    }

private:
    float value_ = 0;
    int decimals_ = 0; // characters behind the last point
    bool point_seen_ = false;
    bool significant_ = false; // a digit other than 0 has been seen
};

} // namespace

float read_number(const Array<std::string>& characters) {
    NumberReader reader;
    for (const std::string& character : characters) {
        reader.take(character.size() == 1 ? character.front() : ' ');
    }
    return reader.number();
}

float read_number(std::string_view text) {
    if (std::any_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) >= 0x80; })) {
        return read_number(characters(text));
    }
    NumberReader reader;
    std::for_each(text.begin(), text.end(), [&reader](char c) { reader.take(c); });
    return reader.number();
}

} // namespace tessit
