// SPDX-License-Identifier: MIT
#include "consolidator/consolidator_window.h"

#include "consolidator/frequency_list.h"
#include "core/enable_rules.h"
#include "core/enter_key.h"
#include "files/list_file.h"

namespace tessit {

namespace {

const EnableRules rules{
    .enables = {"FilePageSetup", "FilePrint", "FileSave", "EditCut", "EditCopy", "EditPaste", "ConsolidatorQuit"},
    .disables = {"EditInsertRow", "EditDeleteRow", "ZephonLoadDirect", "ZephonLoadFromFile", "SettingsSaveSettings",
                 "FileQuitEditor", "FileCreateNewFile", "FileOpen"},
};

} // namespace

void ConsolidatorWindow::Event_Open() {
    app.myactivewindow = document::consolidator;
    app.filetype = list_extension;
    nameField.SetText("untitled");
    app.datasort = false;
    app.dataentry = false;
    app.composed = false;
    app.numentries = 0;
    app.hide_main_window();
    freqdisplayfield.SetText("");
    (app.use_euro ? isoDecimal : naDecimal).SetValue(true);
    set_up_report_columns(app);
}

void ConsolidatorWindow::Event_Activate() {
    app.filetype = list_extension;
    app.filename = nameField.Text();
    app.datasort = false; // so a list that was sorted before is sorted anew for the composer
    app.dataentry = false;
    app.composed = false;
    app.myactivewindow = document::consolidator;
}

void ConsolidatorWindow::Event_EnableMenuItems() {
    rules.apply(app.MenuBar1);
    if (app.dataentry) {
        composebutton.SetEnabled(true);
        composebutton.SetVisible(true);
        menu_item("FilePrint").SetEnabled(true);
    }
}

bool ConsolidatorWindow::entryField_KeyDown(const std::string& key) {
    if (!is_enter_key(key)) {
        return false;
    }
    if (app.numentries > 0) { // entries counted, not text: after an opened list the first one joins its last number
        freqdisplayfield.SetText(freqdisplayfield.Text() + typed_separator(app.decimal_mark()));
    }
    freqdisplayfield.SetText(freqdisplayfield.Text() + entryField.Text());
    entryField.SetText("");
    app.consolidatorchanged = true;
    app.changed = true;
    app.dataentry = true;
    app.enable_menu_items();
    ++app.numentries;
    return false; // so the letter L stays behind in the field
}

void ConsolidatorWindow::freqdisplayfield_TextChange() {
    for (const Rewriting& rewriting : separator_rewritings(app.decimal_mark())) {
        freqdisplayfield.SetText(ReplaceAll(freqdisplayfield.Text(), rewriting.what, rewriting.with));
    }
}

void ConsolidatorWindow::composebutton_Action() {
    app.loadarray();
    Hide();
    app.open_composer();
}

void ConsolidatorWindow::naDecimal_Action() {
    app.use_euro = false;
    freqdisplayfield.SetText(in_point_notation(freqdisplayfield.Text()));
}

void ConsolidatorWindow::isoDecimal_Action() {
    app.use_euro = true;
    freqdisplayfield.SetText(in_comma_notation(freqdisplayfield.Text()));
}

MessageDialog ConsolidatorWindow::closing_question() const {
    return save_question("Do you want to save your frequency list before quitting?");
}

void ConsolidatorWindow::archive_document(Archive& archive) {
    Window::archive(archive);
    archive_shared_state(archive, app);
    archive.number("numentries", app.numentries);
    archive.flag("composed", app.composed);
}

bool ConsolidatorWindow::Event_CancelClose() {
    if (app.consolidatorchanged) {
        const auto answer = ask(closing_question());
        if (answer == DialogAnswer::cancel) {
            return true;
        }
        if (answer == DialogAnswer::action) {
            save(); // a dismissed file dialog loses the list without further word
        }
    }
    forget_list();
    app.show_main_window();
    return false;
}

// A dismissed file dialog leaves the change flags, but the file name is already the list's.
void ConsolidatorWindow::save() {
    app.filetype = list_extension;
    app.filename = nameField.Text() + list_extension;
    const auto file = app.GetSaveFolderItem(list_file_type_for_saving(), app.filename);
    if (!file) {
        return;
    }
    app.filename = file->AbsolutePath();
    app.filepath = file->Parent();
    auto stream = file->CreateTextFile();
    stream->WriteLine(freqdisplayfield.Text());
    stream->Close();
    app.consolidatorchanged = false;
    app.changed = false;
    shows_file(file);
    app.is_saved(*this);
}

void ConsolidatorWindow::forget_list() {
    shows_file({});
    app.consolidatorchanged = false;
    nameField.SetText("");
    freqdisplayfield.SetText("");
    entryField.SetText("");
    app.composed = false;
    app.composelevel = 0;
}

void ConsolidatorWindow::Event_Close() {
    Hide();
    for (const char* entry : {"EditCut", "EditCopy", "EditPaste"}) {
        menu_item(entry).SetEnabled(false);
    }
    app.show_main_window();
}

} // namespace tessit
