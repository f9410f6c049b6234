// SPDX-License-Identifier: MIT
// A button with a picture and no caption; its label is what assistive technology says.
#pragma once

#include "platform/control.h"

namespace tessit {

enum class ButtonPicture { bold, italic, underline };

struct BevelButtonDesign {
    ButtonPicture picture;
    std::function<void()> on_action{};
};

class BevelButton : public Control {
public:
    BevelButton(Window& window, const ControlDesign& design, BevelButtonDesign own)
        : Control(window, design), own_(std::move(own)) {}

    const BevelButtonDesign& own() const { return own_; }

    void click() { // user input, by mouse or keyboard
        if (usable() && own_.on_action) {
            from_user("Action", own_.on_action);
        }
    }

private:
    const BevelButtonDesign own_;
};

} // namespace tessit
