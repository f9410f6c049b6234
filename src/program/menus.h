// SPDX-License-Identifier: MIT
// The menu bar as one table. Actions are App methods, bound in menus.cpp; enable rules stand beside their windows.
#pragma once

#include "platform/menu.h"

namespace tessit {

MenuBar make_menu_bar();

} // namespace tessit
