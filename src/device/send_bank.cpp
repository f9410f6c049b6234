// SPDX-License-Identifier: MIT
// App::sendzephon: loads the register image into the bank whose address the load windows have set, and tells how it
// ended.
#include "core/app.h"
#include "core/popup_window.h"
#include "device/load_direct_window.h"
#include "device/load_zephon_window.h"
#include "device/loading.h"
#include "device/settings_window.h"
#include "platform/text.h"

namespace tessit {

namespace {

// The digits are those of load_direct_window also when a file is loaded, and the address is the bank's, not the
// level's.
std::string address_not_acknowledged(App& app, wire::Address bank) {
    return "Bank " + Str(app.load_direct_window->bank_bt_hi) + Str(app.load_direct_window->bank_bt_lo) + "\rAddress " +
           Str(bank.high) + "  " + Str(bank.low) + " Not Acknowledged";
}

// Empty where all levels have been acknowledged.
std::string failure_message(App& app, const LoadingResult& result, wire::Address bank) {
    switch (result.end) {
    case LoadingEnd::no_connection:
        return "No Connection Found";
    case LoadingEnd::address_not_acknowledged:
        return address_not_acknowledged(app, bank);
    case LoadingEnd::data_not_accepted:
        return "Data not Accepted. Level: " + Str(result.level);
    default:
        return "";
    }
}

} // namespace

void App::sendzephon() {
    const wire::Address bank{addresshi, addresslo};
    const Microseconds start = now();
    const LoadingResult result = load_bank(desktop().clock(), serial_line(), *this, bank);
    StaticText& completion = loadfile ? loadzephonWindow->zephonloadcomplete : load_direct_window->loadcompleted;
    if (const std::string failure = failure_message(*this, result, bank); !failure.empty()) {
        ShowModal({.Message = failure, .Explanation = in_use_text(serial_line()), .Icon = DialogIcon::caution});
        completion.SetVisible(false);
        return popupwindow.Close();
    }
    const auto seconds = static_cast<int>((now() - start) / 1'000'000);
    completion.SetText("Zephon loaded in " + Str(seconds) + " seconds");
    completion.SetVisible(true);
    if (!loadfile) {
        load_direct_window->LoadButton.SetEnabled(true);
    }
    popupwindow.Close();
}

} // namespace tessit
