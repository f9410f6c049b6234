// SPDX-License-Identifier: MIT
#include "platform/edit_field.h"

#include "platform/text.h"

#include <algorithm>

namespace tessit {

EditField::EditField(Window& window, const ControlDesign& design, EditFieldDesign own)
    : Control(window, design), own_(std::move(own)), text_(accepted(own_.text)) {}

std::string EditField::accepted(std::string_view text) const {
    std::string result = with_carriage_returns(text);
    return own_.multiline ? result : ReplaceAll(result, "\r", "");
}

void EditField::SetText(std::string_view text) {
    std::string next = accepted(text);
    if (next != text_) {
        text_ = std::move(next);
        select({.start = selection_.start});
        show_change();
        raise("TextChange", own_.on_text_change);
    }
}

void EditField::select(TextSelection selection) {
    const int length = Len(text_);
    selection_.start = std::clamp(selection.start, 0, length);
    selection_.length = std::clamp(selection.length, 0, length - selection_.start);
}

std::string EditField::SelText() const {
    return Mid(text_, selection_.start, selection_.length);
}

void EditField::SetSelText(std::string_view text) {
    const int start = selection_.start;
    const int behind = start + selection_.length;
    const std::string before = Mid(text_, 0, start) + accepted(text);
    SetText(before + Mid(text_, behind, Len(text_) - behind));
    select({.start = Len(before)});
}

bool EditField::key_down(const std::string& key) {
    bool used_up = false;
    if (own_.on_key_down && usable()) {
        from_user("KeyDown", [&] { used_up = own_.on_key_down(key); });
    }
    return used_up;
}

void EditField::type(std::string_view text) {
    from_user("KeyDown", [&] {
        for (const std::string& character : characters(text)) {
            if (usable() && !key_down(character)) {
                edit(text_ + character);
            }
        }
    });
}

void EditField::press(int key) {
    from_user("KeyDown", [&] {
        if (!key_down(ChrB(key)) && own_.multiline && key == keys::return_) {
            edit(text_ + carriage_return);
        }
    });
}

void EditField::edit(std::string_view text) {
    if (!usable() || own_.read_only) {
        return show_change();
    }
    std::string next = accepted(text);
    if (own_.limit_text > 0 && Len(next) > own_.limit_text && Len(next) > Len(text_)) {
        return show_change();
    }
    from_user("TextChange", [&] { SetText(next); });
}

void EditField::leave() {
    if (own_.on_lost_focus) {
        from_user("LostFocus", own_.on_lost_focus);
    }
}

} // namespace tessit
