// SPDX-License-Identifier: MIT
// The tab-separated export of a level table (.tab), for other programs. Format: docs/file-formats.md.
#pragma once

#include "platform/dialogs.h"
#include "platform/listbox.h"

#include <string>

namespace tessit {

inline constexpr const char* export_extension = ".tab";

FileType export_file_type();

// The row of headings, then rows 1 to LastIndex as their cells stand; nothing is quoted. Each row ends in CR. LastIndex
// is the row last added, so after an insertion the rows below it are missing. No table: the headings alone.
std::string export_text(const Listbox* table);

} // namespace tessit
