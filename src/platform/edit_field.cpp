// SPDX-License-Identifier: MIT
#include "platform/edit_field.h"

#include "platform/archive.h"
#include "platform/text.h"

#include <algorithm>

namespace tessit {

EditField::EditField(Window& window, const ControlDesign& design, EditFieldDesign own)
    : Control(window, design), own_(std::move(own)), styled_(accepted(own_.text)), text_size_(own_.text_size) {}

std::string EditField::accepted(std::string_view text) const {
    const std::string result = with_carriage_returns(text);
    return own_.multiline ? result : in_one_line(result);
}

// Lines are never glued: "100" and "200" are no 100200.
std::string EditField::in_one_line(std::string_view text) const {
    std::string line;
    for (const std::string& piece : Split(text, "\r")) {
        if (!piece.empty() && !line.empty()) {
            line += own_.line_end ? own_.line_end() : " ";
        }
        line += piece;
    }
    return line;
}

void EditField::SetText(std::string_view text) {
    take(tessit::StyledText(accepted(text)));
}

void EditField::SetStyledText(tessit::StyledText text) {
    take(std::move(text));
}

void EditField::take(tessit::StyledText next) {
    if (next == styled_) {
        return;
    }
    const bool text_differs = next.Text() != Text();
    styled_ = std::move(next);
    if (text_differs) {
        chosen_style_.reset();
        select({.start = selection_.start});
    }
    show_change();
    if (text_differs) {
        raise("TextChange", own_.on_text_change);
    }
}

void EditField::archive_values(Archive& archive) {
    std::string text = Text();
    archive.text("text", text);
    if (text != Text()) {
        styled_ = tessit::StyledText(std::move(text));
        select({.start = selection_.start});
    }
}

void EditField::SetTextSize(int points) {
    if (points != text_size_) {
        text_size_ = points;
        show_change();
    }
}

TextStyle EditField::input_style() const {
    return chosen_style_.value_or(styled_.style_for_input(selection_.start));
}

void EditField::toggle(TextFlag property) {
    const auto [start, length] = selection_;
    if (length == 0) {
        TextStyle style = input_style();
        style.*property = !(style.*property);
        chosen_style_ = style;
        return show_change();
    }
    tessit::StyledText next = styled_;
    next.set(start, length, property, !next.all(start, length, property));
    take(std::move(next));
}

void EditField::select(TextSelection selection) {
    const int length = Len(Text());
    selection.start = std::clamp(selection.start, 0, length);
    selection.length = std::clamp(selection.length, 0, length - selection.start);
    if (selection != selection_) {
        selection_ = selection;
        chosen_style_.reset();
    }
}

void EditField::SelectAll() {
    select({.start = 0, .length = Len(Text())});
    if (view() != nullptr) {
        view()->select_all();
    }
}

bool EditField::holds_input() const {
    return !own_.read_only && Text() != accepted(own_.text);
}

std::string EditField::SelText() const {
    return Mid(Text(), selection_.start, selection_.length);
}

void EditField::SetSelText(std::string_view text) {
    const int start = selection_.start;
    const std::string put_in = accepted(text);
    tessit::StyledText next = styled_;
    next.replace(start, selection_.length, put_in, input_style());
    take(std::move(next));
    select({.start = start + Len(put_in)});
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
                edit(Text() + character);
            }
        }
    });
}

void EditField::press(int key) {
    from_user("KeyDown", [&] {
        if (!key_down(ChrB(key)) && own_.multiline && key == keys::return_) {
            edit(Text() + carriage_return);
        }
    });
}

void EditField::edit(std::string_view text) {
    tessit::StyledText next = styled_;
    next.change_to(accepted(text), chosen_style_);
    edit(next);
}

void EditField::edit(const tessit::StyledText& text) {
    if (!usable() || own_.read_only) {
        return show_change();
    }
    const int length = Len(text.Text());
    if (own_.limit_text > 0 && length > own_.limit_text && length > Len(Text())) {
        return show_change();
    }
    const bool text_differs = text.Text() != Text();
    from_user("TextChange", [&] {
        take(text);
        if (text_differs) {
            raise("Edit", own_.on_edit);
        }
    });
}

void EditField::leave() {
    if (own_.on_lost_focus) {
        from_user("LostFocus", own_.on_lost_focus);
    }
}

} // namespace tessit
