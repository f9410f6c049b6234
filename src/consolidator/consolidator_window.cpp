// SPDX-License-Identifier: MIT
#include "consolidator/consolidator_window.h"

#include "composer/compose_window.h"
#include "consolidator/frequency_list.h"
#include "consolidator/list_file.h"
#include "core/document_window.h"
#include "core/enter_key.h"
#include "files/protocol_file.h"
#include "program/main_window.h"
#include "program/menus.h"

namespace tessit {

void ConsolidatorWindow::Event_Open() {
    app.myactivewindow = document::consolidator;
    app.filetype = list_extension;
    nameField.SetText("untitled");
    app.datasort = false;
    app.dataentry = false;
    app.composed = false;
    app.numentries = 0;
    app.Window1->Hide();
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
    enable_rules::consolidatorWindow.apply(app.MenuBar1);
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
    if (app.numentries > 0) { // entries counted, not text: behind an opened list the first one joins its last number
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
    app.composewindow->Show();
    app.compose();
}

void ConsolidatorWindow::naDecimal_Action() {
    app.use_euro = false;
    freqdisplayfield.SetText(in_point_notation(freqdisplayfield.Text()));
}

void ConsolidatorWindow::isoDecimal_Action() {
    app.use_euro = true;
    freqdisplayfield.SetText(in_comma_notation(freqdisplayfield.Text()));
}

bool ConsolidatorWindow::Event_CancelClose() {
    if (app.consolidatorchanged) {
        const auto answer = ask(save_question("Do you want to save your frequency list before quitting?"));
        if (answer == DialogAnswer::cancel) {
            return true;
        }
        if (answer == DialogAnswer::action) {
            save_frequency_list(app); // a dismissed file dialog loses the list without further word
        }
    }
    forget_list();
    app.Window1->Show();
    return false;
}

void ConsolidatorWindow::forget_list() {
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
    app.Window1->Show();
}

bool App::_ConsolidatorNew_Action() {
    consolidatorWindow->Show();
    return true;
}

bool App::_ConsolidatorQuit_Action() {
    if (consolidatorchanged) {
        const auto answer = consolidatorWindow->ask(save_question("Do you want to save your work before quitting?"));
        if (answer != DialogAnswer::alternate) {
            return true; // "Save" saves nothing: the list stays where it is, for the Save command
        }
    }
    consolidatorWindow->forget_list();
    consolidatorWindow.Close();
    composewindow.Close();
    Window1->Show();
    return true;
}

} // namespace tessit
