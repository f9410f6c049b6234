// SPDX-License-Identifier: MIT
// The reading dialogue: the generator sends a bank, and what arrives goes to a file as it comes. Dialogue:
// docs/wire-format.md.
#pragma once

#include "device/wire.h"
#include "level/register_image.h"
#include "platform/clock.h"
#include "platform/folder_item.h"
#include "platform/serial.h"

namespace tessit {

enum class ReadingEnd {
    received,      // or broken off without a word: then the file is short
    no_connection, // no call in 1001 looks, some eleven seconds; the file is empty
};

// Blocks from end to end. Nothing is checked: the file holds the bytes that arrived, in order.
ReadingEnd receive_bank(Clock& clock, Serial& line, TextOutputStream& file);

// Indices 0 to 50 from the file, without the calls at its beginning. Records stand by position alone: a lost byte
// shifts all that follow it, and what is missing at the end is 0.
void read_transfer_file(const FolderItem& file, RegisterImage& image);

} // namespace tessit
