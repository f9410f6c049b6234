// SPDX-License-Identifier: MIT
#include "platform/styled_text.h"

#include "platform/array.h"
#include "platform/text.h"

#include <algorithm>

namespace tessit {

StyledText::StyledText(const std::vector<StyledRun>& runs) {
    for (const StyledRun& run : runs) {
        text_ += run.text;
        styles_.insert(styles_.end(), static_cast<std::size_t>(Len(run.text)), run.style);
    }
    drop_plain_styles();
}

void StyledText::need_styles() {
    if (styles_.empty()) {
        styles_.resize(static_cast<std::size_t>(Len(text_)));
    }
}

void StyledText::drop_plain_styles() {
    if (std::all_of(styles_.begin(), styles_.end(), [](const TextStyle& style) { return style == TextStyle{}; })) {
        styles_.clear();
    }
}

std::vector<StyledRun> StyledText::runs() const {
    std::vector<StyledRun> result;
    int place = 0;
    for (const std::string& character : characters(text_)) {
        const TextStyle style = style_at(place++);
        if (result.empty() || result.back().style != style) {
            result.push_back({.text = "", .style = style});
        }
        result.back().text += character;
    }
    return result;
}

TextStyle StyledText::style_at(int place) const {
    const auto at = static_cast<std::size_t>(place);
    return place >= 0 && at < styles_.size() ? styles_[at] : TextStyle{};
}

TextRange StyledText::Paragraph(int index) const {
    const Array<std::string> paragraphs = Split(text_, "\r");
    if (index == 1 && paragraphs.count() == 0) {
        return {};
    }
    TextRange range{.StartPos = 0, .Length = Len(paragraphs[index - 1])};
    for (int before = 0; before < index - 1; ++before) {
        range.StartPos += Len(paragraphs[before]) + 1;
    }
    return range;
}

template <class Change> void StyledText::change(int start, int length, Change change) {
    need_styles();
    const int count = static_cast<int>(styles_.size());
    for (int place = std::max(0, start); place < std::min(count, start + length); ++place) {
        change(styles_[static_cast<std::size_t>(place)]);
    }
    drop_plain_styles();
}

void StyledText::SetSize(int start, int length, int size) {
    change(start, length, [size](TextStyle& style) { style.size = size; });
}

void StyledText::set(int start, int length, TextFlag property, bool value) {
    change(start, length, [property, value](TextStyle& style) { style.*property = value; });
}

bool StyledText::all(int start, int length, TextFlag property) const {
    bool result = length > 0;
    for (int place = start; result && place < start + length; ++place) {
        result = style_at(place).*property;
    }
    return result;
}

void StyledText::replace(int start, int length, std::string_view text, const TextStyle& style) {
    if (is_styled() || style != TextStyle{}) {
        need_styles();
        const auto count = static_cast<int>(styles_.size());
        const auto from = styles_.begin() + std::clamp(start, 0, count);
        const auto to = styles_.begin() + std::clamp(start + length, 0, count);
        styles_.insert(styles_.erase(from, to), static_cast<std::size_t>(Len(text)), style);
    }
    std::string next = Mid(text_, 0, start);
    next += text;
    next += Mid(text_, start + length, Len(text_));
    text_ = std::move(next);
    drop_plain_styles();
}

void StyledText::change_to(std::string_view text, const std::optional<TextStyle>& style) {
    if (!is_styled() && !style) {
        text_ = text;
        return;
    }
    const Array<std::string> before = characters(text_);
    const Array<std::string> after = characters(text);
    const int shorter = std::min(before.count(), after.count());
    int head = 0;
    while (head < shorter && before[head] == after[head]) {
        ++head;
    }
    int tail = 0;
    while (tail < shorter - head && before[before.upper_bound() - tail] == after[after.upper_bound() - tail]) {
        ++tail;
    }
    replace(head, before.count() - head - tail, Mid(text, head, after.count() - head - tail),
            style.value_or(style_for_input(head)));
}

} // namespace tessit
