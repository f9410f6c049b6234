// SPDX-License-Identifier: MIT
#include "files/export_file.h"

#include "level/level_table.h"
#include "platform/text.h"

namespace tessit {

FileType export_file_type() {
    return {.Name = "Export File/tab", .MacType = "tab", .Extensions = export_extension};
}

std::string export_text(const Listbox* table) {
    std::string text = std::string(level_table_headings) + carriage_return;
    const int last_row = table == nullptr ? 0 : table->LastIndex();
    for (int row = 1; row <= last_row; ++row) {
        for (int i = 0; i < column::count; ++i) {
            text += (i == 0 ? "" : "\t") + table->Cell(row, i);
        }
        text += carriage_return;
    }
    return text;
}

} // namespace tessit
