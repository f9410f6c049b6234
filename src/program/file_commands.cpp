// SPDX-License-Identifier: MIT
// The File menu's commands on protocols, and the two ways between a protocol file and the register image.
#include "core/app.h"
#include "core/deployment.h"
#include "core/popup_window.h"
#include "device/settings_window.h"
#include "editor/edit_window.h"
#include "files/export_file.h"
#include "files/list_file.h"
#include "files/protocol_file.h"
#include "platform/text.h"

namespace tessit {

namespace {

std::string file_problem(const std::string& what) {
    return what + " - Please try again\rif this problem continues please notify " + deployment::support_address;
}

// Rows from the stream until its end, or until the table is full.
void show_records(App& app, BinaryInputStream& stream) {
    auto& progress = app.popupwindow->ProgressBar1;
    for (int level = app.start_level; !stream.EndOfFile(); ++level) {
        read_record(stream, app, level);
        if (app.editwindow->refuses_another_level()) {
            return;
        }
        if (app.db3[level] != 0) { // a blank level takes an index but no row
            app.displaydata(level);
        }
        progress.SetValue(progress.Value() + 2);
        progress.Refresh();
    }
}

void open_protocol(App& app, const FolderItem& file) {
    auto stream = file.OpenAsBinaryFile(most_protocol_bytes);
    app.filename = Replace(file.DisplayName(), protocol_extension, "");
    EditField& name = app.editwindow->namefield;
    const bool appended = app.editwindow->edit_displayBox.LastIndex() > 1;
    name.SetText(appended ? name.Text() + "; " + app.filename : app.filename);
    app.editwindow->shows_file(appended ? std::nullopt : std::optional(file));
    app.popupwindow->statusField.SetText("");
    app.popupwindow->statusField.SetText("  Loading file:  " + app.filename);
    app.popupwindow->Show();
    app.popupwindow->ProgressBar1.SetValue(0);
    show_records(app, *stream);
    stream->Close();
    app.editwindow->Show();
}

} // namespace

std::string_view App::opening_entry(const FolderItem& file) const {
    const std::string extension = file.path().extension().string();
    if (same_text(extension, list_extension)) {
        return "ConsolidatorOpen";
    }
    return same_text(extension, protocol_extension) ? "FileOpen" : "";
}

void App::open_file(const FolderItem& file) {
    const auto entry = opening_entry(file);
    choose_menu(entry.empty() ? "FileOpen" : entry, file);
}

bool App::_FileOpen_Action() {
    datareset(); // before the dialog: a dismissed one leaves an empty image too
    filepath = GetOpenFolderItem(protocol_file_type_for_opening());
    if (filepath) {
        open_protocol(*this, *filepath);
    }
    popupwindow->Hide();
    changed = true; // on every path
    editchanged = true;
    return true;
}

void App::loaddata(const std::optional<FolderItem>& file) {
    datareset();
    if (!file) {
        return;
    }
    auto stream = file->OpenAsBinaryFile(most_protocol_bytes);
    for (int i = 1; !stream->EndOfFile(); ++i) {
        read_record(*stream, *this, i);
    }
    stream->Close();
}

bool App::_FileSave_Action() {
    if (DocumentWindow* document = front_document()) {
        document->save();
    }
    return true;
}

bool App::_FileExport_Action() {
    filetype = export_extension;
    const auto file = GetSaveFolderItem(export_file_type(), filename + export_extension);
    settings_window->outputfield.SetText("serial port," + Str(portnum)); // whatever the dialog gave
    if (!file) {
        return true;
    }
    DocumentWindow* document = open_document();
    auto stream = file->CreateTextFile();
    stream->WriteLine(export_text(document == nullptr ? nullptr : document->table_to_export()));
    stream->Close();
    return true;
}

void App::writezpFile() {
    save_document(front_document());
}

void App::save_document(DocumentWindow* document) {
    encode_document(document);
    if (const auto file = FSaveAs()) {
        auto stream = file->CreateBinaryFile(filetype);
        writefile(stream);
        if (document != nullptr && !filename.empty()) {
            document->shows_file(file);
            is_saved(*document);
        }
    }
}

std::optional<FolderItem> App::FSaveAs() {
    const std::string default_name = filename + protocol_extension;
    filetype = protocol_extension;
    auto file = GetSaveFolderItem(protocol_file_type_for_saving(), default_name);
    filetype = protocol_extension;
    if (file) {
        filename = file->AbsolutePath();
        filepath = file->Parent();
        changed = false;
    }
    return file;
}

void App::writefile(Ref<BinaryOutputStream>& stream) {
    if (filename.empty()) {
        return MsgBox(file_problem("No file identified"));
    }
    if (stream.is_nil()) {
        return MsgBox(file_problem("Unable to identify file"));
    }
    if (same_text(filetype, protocol_extension)) { // a list is never written through here: any other type stays empty
        write_protocol(*stream, *this, UnsetMark::low_frequency_byte);
    }
    stream->Close();
    changed = false;
    composechanged = false;
}

bool App::_FileCreateNewFile_Action() {
    editwindow.Close(); // a veto does not stop what follows
    datareset();
    editwindow->Show();
    editwindow->FreqField.SetFocus();
    editwindow->namefield.SetText("Untitled");
    return true;
}

bool App::_FileQuitEditor_Action() {
    editwindow.Close();
    return true;
}

bool App::_FileExitProgram_Action() {
    save_settings_and_quit();
    return true;
}

} // namespace tessit
