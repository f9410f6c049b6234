// SPDX-License-Identifier: MIT
#include "qt/shared_palettes.h"

#include <QStyleOption>
#include <algorithm>

namespace tessit::qt {

namespace {
constexpr std::size_t most_palettes = 32; // the desktop may have changed its colours many times
}

int SharedPalettes::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                              QStyleHintReturn* returned) const {
    return hint == SH_TitleBar_ModifyNotification ? 0 : QProxyStyle::styleHint(hint, option, widget, returned);
}

void SharedPalettes::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                                   const QWidget* widget) const {
    share_palette_of(option);
    QProxyStyle::drawPrimitive(element, option, painter, widget);
}

void SharedPalettes::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                                 const QWidget* widget) const {
    share_palette_of(option);
    QProxyStyle::drawControl(element, option, painter, widget);
}

void SharedPalettes::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                                        const QWidget* widget) const {
    share_palette_of(option);
    QProxyStyle::drawComplexControl(control, option, painter, widget);
}

// An option is made for one drawing, and the palette that it gets has the same colours: whoever made it sees no change.
void SharedPalettes::share_palette_of(const QStyleOption* option) const {
    if (option == nullptr) {
        return;
    }
    auto shared = std::find(palettes_.begin(), palettes_.end(), option->palette);
    if (shared == palettes_.end()) {
        if (palettes_.size() == most_palettes) {
            palettes_.clear();
        }
        shared = palettes_.insert(palettes_.end(), option->palette);
    }
    const auto group = option->palette.currentColorGroup();
    QPalette& palette = const_cast<QStyleOption*>(option)->palette;
    palette = *shared;
    palette.setCurrentColorGroup(group);
}

} // namespace tessit::qt
