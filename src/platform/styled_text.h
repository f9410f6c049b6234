// SPDX-License-Identifier: MIT
// A text whose characters have styles. Places and lengths are in characters; what reaches beyond the text is cut off.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tessit {

struct TextStyle {
    int size = 0; // in points; 0 for the size of the field that holds the text
    bool bold = false;
    bool italic = false;
    bool underline = false;

    bool operator==(const TextStyle&) const = default;
};

using TextFlag = bool TextStyle::*;

struct TextRange {
    int StartPos = 0;
    int Length = 0;

    bool operator==(const TextRange&) const = default;
};

struct StyledRun {
    std::string text;
    TextStyle style;

    bool operator==(const StyledRun&) const = default;
};

class StyledText {
public:
    StyledText() = default;
    explicit StyledText(std::string text) : text_(std::move(text)) {} // in the plain style
    explicit StyledText(const std::vector<StyledRun>& runs);

    const std::string& Text() const { return text_; }
    bool is_styled() const { return !styles_.empty(); }
    std::vector<StyledRun> runs() const; // the whole text, cut where the style changes
    TextStyle style_at(int place) const; // of the character behind the place; plain where none is

    // A paragraph without its line end, counted from 1. Fault out_of_bounds beyond the last; an empty text has one.
    TextRange Paragraph(int index) const;
    void SetSize(int start, int length, int size);
    void SetBold(int start, int length, bool bold) { set(start, length, &TextStyle::bold, bold); }
    void SetItalic(int start, int length, bool italic) { set(start, length, &TextStyle::italic, italic); }
    void SetUnderline(int start, int length, bool underline) { set(start, length, &TextStyle::underline, underline); }

    void set(int start, int length, TextFlag property, bool value);
    // Whether every character has the property; false for none at all.
    bool all(int start, int length, TextFlag property) const;

    // `text` in place of the characters from `start` on, in the style given.
    void replace(int start, int length, std::string_view text, const TextStyle& style);
    // The style of what is put in at a place: its left neighbour's, at the beginning that of the text that follows.
    TextStyle style_for_input(int start) const { return style_at(start > 0 ? start - 1 : 0); }
    // The whole text as it stands after one edit somewhere in it: what came in takes the style given, else the style
    // for input.
    void change_to(std::string_view text, const std::optional<TextStyle>& style = {});

    bool operator==(const StyledText&) const = default;

private:
    template <class Change> void change(int start, int length, Change change);
    void need_styles();
    void drop_plain_styles();

    std::string text_;
    std::vector<TextStyle> styles_; // one for each character; empty while all are plain
};

} // namespace tessit
