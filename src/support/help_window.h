// SPDX-License-Identifier: MIT
// Shows the help or the manual.
#pragma once

#include "core/app.h"
#include "platform/html_viewer.h"

namespace tessit {

class HelpWindow : public Window {
public:
    explicit HelpWindow(App& owner)
        : Window(
              owner,
              {.name = "helpWindow", .title = "Help", .width = 932, .height = 421, .opening = Opening::shows_itself}) {}

    HTMLViewer HTMLV{*this, {.name = "HTMLV", .place = {0, 0, 932, 421}, .label = "Help", .grow = Grow::both}};
};

} // namespace tessit
