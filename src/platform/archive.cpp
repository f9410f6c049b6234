// SPDX-License-Identifier: MIT
#include "platform/archive.h"

#include "platform/fault.h"

#include <charconv>

namespace tessit {

namespace {

[[noreturn]] void unreadable(std::string_view name) {
    throw Fault(FaultKind::read_failed, "Kept values could not be read at \"" + std::string(name) + "\".");
}

template <class Number> Number number_of(std::string_view name, std::string_view digits) {
    Number value{};
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    if (error != std::errc() || end != digits.data() + digits.size()) {
        unreadable(name);
    }
    return value;
}

} // namespace

void Archive::number(std::string_view name, std::int32_t& value) {
    std::string digits = std::to_string(value);
    text(name, digits);
    value = number_of<std::int32_t>(name, digits);
}

void Archive::flag(std::string_view name, bool& value) {
    std::int32_t as_number = value ? 1 : 0;
    number(name, as_number);
    value = as_number != 0;
}

void Archive::section(std::string_view name) {
    std::string none;
    text(name, none);
}

void ArchiveWriter::text(std::string_view name, std::string& value) {
    values_ += name;
    values_ += ' ' + std::to_string(value.size()) + '\n';
    values_ += value;
    values_ += '\n';
}

void ArchiveReader::text(std::string_view name, std::string& value) {
    const std::size_t line_end = rest_.find('\n');
    if (line_end == std::string_view::npos || rest_.substr(0, name.size()) != name || line_end <= name.size() ||
        rest_[name.size()] != ' ') {
        unreadable(name);
    }
    const auto length = number_of<std::size_t>(name, rest_.substr(name.size() + 1, line_end - name.size() - 1));
    const std::string_view behind = rest_.substr(line_end + 1);
    if (length >= behind.size() || behind[length] != '\n') {
        unreadable(name);
    }
    value = behind.substr(0, length);
    rest_ = behind.substr(length + 1);
}

void check_put_back(std::int32_t index, std::int32_t first, std::int32_t count) {
    if (index < first || index >= count) {
        unreadable("index " + std::to_string(index));
    }
}

} // namespace tessit
