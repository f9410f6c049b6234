// SPDX-License-Identifier: MIT
// The program's menu bar in one window, and menus of some of its entries. Whether these are enabled is asked of the
// program each time a menu opens; of the bar also when its window comes up, for those who look before they open it.
#pragma once

#include "platform/window.h"

#include <QMenuBar>
#include <QString>
#include <string>
#include <string_view>
#include <vector>

namespace tessit::qt {

// The captions with one "&" each before a letter that no other caption of the list has, as long as letters last.
// A caption's first letter is preferred, then those that start a word, then any.
std::vector<QString> with_mnemonics(const std::vector<std::string>& captions);

// Fills `bar`. Nothing is passed to the program any more once `window` has become null.
void fill_menu_bar(QMenuBar& bar, Window*& window);

// Shows a menu of these entries of the menu bar at a place of the screen. It belongs to `owner`.
void show_entries(const std::vector<std::string_view>& names, QPoint place, QWidget& owner, Window*& window);

} // namespace tessit::qt
