// SPDX-License-Identifier: MIT
#include "consolidator/list_file.h"

#include "consolidator/consolidator_window.h"
#include "core/app.h"
#include "core/popup_window.h"
#include "platform/text.h"

namespace tessit {

FileType list_file_type_for_opening() {
    return {.Name = "Frequency List", .MacType = "csv", .Extensions = list_extension};
}

FileType list_file_type_for_saving() {
    return {.Name = "Frequency List/csv", .MacType = "csv", .Extensions = list_extension};
}

void save_frequency_list(App& app) {
    app.filetype = list_extension;
    app.filename = app.consolidatorWindow->nameField.Text() + list_extension;
    const auto file = app.GetSaveFolderItem(list_file_type_for_saving(), app.filename);
    if (!file) {
        return;
    }
    app.filename = file->AbsolutePath();
    app.filepath = file->Parent();
    auto stream = file->CreateTextFile();
    stream->WriteLine(app.consolidatorWindow->freqdisplayfield.Text());
    stream->Close();
    app.consolidatorchanged = false;
    app.changed = false;
}

namespace {

void open_frequency_list(App& app, const FolderItem& file) {
    auto stream = file.OpenAsTextFile(most_list_bytes);
    ConsolidatorWindow& window = app.consolidatorWindow.get(); // before the name: it takes its own when it comes up
    app.filename = Replace(file.DisplayName(), list_extension, "");
    window.nameField.SetText(app.filename);
    app.popupwindow->statusField.SetText("");
    app.popupwindow->statusField.SetText("Loading file:  " + app.filename);
    app.popupwindow->Show();
    app.popupwindow->ProgressBar1.SetValue(0);
    app.popupwindow->ProgressBar1.Refresh();
    EditField& list = window.freqdisplayfield;
    list.SetText(stream->ReadAll()); // its text change makes separators of line ends and tabs
    list.SetText(list.Text());
    stream->Close();
}

} // namespace

bool App::_ConsolidatorOpen_Action() {
    filepath = GetOpenFolderItem(list_file_type_for_opening());
    if (!filepath) {
        return true;
    }
    open_frequency_list(*this, *filepath);
    filepath.reset(); // settings are not saved until a later save has set it again
    popupwindow->Hide();
    consolidatorWindow->Show();
    dataentry = true; // behind the showing, which clears it
    enable_menu_items();
    return true;
}

} // namespace tessit
