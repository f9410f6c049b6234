// SPDX-License-Identifier: MIT
// The Edit menu's commands. None but Edit Protocol sets a change flag.
#include "consolidator/consolidator_window.h"
#include "core/app.h"
#include "device/read_window.h"
#include "editor/edit_window.h"
#include "files/list_file.h"
#include "platform/clipboard.h"
#include "platform/text.h"

namespace tessit {

namespace {

void set_shape_and_duty(Listbox& table, std::string_view shape, std::string_view duty) {
    for (int row = 0; row < table.ListCount(); ++row) { // the empty row 0 too
        table.SetCell(row, column::wave_shape, shape);
        table.SetCell(row, column::duty_cycle, duty);
    }
}

void take_levels_over(App& app) {
    for (int i = 0; i < most_levels; ++i) { // generator data stands from index 0 on
        if (app.editwindow->refuses_another_level()) {
            return;
        }
        if (i + 1 >= app.ReadZPWindow->displaybox.ListCount()) {
            throw Fault(FaultKind::out_of_bounds, "No bank has been read yet.");
        }
        if (app.ReadZPWindow->displaybox.Cell(i + 1, column::waveform) != "blank") {
            app.displaydata(i);
        }
    }
}

} // namespace

// Cut, Copy and Paste serve the frequency list alone, whichever window is in front.

bool App::_EditCopy_Action() {
    Clipboard clipboard(desktop());
    clipboard.SetText(consolidatorWindow->freqdisplayfield.SelText());
    clipboard.Close();
    return true;
}

bool App::_EditCut_Action() {
    Clipboard clipboard(desktop());
    clipboard.SetText(consolidatorWindow->freqdisplayfield.SelText());
    consolidatorWindow->freqdisplayfield.SetSelText("");
    clipboard.Close();
    return true;
}

bool App::_EditPaste_Action() {
    Clipboard clipboard(desktop());
    if (clipboard.TextAvailable()) {
        const std::string pasted = clipboard.Text();
        if (pasted.size() > most_list_bytes) {
            throw Fault(FaultKind::read_failed,
                        "The text on the clipboard is longer than " + std::to_string(most_list_bytes) + " bytes.");
        }
        EditField& list = consolidatorWindow->freqdisplayfield;
        list.SetText(pasted); // in place of the whole list, whatever is selected
        const char last = list.Text().empty() ? '\0' : list.Text().back();
        if (use_euro && last != ':') {
            list.SetText(list.Text() + " :");
        } else if (!use_euro && last != ',') {
            list.SetText(list.Text() + ",");
        }
    }
    clipboard.Close();
    return true;
}

bool App::_EditDeleteRow_Action() {
    if (DocumentWindow* document = open_document()) {
        document->delete_selected_level();
    }
    MenuBar1.item("EditDeleteRow").SetEnabled(false); // until the window's rules are asked again
    return true;
}

bool App::_EditInsertRow_Action() {
    DocumentWindow* document = last_document(*this, MainPanel::is_passed_over);
    if (document != nullptr && document->insert_level() == Insertion::table_full) {
        return true;
    }
    MenuBar1.item("EditDeleteRow").SetEnabled(false);
    return true;
}

bool App::_EditMakeallSine_Action() {
    set_shape_and_duty(editwindow->edit_displayBox, "Sine", "");
    return true;
}

bool App::_EditMakeallSquare_Action() {
    set_shape_and_duty(editwindow->edit_displayBox, "Square", "70"); // without "%", whatever the default duty
    return true;
}

bool App::_EditEditProtocol_Action() {
    EditField& name = editwindow->namefield;
    const bool appended = editwindow->edit_displayBox.LastIndex() > 1;
    name.SetText(name.Text() + (appended ? "; " : "") + ReadZPWindow->bankfield.Text());
    take_levels_over(*this);
    changed = false;
    ReadZPWindow.Close();
    changed = true;
    editchanged = true;
    editwindow->Show();
    return true;
}

} // namespace tessit
