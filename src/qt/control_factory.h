// SPDX-License-Identifier: MIT
// Which widget shows which control.
#pragma once

#include "qt/control_widget.h"

#include <memory>
#include <vector>

namespace tessit::qt {

// The adapter with its new widget, a child of `parent`. Throws Fault for a class of control that nothing shows.
std::unique_ptr<ControlWidget> make_control_widget(Control& control, QWidget& parent);

// Sees to it that assistive technology has a name for each control. Combo boxes need a label widget for that, since
// their accessible name is their text.
void give_accessible_names(const std::vector<std::unique_ptr<ControlWidget>>& controls);

} // namespace tessit::qt
