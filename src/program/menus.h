// SPDX-License-Identifier: MIT
// The menu bar as one table, and one table of enable rules per window. Actions are App methods, bound in menus.cpp.
#pragma once

#include "platform/menu.h"

#include <string_view>
#include <vector>

namespace tessit {

MenuBar make_menu_bar();

// What a window's Event_EnableMenuItems sets; entries that it does not name stay as their Auto flag leaves them.
struct EnableRules {
    std::vector<std::string_view> enables;
    std::vector<std::string_view> disables;

    void apply(MenuBar& bar) const;
};

namespace enable_rules {
extern const EnableRules Window1;
extern const EnableRules editwindow;
extern const EnableRules consolidatorWindow;
extern const EnableRules composewindow;
extern const EnableRules ReadZPWindow;
extern const EnableRules pgsetupwindow;
extern const EnableRules settings_windows; // settings_window and SetPreferencesWindow
} // namespace enable_rules

} // namespace tessit
