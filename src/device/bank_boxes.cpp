// SPDX-License-Identifier: MIT
#include "device/bank_boxes.h"

#include "core/app.h"
#include "core/popup_window.h"
#include "device/wire.h"
#include "platform/text.h"

namespace tessit {

std::optional<std::string> refused_bank(const PopupMenu& tens, const PopupMenu& units, const char* bank_word) {
    const bool digits = tens.ListIndex() >= 0 && units.ListIndex() >= 0;
    const int bank = bank_of(tens, units);
    if (digits && bank == 0) {
        return bank_zero_message;
    }
    if (digits && bank <= wire::banks) {
        return std::nullopt;
    }
    return std::string("Invalid, ") + bank_word + " " + (digits ? Str(bank) : tens.Text() + units.Text()) +
           " selected\rChoose a bank 1 to " + Str(wire::banks);
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
