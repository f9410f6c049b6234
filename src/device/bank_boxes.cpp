// SPDX-License-Identifier: MIT
#include "device/bank_boxes.h"

#include "core/app.h"
#include "core/popup_window.h"
#include "device/wire.h"
#include "platform/text.h"

namespace tessit {

std::string bank_too_high_message(const char* bank_word, int bank) {
    return std::string("Invalid, ") + bank_word + " " + Str(bank) + " selected\rChoose a bank 1 to " + Str(wire::banks);
}

MessageDialog ready_to_load_dialog(const std::string& name, const PopupMenu& tens, const PopupMenu& units) {
    return {.Message = "Ready to load: " + name + "\rInto Bank: " + tens.Text() + units.Text() +
                       "\r\rImmediately after clicking OK - Press 5 then 3 on the Zephon",
            .Icon = DialogIcon::caution,
            .ActionButton = {"OK", true},
            .CancelButton = {"Cancel", true}};
}

void show_loading_notice(App& app) {
    app.popupwindow->statusField.SetText(" Loading Zephon");
    app.popupwindow->ProgressBar1.SetValue(90); // the bar doesn't move further
    app.popupwindow->Show();
    app.popupwindow->ProgressBar1.Refresh();
}

void send_to_bank(App& app, int bank) {
    const wire::Address address = wire::bank_address(bank);
    app.addresshi = address.high;
    app.addresslo = address.low;
    app.sendzephon();
}

} // namespace tessit
