// SPDX-License-Identifier: MIT
// The Edit menu's commands on the rows of level tables. None but Edit Protocol sets a change flag.
#include "composer/compose_window.h"
#include "core/app.h"
#include "device/read_window.h"
#include "editor/edit_window.h"
#include "files/protocol_file.h"
#include "platform/text.h"

namespace tessit {

namespace {

constexpr const char* editor_title = "Zephon Protocol Editor";
constexpr const char* composer_title = "Protocol Composer";

void remove_selected_level(Listbox& table) {
    if (table.ListIndex() > 0) {
        table.RemoveRow(table.ListIndex());
        renumber_levels(table);
    }
}

enum class Insertion { done, table_full };

Insertion insert_above_selected(App& app, Listbox& table) {
    app.row = table.ListIndex();
    if (table.ListCount() > most_levels) {
        app.MsgBox("All 50 levels are full");
        return Insertion::table_full;
    }
    table.InsertRow(table.ListIndex(), Str(table.ListCount()));
    renumber_levels(table);
    return Insertion::done;
}

void set_shape_and_duty(Listbox& table, std::string_view shape, std::string_view duty) {
    for (int row = 0; row < table.ListCount(); ++row) { // the empty row 0 too
        table.SetCell(row, column::wave_shape, shape);
        table.SetCell(row, column::duty_cycle, duty);
    }
}

void take_levels_over(App& app) {
    const Listbox& table = app.editwindow->edit_displayBox;
    for (int i = 0; i < most_levels; ++i) { // generator data stands from index 0 on
        if (table.LastIndex() >= most_levels) {
            app.ShowModal(no_room_dialog());
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

bool App::_EditDeleteRow_Action() {
    if (myactivewindow == document::editor) {
        remove_selected_level(editwindow->edit_displayBox);
        editwindow->add_up_cells(0, PlainSeconds::out_of_bounds);
        editwindow->FreqField.SetFocus();
    } else if (myactivewindow == document::composer) {
        remove_selected_level(composewindow->compose_displayBox); // the composer's totals stay as they were
    }
    MenuBar1.item("EditDeleteRow").SetEnabled(false); // until the window's rules are asked again
    return true;
}

bool App::_EditInsertRow_Action() {
    const std::string title = title_of_last_document(*this, MainPanel::is_passed_over);
    if (same_text(title, editor_title)) {
        Listbox& table = editwindow->edit_displayBox;
        if (table.ListIndex() > 0) {
            if (insert_above_selected(*this, table) == Insertion::table_full) {
                return true;
            }
            insert = true;
        }
        table.SetListIndex(row); // with nothing selected, the row that was worked on before
        editwindow->FreqField.SetFocus();
    } else if (same_text(title, composer_title)) {
        Listbox& table = composewindow->compose_displayBox;
        if (table.ListIndex() > 0) {
            if (insert_above_selected(*this, table) == Insertion::table_full) {
                return true;
            }
            table.SetListIndex(row);
            table.SetScrollPosition(table.ListCount() - 7);
        }
        insert = true; // also where nothing was selected, unlike the editor
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
