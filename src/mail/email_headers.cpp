// SPDX-License-Identifier: MIT
#include "mail/email_headers.h"

#include "mail/mail_text.h"
#include "platform/text.h"

#include <algorithm>
#include <iterator>

namespace tessit {

namespace {

constexpr const char* in_front[] = {"Return-Path", "Received", "Date", "Subject", "From", "To", "CC"};

bool has_its_place(const std::string& name) { // or, as BCC, none
    return same_text(name, "BCC") || std::any_of(std::begin(in_front), std::end(in_front),
                                                 [&](const char* placed) { return same_text(name, placed); });
}

} // namespace

std::string EmailHeaders::_FormatEmailHeaders() const {
    std::string text;
    const auto write = [&](const std::string& name, const std::string& value) {
        text += (text.empty() ? "" : mail_line_end) + name + ": " + value;
    };
    for (const char* name : in_front) {
        const int count = same_text(name, "Received") ? NameCount(name) : std::min(NameCount(name), 1);
        for (int number = 0; number < count; ++number) {
            write(name, Value(name, number));
        }
    }
    for (int index = 0; index < Count(); ++index) {
        if (!has_its_place(Name(index))) {
            write(Name(index), Value(index));
        }
    }
    return text;
}

} // namespace tessit
