// SPDX-License-Identifier: MIT
#include "qt/screen_place.h"

#include <QApplication>
#include <QScreen>
#include <QWidget>
#include <algorithm>

namespace tessit::qt {

namespace {

constexpr int title_bar = 32; // what a window manager adds at the top; the other sides are thin
constexpr int side = 4;
constexpr int step = 28;

QRect free_area(const QWidget* active) {
    const QScreen* screen = active != nullptr ? active->screen() : QGuiApplication::primaryScreen();
    return screen->availableGeometry().adjusted(side, title_bar, -side, -side);
}

QPoint wanted_corner(QSize size, WindowFrame frame, const QWidget* active, const QRect& area) {
    QRect place({}, size);
    const bool beside = active != nullptr && frame != WindowFrame::document;
    place.moveCenter(beside ? active->geometry().center() : area.center());
    if (beside && frame == WindowFrame::dialog) {
        place.translate(step, step);
    }
    return place.topLeft();
}

QPoint inside(QPoint corner, QSize size, const QRect& area) {
    return {std::clamp(corner.x(), area.left(), std::max(area.left(), area.right() + 1 - size.width())),
            std::clamp(corner.y(), area.top(), std::max(area.top(), area.bottom() + 1 - size.height()))};
}

bool taken(QPoint corner) {
    const QWidgetList windows = QApplication::topLevelWidgets();
    return std::any_of(windows.begin(), windows.end(), [&](const QWidget* window) {
        return window->isVisible() && (window->geometry().topLeft() - corner).manhattanLength() < step / 2;
    });
}

} // namespace

QRect place_for_window(QSize content, WindowFrame frame, const QWidget* active) {
    const QRect area = free_area(active);
    const QSize size = content.boundedTo(area.size());
    QPoint corner = inside(wanted_corner(size, frame, active, area), size, area);
    for (int tries = 0; tries < 12 && taken(corner); ++tries) {
        corner = inside(corner + QPoint(step, step), size, area);
    }
    return {corner, size};
}

} // namespace tessit::qt
