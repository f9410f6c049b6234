// SPDX-License-Identifier: MIT
// Small pieces of a mail's text: its line end, base64, the date line, boundaries between its parts.
#pragma once

#include "platform/date.h"

#include <functional>
#include <string>
#include <string_view>

namespace tessit {

inline constexpr const char* mail_line_end = "\r\n";

// Every CR, LF and CR LF becomes CR LF.
std::string _ConvertEOLCharacter(std::string_view text);

// Lines of at most `line_length` characters with CR LF between them, none behind the last.
std::string EncodeBase64(std::string_view bytes, int line_length);

// Such as "Mon, 3 Feb 2025 09:05:07 +0100". The offset is its hours times 100, so five and a half read "+0550".
std::string _GetEmailDateStr(const Date& date);

using Random = std::function<double()>; // uniform, from 0 up to 1
double Rnd();

std::string _GenerateBoundary(const Random& random); // twelve lower-case letters and digits

} // namespace tessit
