// SPDX-License-Identifier: MIT
#include "mail/internet_headers.h"

#include "mail/mail_text.h"
#include "platform/array.h"
#include "platform/text.h"

#include <algorithm>

namespace tessit {

namespace {

// A header's name holds no ":", so what stands before the first one is the name.
std::string name_in(const std::string& key) {
    return key.substr(0, key.find(':'));
}

} // namespace

std::string InternetHeaders::Name(int index) const {
    return name_in(entries_[checked_index(index, entries_.size())].first);
}

std::string InternetHeaders::Value(int index) const {
    return entries_[checked_index(index, entries_.size())].second;
}

int InternetHeaders::NameCount(std::string_view name) const {
    return static_cast<int>(std::count_if(entries_.begin(), entries_.end(),
                                          [&](const auto& entry) { return same_text(name_in(entry.first), name); }));
}

std::string InternetHeaders::key_of(std::string_view name, int number) const {
    return number == 0 ? std::string(name) : std::string(name) + ":" + Str(number);
}

std::string InternetHeaders::Value(std::string_view name, int number) const {
    const std::string key = key_of(name, number);
    const auto found =
        std::find_if(entries_.begin(), entries_.end(), [&](const auto& entry) { return same_text(entry.first, key); });
    return found == entries_.end() ? "" : found->second;
}

std::string InternetHeaders::CommaSeparatedValues(std::string_view name) const {
    std::string values;
    for (int number = 0; number < NameCount(name); ++number) {
        values += (number == 0 ? "" : ", ") + Value(name, number);
    }
    return values;
}

void InternetHeaders::AppendHeader(std::string_view name, std::string_view value) {
    entries_.emplace_back(key_of(name, NameCount(name)), value);
}

void InternetHeaders::SetHeader(std::string_view name, std::string_view value) {
    const auto first =
        std::find_if(entries_.begin(), entries_.end(), [&](const auto& entry) { return same_text(entry.first, name); });
    if (first == entries_.end()) {
        return AppendHeader(name, value);
    }
    *first = {std::string(name), std::string(value)};
    entries_.erase(std::remove_if(first + 1, entries_.end(),
                                  [&](const auto& entry) { return same_text(name_in(entry.first), name); }),
                   entries_.end());
}

void InternetHeaders::Delete(std::string_view name) {
    std::erase_if(entries_, [&](const auto& entry) { return same_text(name_in(entry.first), name); });
}

std::string InternetHeaders::Source() const {
    std::string text;
    for (int index = 0; index < Count(); ++index) {
        text += (index == 0 ? "" : mail_line_end) + Name(index) + ": " + Value(index);
    }
    return text;
}

} // namespace tessit
