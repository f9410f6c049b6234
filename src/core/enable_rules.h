// SPDX-License-Identifier: MIT
// What a window's Event_EnableMenuItems sets; entries that it does not name stay as their Auto flag leaves them. Each
// window's rules stand beside it.
#pragma once

#include "platform/menu.h"

#include <string_view>
#include <vector>

namespace tessit {

struct EnableRules {
    std::vector<std::string_view> enables;
    std::vector<std::string_view> disables;

    void apply(MenuBar& bar) const;
};

extern const EnableRules settings_window_rules; // of settings_window and SetPreferencesWindow

} // namespace tessit
