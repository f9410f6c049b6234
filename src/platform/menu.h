// SPDX-License-Identifier: MIT
// The menu bar: one for all windows. Whether an entry is enabled is asked anew each time before the menu is used:
// every entry goes back to its auto-enable flag, then the window in front has its say. An entry without an action
// is never enabled.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace tessit {

inline constexpr std::string_view menu_separator = "-";

class MenuItem {
public:
    MenuItem(std::string name, std::string caption, bool auto_enable)
        : name_(std::move(name)), caption_(std::move(caption)), auto_enable_(auto_enable) {}

    const std::string& name() const { return name_; }
    const std::string& caption() const { return caption_; }
    bool is_separator() const { return caption_ == menu_separator; }

    bool Enabled() const { return enabled_ && action_ != nullptr; }
    void SetEnabled(bool enabled) { enabled_ = enabled; }
    void Enable() { SetEnabled(true); }
    void restore_auto_enable() { enabled_ = auto_enable_; }

    void bind(std::function<bool()> action) { action_ = std::move(action); }
    void run() const {
        if (action_) {
            action_();
        }
    }

private:
    std::string name_;
    std::string caption_;
    bool auto_enable_;
    bool enabled_ = false;
    std::function<bool()> action_;
};

struct Menu {
    std::string name;
    std::string caption;
    std::vector<MenuItem> items;
};

class MenuBar {
public:
    MenuBar() = default;
    explicit MenuBar(std::vector<Menu> menus) : menus_(std::move(menus)) {}

    const std::vector<Menu>& menus() const { return menus_; }
    MenuItem& item(std::string_view name); // Fault nil_object where no entry has this name
    // Gives a command its action. A name that no entry carries keeps it without a caller.
    void bind(std::string_view name, std::function<bool()> action);
    const std::map<std::string, std::function<bool()>, std::less<>>& without_entry() const { return without_entry_; }
    void restore_auto_enable();

private:
    MenuItem* find(std::string_view name);

    std::vector<Menu> menus_;
    std::map<std::string, std::function<bool()>, std::less<>> without_entry_;
};

} // namespace tessit
