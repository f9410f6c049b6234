// SPDX-License-Identifier: MIT
// A BevelButton, checked where it is on. Its picture is drawn in the palette's own colours at the screen's own
// resolution.
#pragma once

#include "platform/bevel_button.h"
#include "qt/control_widget.h"

#include <QToolButton>

namespace tessit::qt {

class BevelButtonWidget : public ControlWidget {
public:
    BevelButtonWidget(BevelButton& button, QWidget& parent);

private:
    void show_values() override;

    BevelButton& button_;
};

} // namespace tessit::qt
