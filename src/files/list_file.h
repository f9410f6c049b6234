// SPDX-License-Identifier: MIT
// Frequency list files (.csv): the list's text as it stands, whatever its notation, and a line end. Format:
// docs/file-formats.md.
#pragma once

#include "platform/dialogs.h"

namespace tessit {

inline constexpr const char* list_extension = ".csv";

FileType list_file_type_for_opening();
FileType list_file_type_for_saving();

} // namespace tessit
