// SPDX-License-Identifier: MIT
#include "platform/menu.h"

#include "platform/fault.h"

namespace tessit {

MenuItem* MenuBar::find(std::string_view name) {
    for (Menu& menu : menus_) {
        for (MenuItem& item : menu.items) {
            if (item.name() == name) {
                return &item;
            }
        }
    }
    return nullptr;
}

void MenuBar::bind(std::string_view name, std::function<bool()> action) {
    if (MenuItem* item = find(name)) {
        return item->bind(std::move(action));
    }
    without_entry_.insert_or_assign(std::string(name), std::move(action));
}

MenuItem& MenuBar::item(std::string_view name) {
    if (MenuItem* found = find(name)) {
        return *found;
    }
    throw Fault(FaultKind::nil_object, "The menu bar has no entry \"" + std::string(name) + "\".");
}

void MenuBar::restore_auto_enable() {
    for (Menu& menu : menus_) {
        for (MenuItem& item : menu.items) {
            item.restore_auto_enable();
        }
    }
}

} // namespace tessit
