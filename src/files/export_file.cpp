// SPDX-License-Identifier: MIT
#include "files/export_file.h"

#include "composer/compose_window.h"
#include "core/app.h"
#include "device/settings_window.h"
#include "editor/edit_window.h"
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

bool App::_FileExport_Action() {
    filetype = export_extension;
    const auto file = GetSaveFolderItem(export_file_type(), filename + export_extension);
    settings_window->outputfield.SetText("serial port," + Str(portnum)); // whatever the dialog gave
    if (!file) {
        return true;
    }
    const Listbox* table = nullptr;
    if (myactivewindow == document::editor) {
        table = &editwindow->edit_displayBox;
    } else if (myactivewindow == document::composer) {
        table = &composewindow->compose_displayBox;
    }
    auto stream = file->CreateTextFile();
    stream->WriteLine(export_text(table));
    stream->Close();
    return true;
}

} // namespace tessit
