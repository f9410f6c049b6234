// SPDX-License-Identifier: MIT
// Frequency list files (.csv): the list's text as it stands, whatever its notation, and a line end. Format:
// docs/file-formats.md.
#pragma once

#include "platform/dialogs.h"

namespace tessit {

inline constexpr const char* list_extension = ".csv";

inline constexpr std::size_t most_list_bytes = 4'000'000; // a longer list would keep the program busy for long

FileType list_file_type_for_opening();
FileType list_file_type_for_saving();

} // namespace tessit
