// SPDX-License-Identifier: MIT
#include "platform/text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>

namespace tessit {

namespace {

std::size_t character_length(std::string_view rest) {
    const auto lead = static_cast<unsigned char>(rest.front());
    std::size_t length = 1;
    if (lead >= 0xF0 && lead < 0xF8) {
        length = 4;
    } else if (lead >= 0xE0 && lead < 0xF0) {
        length = 3;
    } else if (lead >= 0xC0 && lead < 0xE0) {
        length = 2;
    }
    if (length > rest.size()) {
        return 1;
    }
    const bool whole = std::all_of(rest.begin() + 1, rest.begin() + static_cast<std::ptrdiff_t>(length),
                                   [](char c) { return (static_cast<unsigned char>(c) & 0xC0) == 0x80; });
    return whole ? length : 1;
}

char lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

std::string replace(std::string_view text, std::string_view what, std::string_view with, bool all) {
    std::string result;
    std::size_t from = 0;
    while (!what.empty()) {
        const std::size_t found = text.find(what, from);
        if (found == std::string_view::npos) {
            break;
        }
        result += text.substr(from, found - from);
        result += with;
        from = found + what.size();
        if (!all) {
            break;
        }
    }
    result += text.substr(from);
    return result;
}

} // namespace

int Len(std::string_view text) {
    const auto ascii_end =
        std::find_if(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) >= 0x80; });
    auto count = static_cast<int>(ascii_end - text.begin()); // a long list is ASCII
    text.remove_prefix(static_cast<std::size_t>(count));
    for (; !text.empty(); ++count) {
        text.remove_prefix(character_length(text));
    }
    return count;
}

std::string Mid(std::string_view text, int start, int length) {
    const auto skip = [](std::string_view rest, int count) {
        for (; count > 0 && !rest.empty(); --count) {
            rest.remove_prefix(character_length(rest));
        }
        return rest;
    };
    const std::string_view from = skip(text, start);
    return std::string(from.substr(0, from.size() - skip(from, length).size()));
}

Array<std::string> characters(std::string_view text) {
    Array<std::string> result;
    while (!text.empty()) {
        const std::size_t length = character_length(text);
        result.append(std::string(text.substr(0, length)));
        text.remove_prefix(length);
    }
    return result;
}

Array<std::string> Split(std::string_view text, std::string_view separator) {
    Array<std::string> pieces;
    if (text.empty()) {
        return pieces;
    }
    for (;;) {
        const std::size_t found = separator.empty() ? std::string_view::npos : text.find(separator);
        pieces.append(std::string(text.substr(0, found)));
        if (found == std::string_view::npos) {
            return pieces;
        }
        text.remove_prefix(found + separator.size());
    }
}

int CountFields(std::string_view text, std::string_view separator) {
    return Split(text, separator).count();
}

std::string Replace(std::string_view text, std::string_view what, std::string_view with) {
    return replace(text, what, with, false);
}

std::string ReplaceAll(std::string_view text, std::string_view what, std::string_view with) {
    return replace(text, what, with, true);
}

bool same_text(std::string_view left, std::string_view right) {
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [](char a, char b) { return lower(a) == lower(b); });
}

std::string Str(int value) {
    return std::to_string(value);
}

std::string Str(float value) {
    std::array<char, 64> buffer{}; // 39 digits before the point, or 45 places behind it, at most
    const auto written = std::to_chars(buffer.begin(), buffer.end(), value, std::chars_format::fixed);
    return {buffer.begin(), written.ptr};
}

std::string two_digits(int value) {
    return value < 10 ? "0" + Str(value) : Str(value);
}

std::string ChrB(int byte) {
    return std::string(1, static_cast<char>(low_byte(byte)));
}

bool IsNumeric(std::string_view text, DecimalMark mark) {
    const auto first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) {
        return false;
    }
    text = text.substr(first, text.find_last_not_of(' ') - first + 1);
    int digits = 0;
    int marks = 0;
    for (const char c : text) {
        if (c >= '0' && c <= '9') {
            ++digits;
        } else if (c == '.' || (c == ',' && mark == DecimalMark::comma)) {
            ++marks;
        } else {
            return false;
        }
    }
    return digits > 0 && marks <= 1;
}

std::string with_carriage_returns(std::string_view text) {
    std::string result(text);
    if (result.find('\n') != std::string::npos) {
        result = ReplaceAll(ReplaceAll(result, "\r\n", "\r"), "\n", "\r");
    }
    return result;
}

std::int32_t truncate(double value) {
    constexpr double lowest = std::numeric_limits<std::int32_t>::min();
    constexpr double highest = std::numeric_limits<std::int32_t>::max();
    if (std::isnan(value)) {
        return 0;
    }
    return static_cast<std::int32_t>(std::clamp(value, lowest, highest));
}

} // namespace tessit
