// SPDX-License-Identifier: MIT
// The program's menu bar in one window. Whether entries are enabled is asked of the program each time a menu opens.
#pragma once

#include "platform/window.h"

#include <QMenuBar>
#include <QString>
#include <string>
#include <vector>

namespace tessit::qt {

// The captions with one "&" each before a letter that no other caption of the list has, as long as letters last.
// A caption's first letter is preferred, then those that start a word, then any.
std::vector<QString> with_mnemonics(const std::vector<std::string>& captions);

// Fills `bar`. Nothing is passed to the program any more once `window` has become null.
void fill_menu_bar(QMenuBar& bar, Window*& window);

} // namespace tessit::qt
