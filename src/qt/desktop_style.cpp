// SPDX-License-Identifier: MIT
#include "qt/desktop_style.h"

#include <QGuiApplication>
#include <QStyleOption>
#include <algorithm>

namespace tessit::qt {

namespace {
constexpr std::size_t most_palettes = 32; // the desktop may have changed its colours many times
}

int DesktopStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                            QStyleHintReturn* returned) const {
    return hint == SH_TitleBar_ModifyNotification ? 0 : QProxyStyle::styleHint(hint, option, widget, returned);
}

// What every desktop has, "hicolor", holds no signs, and reading what it holds would delay the first message by some
// milliseconds; Qt's own signs are what such a search ends with.
QIcon DesktopStyle::standardIcon(StandardPixmap sign, const QStyleOption* option, const QWidget* widget) const {
    const bool aware = QGuiApplication::desktopSettingsAware();
    QGuiApplication::setDesktopSettingsAware(aware && QIcon::themeName() != QLatin1String("hicolor"));
    QIcon icon = QProxyStyle::standardIcon(sign, option, widget);
    QGuiApplication::setDesktopSettingsAware(aware);
    return icon;
}

void DesktopStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                                 const QWidget* widget) const {
    share_palette_of(option);
    QProxyStyle::drawPrimitive(element, option, painter, widget);
}

void DesktopStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                               const QWidget* widget) const {
    share_palette_of(option);
    QProxyStyle::drawControl(element, option, painter, widget);
}

void DesktopStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                                      const QWidget* widget) const {
    share_palette_of(option);
    QProxyStyle::drawComplexControl(control, option, painter, widget);
}

// An option is made for one drawing, and the palette that it gets has the same colours: whoever made it sees no change.
void DesktopStyle::share_palette_of(const QStyleOption* option) const {
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
