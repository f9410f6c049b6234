// SPDX-License-Identifier: MIT
// Push buttons and radio buttons.
#pragma once

#include "platform/control.h"

#include <string_view>

namespace tessit {

// The keys that click a button while no other control uses them.
enum class ButtonKey { none, enter, escape };

struct PushButtonDesign {
    const char* caption = "";
    std::function<void()> on_action{};
    std::function<bool()> on_mouse_down{}; // true: the press is used up and no Action follows
    int text_size = 0;                     // in points; 0 for the system's size
    ButtonKey key = ButtonKey::none;
};

class PushButton : public Control {
public:
    PushButton(Window& window, const ControlDesign& design, PushButtonDesign own = {})
        : Control(window, design), own_(std::move(own)), caption_(own_.caption) {}

    const std::string& Caption() const { return caption_; }
    const PushButtonDesign& own() const { return own_; }

    void click(); // user input, by mouse or keyboard: MouseDown, then Action

private:
    const PushButtonDesign own_;
    std::string caption_;
};

struct RadioButtonDesign {
    const char* caption = "";
    int group = 0; // of the buttons with one number in a window, one at most is on
    bool value = false;
    std::function<void()> on_action{};
};

class RadioButton : public Control {
public:
    RadioButton(Window& window, const ControlDesign& design, RadioButtonDesign own = {})
        : Control(window, design), own_(std::move(own)), value_(own_.value) {}

    bool Value() const { return value_; }
    void SetValue(bool value); // true puts the others of its group off; raises nothing
    const RadioButtonDesign& own() const { return own_; }

    void click(); // user input: puts it on, then Action
    bool holds_input() const override { return value_ && !own_.value; }

protected:
    void archive_values(Archive& archive) override;

private:
    const RadioButtonDesign own_;
    bool value_;
};

} // namespace tessit
