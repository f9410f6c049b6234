// SPDX-License-Identifier: MIT
#include "device/load_zephon_window.h"

#include "device/settings_window.h"
#include "files/protocol_file.h"
#include "platform/text.h"

namespace tessit {

void LoadZephonWindow::Event_Open() {
    app.datareset();
    if (!app.serialselected) {
        app.MsgBox("No Serial Port Selected");
        return Close();
    }
    tell_of_port(app.serial_line(), connectfield);
}

bool LoadZephonWindow::cb1_MouseDown() {
    const auto file = app.GetOpenFolderItem(protocol_file_type_for_opening());
    if (file) {
        Fname = file->AbsolutePath();
        fn1.SetText(Replace(file->DisplayName(), protocol_extension, ""));
    }
    cb1.SetVisible(false); // whether a file was given or not; without one an empty image is loaded
    app.loaddata(file);
    bankbox1.SetEnabled(true);
    bankbox0.SetEnabled(true);
    StaticText1.SetEnabled(true);
    return true;
}

void LoadZephonWindow::bank_Change() {
    loadbutton.SetEnabled(true);
}

void LoadZephonWindow::loadbutton_Action() {
    if (const auto refused = refused_bank(bankbox1, bankbox0, "bank")) {
        return app.MsgBox(*refused);
    }
    zephonloadcomplete.SetVisible(false);
    if (app.ShowModal(ready_to_load_dialog(fn1.Text(), bankbox1, bankbox0)) == DialogAnswer::cancel) {
        return;
    }
    zephonloadcomplete.SetVisible(false);
    show_loading_notice(app);
    const int bank_again = bank_of(bankbox1, bankbox0);
    if (bank_again == 0) {
        return app.MsgBox(bank_zero_message);
    }
    send_to_bank(app, bank_again);
}

bool App::_ZephonLoadFromFile_Action() {
    loadfile = true;
    loadzephonWindow->Show();
    return true;
}

} // namespace tessit
