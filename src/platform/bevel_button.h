// SPDX-License-Identifier: MIT
// A button with a picture and no caption, which shows whether what it stands for is on; its label is what assistive
// technology says.
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
    bool Value() const { return value_; } // on; a click leaves it to the program
    void SetValue(bool value) {
        if (value != value_) {
            value_ = value;
            show_change();
        }
    }

    void click() { // user input, by mouse or keyboard
        if (usable() && own_.on_action) {
            from_user("Action", own_.on_action);
        }
    }

private:
    const BevelButtonDesign own_;
    bool value_ = false;
};

} // namespace tessit
