// SPDX-License-Identifier: MIT
#include "platform/menu.h"

#include "platform/fault.h"

namespace tessit {

MenuItem& MenuBar::item(std::string_view name) {
    for (Menu& menu : menus_) {
        for (MenuItem& item : menu.items) {
            if (item.name() == name) {
                return item;
            }
        }
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
