// SPDX-License-Identifier: MIT
#include "device/load_direct_window.h"

#include "device/settings_window.h"
#include "editor/edit_window.h"

namespace tessit {

void LoadDirectWindow::bank_bt1_Change() {
    bank_bt_hi = bank_bt1.ListIndex();
    LoadButton.SetEnabled(true);
}

void LoadDirectWindow::bank_bt0_Change() {
    bank_bt_lo = bank_bt0.ListIndex();
    LoadButton.SetEnabled(true);
}

void LoadDirectWindow::LoadButton_Action() {
    if (const auto refused = refused_bank(bank_bt1, bank_bt0, "Bank")) {
        return app.MsgBox(*refused);
    }
    loadcompleted.SetVisible(false);
    DocumentWindow* const loaded = app.open_document();
    const auto question = ready_to_load_dialog(app.editwindow->namefield.Text(), bank_bt1, bank_bt0);
    if (loaded != nullptr) { // the editor may just have come up with its name: behind the table that is loaded
        loaded->Show();
    }
    Show();
    if (app.ShowModal(question) == DialogAnswer::cancel) {
        return;
    }
    loadcompleted.SetVisible(false);
    show_loading_notice(app);
    send_to_bank(app, bank_of(bank_bt1, bank_bt0));
}

bool App::_ZephonLoadDirect_Action() {
    loadfile = false;
    load_data_array();
    load_direct_window->Show();
    if (!serialselected) {
        MsgBox("No Serial Port Selected"); // and goes on
    }
    tell_of_port(serial_line(), load_direct_window->connectField);
    load_direct_window->bank_bt0.SetEnabled(true);
    load_direct_window->bank_bt1.SetEnabled(true);
    return true;
}

} // namespace tessit
