// SPDX-License-Identifier: MIT
// A text field. LF and CR LF become CR as text comes in; a single-line field holds no line end at all.
#pragma once

#include "platform/control.h"

#include <string_view>

namespace tessit {

struct EditFieldDesign {
    const char* text = "";
    int limit_text = 0; // most characters that the user can enter; 0 for no limit
    Align align = Align::standard;
    bool read_only = false;
    bool multiline = false;
    int text_size = 0; // in points; 0 for the system's size
    Color back_color{0xFFFFFF};
    std::function<bool(const std::string& key)> on_key_down{}; // true: the key is used up
    std::function<void()> on_text_change{};
    std::function<void()> on_lost_focus{};
};

struct TextSelection { // in characters
    int start = 0;
    int length = 0;

    bool operator==(const TextSelection&) const = default;
};

class EditField : public Control {
public:
    EditField(Window& window, const ControlDesign& design, EditFieldDesign own = {});

    const std::string& Text() const { return text_; }
    void SetText(std::string_view text); // raises TextChange when the text differs; the limit is the user's alone
    const EditFieldDesign& own() const { return own_; }

    // What the user has selected; a place between characters where the length is 0. A text set by the program leaves
    // a place, as near to the old start as the text allows.
    int SelStart() const { return selection_.start; }
    int SelLength() const { return selection_.length; }
    std::string SelText() const;
    void SetSelText(std::string_view text); // in place of the selection, which is then the place behind it

    // User input. `type` sends each character through KeyDown and then to the end of the text; `press` sends a key
    // that is no character. `key_down` is KeyDown alone: true when the key is used up. `edit` is the whole text as
    // the user changed it in a widget.
    void type(std::string_view text);
    void press(int key);
    bool key_down(const std::string& key);
    void edit(std::string_view text);
    void select(TextSelection selection); // kept within the text
    void leave();

private:
    std::string accepted(std::string_view text) const;

    const EditFieldDesign own_;
    std::string text_;
    TextSelection selection_;
};

} // namespace tessit
