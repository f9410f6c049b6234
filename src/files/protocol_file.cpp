// SPDX-License-Identifier: MIT
#include "files/protocol_file.h"

#include "level/level_table.h"

namespace tessit {

namespace {

constexpr std::uint8_t escape = 253;

} // namespace

FileType protocol_file_type_for_opening() {
    return {.Name = "Zephon File", .MacType = "zp2", .Extensions = protocol_extension};
}

FileType protocol_file_type_for_saving() {
    return {.Name = "Zephon File/zp2", .MacType = "zp2", .Extensions = protocol_extension};
}

void read_record(BinaryInputStream& stream, RegisterImage& image, int level) {
    if (level > most_levels) {
        throw Fault(FaultKind::out_of_bounds, "The file holds more than 50 levels. The first 50 have been read.");
    }
    image.fbyte2[level] = stream.ReadByte();
    if (image.fbyte2[level] == escape) {
        image.fbyte2[level] = stream.ReadByte();
    }
    for (auto* bytes : {&image.fbyte1, &image.fbyte0, &image.db3, &image.timesec, &image.timemin, &image.db6,
                        &image.dutycycle, &image.wpwidth, &image.pratehi, &image.pratelo}) {
        (*bytes)[level] = stream.ReadByte();
    }
    image.errorchk[level] = stream.ReadInt8();
}

void write_protocol(BinaryOutputStream& stream, const RegisterImage& image, UnsetMark mark) {
    const auto& marked = mark == UnsetMark::low_frequency_byte ? image.fbyte0 : image.fbyte2;
    for (int level = 1; level <= most_levels; ++level) {
        if (marked[level] != unset) {
            for (const std::uint8_t byte : image.bytes(level)) {
                stream.WriteInt8(byte);
            }
        }
    }
}

} // namespace tessit
