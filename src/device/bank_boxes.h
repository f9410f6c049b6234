// SPDX-License-Identifier: MIT
// What the two load windows share: the boxes for a bank's two digits, the check of the bank and the question before
// a load.
#pragma once

#include "platform/choice.h"
#include "platform/dialogs.h"

#include <string>
#include <vector>

namespace tessit {

class App;

inline std::vector<std::string> bank_tens() {
    return {"0", "1", "2", "3", "4"};
}

inline std::vector<std::string> bank_units() {
    return {"0", "1", "2", "3", "4", "5", "6", "7", "8", "9"};
}

inline int bank_of(const PopupMenu& tens, const PopupMenu& units) {
    return units.ListIndex() + 10 * tens.ListIndex();
}

inline constexpr const char* bank_zero_message = "Invalid, Bank 00 selected";

// `bank_word` is "Bank" or "bank": the two windows write it differently.
std::string bank_too_high_message(const char* bank_word, int bank);

MessageDialog ready_to_load_dialog(const std::string& name, const PopupMenu& tens, const PopupMenu& units);

void show_loading_notice(App& app);

// Sets the start address of the bank and sends the register image to it.
void send_to_bank(App& app, int bank);

} // namespace tessit
