// SPDX-License-Identifier: MIT
#include "mail/mail_text.h"

#include "platform/text.h"

#include <cmath>
#include <random>

namespace tessit {

std::string _ConvertEOLCharacter(std::string_view text) {
    return ReplaceAll(with_carriage_returns(text), "\r", mail_line_end);
}

std::string EncodeBase64(std::string_view bytes, int line_length) {
    static constexpr std::string_view digits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::string result;
    int in_line = 0;
    for (std::size_t at = 0; at < bytes.size(); at += 3) {
        unsigned bits = 0;
        for (std::size_t i = 0; i < 3; ++i) {
            bits = bits << 8 | (at + i < bytes.size() ? static_cast<unsigned char>(bytes[at + i]) : 0U);
        }
        if (in_line == line_length) {
            result += mail_line_end;
            in_line = 0;
        }
        for (std::size_t i = 0; i < 4; ++i) {
            result += at + i > bytes.size() ? '=' : digits[bits >> (18 - 6 * i) & 63];
        }
        in_line += 4;
    }
    return result;
}

std::string _GetEmailDateStr(const Date& date) {
    static const Array<std::string> days = Split("Sun,Mon,Tue,Wed,Thu,Fri,Sat", ",");
    static const Array<std::string> months = Split("Jan,Feb,Mar,Apr,May,Jun,Jul,Aug,Sep,Oct,Nov,Dec", ",");
    const int offset = static_cast<int>(std::lround(std::abs(date.GMTOffset) * 100));
    return days[date.day_of_week] + ", " + Str(date.day) + " " + months[date.month - 1] + " " + Str(date.year) + " " +
           two_digits(date.hour) + ":" + two_digits(date.minute) + ":" + two_digits(date.second) +
           (date.GMTOffset < 0 ? " -" : " +") + two_digits(offset / 100) + two_digits(offset % 100);
}

double Rnd() {
    static std::mt19937_64 generator{std::random_device{}()};
    return std::uniform_real_distribution<double>(0, 1)(generator);
}

std::string _GenerateBoundary(const Random& random) {
    static const std::string characters = "abcdefghijklmnopqrstuvwxyz0123456789";
    std::string boundary;
    for (int i = 0; i < 12; ++i) {
        const int place = static_cast<int>(random() * 36 + 1);
        boundary += Mid(characters, place - 1, 1);
    }
    return boundary;
}

} // namespace tessit
