// SPDX-License-Identifier: MIT
#include "platform/choice.h"

#include "platform/archive.h"
#include "platform/array.h"
#include "platform/text.h"

#include <algorithm>

namespace tessit {

PopupMenu::PopupMenu(Window& window, const ControlDesign& design, ChoiceDesign own)
    : Control(window, design), items_(std::move(own.items)), list_index_(own.list_index),
      text_(list_index_ < 0 ? "" : List(list_index_)), completes_(own.completes), on_change_(std::move(own.on_change)),
      on_text_change_(std::move(own.on_text_change)) {}

const std::string& PopupMenu::List(int index) const {
    return items_[checked_index(index, items_.size())];
}

void PopupMenu::AddRow(std::string_view text) {
    items_.emplace_back(text);
    show_change();
}

void PopupMenu::ReplaceRows(std::vector<std::string> items) {
    if (items != items_) {
        items_ = std::move(items);
        list_index_ = find(text_);
        show_change();
    }
}

void PopupMenu::SetListIndex(int index) {
    if (index >= 0 && index < ListCount()) {
        set(index, List(index));
    } else if (index == -1) {
        set(-1, "");
    }
}

void PopupMenu::set(int index, std::string text) {
    const bool changed = index != list_index_;
    const bool text_changed = text != text_;
    if (changed || text_changed) {
        list_index_ = index;
        text_ = std::move(text);
        show_change();
    }
    if (changed) {
        raise("Change", on_change_);
    }
    if (text_changed) {
        raise("TextChange", on_text_change_);
    }
}

void PopupMenu::archive_values(Archive& archive) {
    archive.number("index", list_index_);
    check_put_back(list_index_, -1, ListCount());
    archive.text("text", text_);
}

void PopupMenu::ChooseText(std::string_view text, int first) {
    for (int index = first; index < ListCount(); ++index) {
        if (same_text(items_[static_cast<std::size_t>(index)], text)) {
            return SetListIndex(index);
        }
    }
}

int PopupMenu::find(std::string_view text) const {
    const auto found =
        std::find_if(items_.begin(), items_.end(), [&](const auto& item) { return same_text(item, text); });
    return found == items_.end() ? -1 : static_cast<int>(found - items_.begin());
}

void PopupMenu::choose(int index) {
    if (usable()) {
        from_user("Change", [&] { SetListIndex(index); });
    }
}

void ComboBox::SetText(std::string_view text) {
    set(find(text), std::string(text));
}

void ComboBox::edit(std::string_view text) {
    if (usable()) {
        from_user("Change", [&] { SetText(text); });
    }
}

} // namespace tessit
