// SPDX-License-Identifier: MIT
// What the two load windows share: the boxes for a bank's two digits, the check of the bank and the question before
// a load.
#pragma once

#include "platform/choice.h"
#include "platform/dialogs.h"

#include <optional>
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

// What to tell of a bank that can't be loaded: 0, above 40, or a text of the user's own in a box, which would count as
// another bank. None where the boxes show bank 1 to 40. `bank_word` is "Bank" or "bank": the windows write it
// differently.
std::optional<std::string> refused_bank(const PopupMenu& tens, const PopupMenu& units, const char* bank_word);

MessageDialog ready_to_load_dialog(const std::string& name, const PopupMenu& tens, const PopupMenu& units);

void show_loading_notice(App& app);

// Sets the start address of the bank and sends the register image to it.
void send_to_bank(App& app, int bank);

} // namespace tessit
