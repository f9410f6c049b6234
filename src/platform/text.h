// SPDX-License-Identifier: MIT
// Text and number functions of the runtime. Text is UTF-8 in std::string; a character is one code point, and a
// byte that is no part of valid UTF-8 is a character of its own.
#pragma once

#include "platform/array.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace tessit {

// The one line end that the program's text knows.
inline constexpr char carriage_return = '\r';

Array<std::string> characters(std::string_view text);
int Len(std::string_view text);                                // in characters
std::string Mid(std::string_view text, int start, int length); // in characters, from 0; what is not there is left out

// The pieces between separators, at least one for a text that is not empty, none for the empty text.
Array<std::string> Split(std::string_view text, std::string_view separator);
int CountFields(std::string_view text, std::string_view separator); // as many as Split gives

std::string Replace(std::string_view text, std::string_view what, std::string_view with); // first place only
std::string ReplaceAll(std::string_view text, std::string_view what, std::string_view with);

// Comparison as the program's "=" does it: ASCII letters count the same in either case.
bool same_text(std::string_view left, std::string_view right);

std::string Str(int value);
// The shortest text that reads back as this value, without an exponent; whole numbers have no point. "inf" beyond.
std::string Str(float value);
std::string two_digits(int value); // "07"; more digits where the value has more

// One-byte texts; keys arrive in this form: ChrB(13) is Return, ChrB(3) the keypad's Enter.
std::string ChrB(int byte);
inline std::string Chr(int byte) {
    return ChrB(byte);
}

enum class DecimalMark { point, comma };

// True for digits with at most one decimal mark, blanks around them ignored: the point always, the comma too while
// it is the decimal mark. ".5" and "5." count; signs, exponents and the empty text do not.
bool IsNumeric(std::string_view text, DecimalMark mark);

// LF and CR LF become CR.
std::string with_carriage_returns(std::string_view text);

// Truncates toward zero; what does not fit 32 bits becomes the nearest value that does, no number becomes 0.
std::int32_t truncate(double value);

// 32-bit sums wrap around, as the runtime's do.
constexpr std::int32_t wrap32(std::int64_t value) {
    return static_cast<std::int32_t>(value);
}

// Bytes are cut to eight bits wherever a value goes into a byte array.
constexpr std::uint8_t low_byte(std::int64_t value) {
    return static_cast<std::uint8_t>(value);
}

} // namespace tessit
