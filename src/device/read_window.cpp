// SPDX-License-Identifier: MIT
#include "device/read_window.h"

#include "core/enable_rules.h"
#include "device/load_direct_window.h"
#include "device/settings_window.h"

namespace tessit {

namespace {

const EnableRules rules{
    .enables = {"FileSave", "EditEditProtocol"},
    .disables = {"EditCut", "EditCopy", "EditPaste", "EditDeleteRow"},
};

} // namespace

void ReadWindow::Event_Open() {
    app.myactivewindow = document::reader;
    if (!app.serialselected) {
        return app.MsgBox("No Serial Port Selected"); // and the window stays empty
    }
    tell_of_port(app.serial_line(), connectfield);
    (app.use_euro ? isoDecimal : naDecimal).SetValue(true);
    messagebox.SetText("Click the Read button.\r"
                       "Press 5 then 2 on Zephon to select transfer single bank\r"
                       "Then enter bank number to transfer and press # to start the transfer");
    set_up_level_table(displaybox);
    set_up_report_columns(app);
    align_level_table(displaybox);
    app.hide_main_window();
}

void ReadWindow::Event_Activate() {
    app.myactivewindow = document::reader;
}

void ReadWindow::Readbutton_Action() {
    app.ReadZPWindow.Close(); // opened anew, the table is empty
    if (app.ReadZPWindow.exists()) {
        return; // the question was answered with Cancel
    }
    app.ReadZPWindow->Show();
    app.hide_main_window();
    if (!app.serialselected) {
        app.MsgBox("No Serial Port Selected");
    }
    Serial& line = app.serial_line();
    tell_of_port(line, app.load_direct_window->connectField); // that window's field, not this one's
    app.getdata();
    app.changed = true; // also when no generator answered
    app.readchanged = true;
    line.Close();
}

void ReadWindow::naDecimal_Action() {
    app.use_euro = false;
    exchange_base_marks(displaybox, ",", ".");
}

void ReadWindow::isoDecimal_Action() {
    app.use_euro = true;
    exchange_base_marks(displaybox, ".", ",");
}

std::optional<LevelTable> ReadWindow::level_table() {
    return LevelTable{.rows = displaybox,
                      .last_level = displaybox.ListCount() - 1,
                      .rules = {.time_form = app.default_timeformat == 0 ? TimeForm::seconds : TimeForm::clock,
                                .comma = CommaRule::stays,
                                .rate = RateRule::high_byte_by_10,
                                .blank_rows = BlankRows::skipped},
                      .total_frequencies = BankFreqField,
                      .total_time = BankTimeField};
}

void ReadWindow::save() {
    app.filename = bankfield.Text();
    app.save_document(this);
    app.readchanged = false; // also when the dialog was dismissed
}

MessageDialog ReadWindow::closing_question() const {
    return unsaved_work_dialog("Data just read from the Zephon has not been saved to file");
}

void ReadWindow::archive_document(Archive& archive) {
    Window::archive(archive);
    archive_shared_state(archive, app);
}

bool ReadWindow::Event_CancelClose() {
    if (!app.readchanged) {
        return false;
    }
    switch (ask(closing_question())) {
    case DialogAnswer::cancel:
        return true;
    case DialogAnswer::action:
        app.filename = bankfield.Text();
        app.save_document(this);
        break;
    case DialogAnswer::alternate:
        break;
    }
    app.changed = false;
    app.readchanged = false;
    app.insert = false;
    return false;
}

void ReadWindow::Event_Close() {
    app.datareset();
    app.show_main_window();
}

void ReadWindow::Event_EnableMenuItems() {
    rules.apply(app.MenuBar1);
}

bool App::_ZephonReadZephon_Action() {
    hide_main_window();
    ReadZPWindow->Show();
    return true;
}

} // namespace tessit
