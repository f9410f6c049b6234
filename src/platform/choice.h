// SPDX-License-Identifier: MIT
// PopupMenu: a list of texts of which one, or none (-1), is chosen. ComboBox: the same with a text that can also be
// typed freely. `Change` comes only when the index really changes, whoever changes it.
#pragma once

#include "platform/control.h"

#include <string>
#include <string_view>
#include <vector>

namespace tessit {

struct ChoiceDesign {
    std::vector<std::string> items{};
    int list_index = -1;
    bool completes = false; // what is typed is completed to the first item that begins so
    std::function<void()> on_change{};
    std::function<void()> on_text_change{}; // every change of the text, also to another that is in no list
};

class PopupMenu : public Control {
public:
    PopupMenu(Window& window, const ControlDesign& design, ChoiceDesign own = {});
    bool completes() const { return completes_; }

    int ListCount() const { return static_cast<int>(items_.size()); }
    const std::string& List(int index) const; // Fault out_of_bounds beyond the list
    void AddRow(std::string_view text);
    // Another list in place of the present one; the chosen text stays chosen when it is still there. No Change.
    void ReplaceRows(std::vector<std::string> items);

    int ListIndex() const { return list_index_; }
    void SetListIndex(int index);                          // an index beyond the list leaves everything as it was
    void ChooseText(std::string_view text, int first = 0); // from this index on; without such an entry nothing changes
    const std::string& Text() const { return text_; }

    void choose(int index); // user input

protected:
    int find(std::string_view text) const; // -1 where no item is the same text
    void set(int index, std::string text);
    void archive_values(Archive& archive) override; // not the list

private:
    std::vector<std::string> items_;
    int list_index_ = -1;
    std::string text_;
    const bool completes_;
    const std::function<void()> on_change_;
    const std::function<void()> on_text_change_;
};

class ComboBox : public PopupMenu {
public:
    using PopupMenu::PopupMenu;

    // A text of the list selects its entry, any other text sets the index to -1 and stays as typed.
    void SetText(std::string_view text);
    void edit(std::string_view text); // user input
};

} // namespace tessit
