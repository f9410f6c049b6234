// SPDX-License-Identifier: MIT
#include "recovery/recovery_copy.h"

#include "platform/archive.h"
#include "platform/fault.h"

#include <array>
#include <charconv>
#include <cstdint>
#include <cstdio>

namespace tessit {

namespace {

constexpr std::string_view first_line = "tessit-control recovery copy 1\n";
constexpr std::size_t check_line_length = 15; // "check 89abcdef\n"

// The usual CRC-32, which tells every single changed byte.
std::uint32_t checksum(std::string_view bytes) {
    static const auto table = [] {
        std::array<std::uint32_t, 256> remainders{};
        for (std::uint32_t byte = 0; byte < remainders.size(); ++byte) {
            std::uint32_t value = byte;
            for (int bit = 0; bit < 8; ++bit) {
                value = value >> 1 ^ ((value & 1) != 0 ? 0xEDB88320U : 0U);
            }
            remainders[byte] = value;
        }
        return remainders;
    }();
    std::uint32_t sum = ~0U;
    for (const char c : bytes) {
        sum = sum >> 8 ^ table[(sum ^ static_cast<unsigned char>(c)) & 0xFF];
    }
    return ~sum;
}

std::string check_line(std::string_view bytes) {
    std::array<char, check_line_length + 1> line{};
    std::snprintf(line.data(), line.size(), "check %08x\n", checksum(bytes));
    return line.data();
}

void archive(Archive& archive, RecoveryCopy& copy) {
    archive.text("window", copy.window);
    archive.text("document", copy.document);
    std::string seconds = std::to_string(copy.kept_at);
    archive.text("time", seconds);
    std::from_chars(seconds.data(), seconds.data() + seconds.size(), copy.kept_at);
    archive.text("values", copy.values);
}

} // namespace

std::string recovery_bytes(const RecoveryCopy& copy) {
    ArchiveWriter writer;
    RecoveryCopy source = copy;
    archive(writer, source);
    const std::string bytes = std::string(first_line) + writer.values();
    return bytes + check_line(bytes);
}

std::optional<RecoveryCopy> read_recovery_copy(std::string_view bytes) {
    if (bytes.substr(0, first_line.size()) != first_line || bytes.size() < first_line.size() + check_line_length) {
        return std::nullopt;
    }
    const std::string_view checked = bytes.substr(0, bytes.size() - check_line_length);
    if (bytes.substr(checked.size()) != check_line(checked)) {
        return std::nullopt;
    }
    RecoveryCopy copy;
    ArchiveReader reader(checked.substr(first_line.size()));
    try {
        archive(reader, copy);
    } catch (const Fault&) {
        return std::nullopt;
    }
    return reader.at_end() ? std::optional(copy) : std::nullopt;
}

} // namespace tessit
