// SPDX-License-Identifier: MIT
// A text field. LF and CR LF become CR as text comes in; in a single-line field what stands for line ends takes their
// place. Every field's text has styles, which the printed page shows; in the window a styled field shows them.
#pragma once

#include "platform/control.h"
#include "platform/styled_text.h"

#include <optional>
#include <string_view>

namespace tessit {

struct EditFieldDesign {
    const char* text = "";
    int limit_text = 0; // most characters that the user can enter; 0 for no limit
    Align align = Align::standard;
    bool read_only = false;
    bool multiline = false;
    bool styled = false; // shows styles; only where multiline
    int text_size = 0;   // in points; 0 for the system's size
    Color back_color{0xFFFFFF};
    bool typed_behind = false;               // the text is a prompt: the keyboard enters the field behind it
    std::function<std::string()> line_end{}; // what stands for line ends in a single line; none: a blank
    // Any key but a bare modifier; the text is empty for a shortcut and a key without a character. True: used up.
    std::function<bool(const std::string& key)> on_key_down{};
    std::function<void()> on_text_change{};
    std::function<void()> on_edit{}; // the user changed the text, by whatever means; after the change
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

    const std::string& Text() const { return styled_.Text(); }
    // In the plain style. Raises TextChange when the text differs; the limit is the user's alone.
    void SetText(std::string_view text);
    const EditFieldDesign& own() const { return own_; }

    // What the user has selected; a place between characters where the length is 0. A text set by the program leaves
    // a place, as near to the old start as the text allows.
    int SelStart() const { return selection_.start; }
    int SelLength() const { return selection_.length; }
    std::string SelText() const;
    void SelectAll();                       // so that the next text typed takes its place
    void SetSelText(std::string_view text); // in place of the selection, which is then the place behind it

    int TextSize() const { return text_size_; } // of characters whose style has no size; 0 for the system's
    void SetTextSize(int points);
    const tessit::StyledText& StyledText() const { return styled_; }
    void SetStyledText(tessit::StyledText text);
    // Puts the style on, or off where all that is selected has it. With an empty selection it is for what is typed
    // next.
    void ToggleSelectionBold() { toggle(&TextStyle::bold); }
    void ToggleSelectionItalic() { toggle(&TextStyle::italic); }
    void ToggleSelectionUnderline() { toggle(&TextStyle::underline); }
    const std::optional<TextStyle>& chosen_style() const { return chosen_style_; } // of what is typed next

    // User input. `type` sends each character through KeyDown and then to the end of the text; `press` sends a key
    // that is no character. `key_down` is KeyDown alone: true when the key is used up. `edit` is the whole text as
    // the user changed it in a widget, with its styles where the widget has them.
    void type(std::string_view text);
    void press(int key);
    bool key_down(const std::string& key);
    void edit(std::string_view text);
    void edit(const tessit::StyledText& text); // with CR as its line end
    void select(TextSelection selection);      // kept within the text
    void leave();
    bool holds_input() const override;

protected:
    void archive_values(Archive& archive) override; // without styles and selection

private:
    std::string accepted(std::string_view text) const;
    std::string in_one_line(std::string_view text) const;
    void take(tessit::StyledText next);
    void toggle(TextFlag property);
    TextStyle input_style() const;

    const EditFieldDesign own_;
    tessit::StyledText styled_;
    int text_size_;
    TextSelection selection_;
    std::optional<TextStyle> chosen_style_; // at this place; none: that of the text there
};

} // namespace tessit
