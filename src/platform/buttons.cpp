// SPDX-License-Identifier: MIT
#include "platform/buttons.h"

#include "platform/archive.h"
#include "platform/window.h"

namespace tessit {

void PushButton::click() {
    if (!usable()) {
        return;
    }
    from_user("Action", [this] {
        bool used_up = own_.on_mouse_down != nullptr; // also when it ends in a fault
        if (own_.on_mouse_down) {
            from_user("MouseDown", [&] { used_up = own_.on_mouse_down(); });
        }
        if (!used_up && own_.on_action) {
            own_.on_action();
        }
    });
}

void RadioButton::SetValue(bool value) {
    if (value == value_) {
        return;
    }
    value_ = value;
    if (value) {
        for (Control* control : window().controls()) {
            auto* other = dynamic_cast<RadioButton*>(control);
            if (other != nullptr && other != this && other->own_.group == own_.group) {
                other->SetValue(false);
            }
        }
    }
    show_change();
}

void RadioButton::archive_values(Archive& archive) {
    archive.flag("on", value_);
}

void RadioButton::click() {
    if (usable()) {
        from_user("Action", [this] {
            SetValue(true);
            if (own_.on_action) {
                own_.on_action();
            }
        });
    }
}

} // namespace tessit
