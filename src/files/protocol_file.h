// SPDX-License-Identifier: MIT
// Protocol files (.zp2): a bare run of twelve-byte level records, format in docs/file-formats.md. No header, no
// count: the length alone says how many. Readers and writers differ on purpose:
// - both readers drop a 253 before a record; no writer produces it;
// - Save leaves out levels whose low frequency byte is 255, so a level with frequency word 255, 511 or 767 is lost;
// - the writer of the editor's closing prompt goes by the high frequency byte and keeps them.
#pragma once

#include "level/register_image.h"
#include "platform/dialogs.h"
#include "platform/streams.h"

#include <string>

namespace tessit {

inline constexpr const char* protocol_extension = ".zp2";

// Fifty records with their dropped 253s, and one byte that tells that there are more: nothing behind them is looked at.
inline constexpr std::size_t most_protocol_bytes = 50 * 13 + 1;

FileType protocol_file_type_for_opening();
FileType protocol_file_type_for_saving();

// Reads one record to index `level`: bytes that the file lacks are 0, the check value is kept signed.
// Fault out_of_bounds beyond index 50, which a 51st record meets.
void read_record(BinaryInputStream& stream, RegisterImage& image, int level);

enum class UnsetMark { low_frequency_byte, high_frequency_byte };

// Levels 1 to 50 in order without the unset ones; a level left out leaves no gap.
void write_protocol(BinaryOutputStream& stream, const RegisterImage& image, UnsetMark mark);

} // namespace tessit
