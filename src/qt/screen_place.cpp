// SPDX-License-Identifier: MIT
#include "qt/screen_place.h"

#include <QApplication>
#include <QScreen>
#include <QStringList>
#include <QWidget>
#include <algorithm>

namespace tessit::qt {

namespace {

constexpr int title_bar = 32; // what a window manager adds at the top; the other sides are thin
constexpr int side = 4;
constexpr int step = 28;

QRect free_area(const QScreen* screen) {
    return screen->availableGeometry().adjusted(side, title_bar, -side, -side);
}

QRect free_area(const QWidget* window) {
    return free_area(window != nullptr ? window->screen() : QGuiApplication::primaryScreen());
}

QPoint next_in_cascade(QSize size, const OpenWindows& open, const QRect& area) {
    const QPoint corner = open.document->geometry().topLeft() - open.steps_to_document * QPoint(step, step);
    return area.contains(QRect(corner, size)) ? corner : area.topLeft();
}

QPoint wanted_corner(QSize size, WindowFrame frame, const OpenWindows& open, const QRect& area) {
    const bool is_document = frame == WindowFrame::document;
    if (is_document && open.document != nullptr) {
        return next_in_cascade(size, open, area);
    }
    QRect place({}, size);
    const bool beside = open.active != nullptr && !is_document;
    place.moveCenter(beside ? open.active->geometry().center() : area.center());
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

QRect free_place(QPoint wanted, QSize size, const QRect& area) {
    QPoint corner = inside(wanted, size, area);
    for (int tries = 0; tries < 12 && taken(corner); ++tries) {
        corner = inside(corner + QPoint(step, step), size, area);
    }
    return {corner, size};
}

std::optional<int> length(const QString& text) {
    constexpr int longest = 100'000; // beyond all screens
    bool is_number = false;
    const int number = text.toInt(&is_number);
    return is_number && std::abs(number) <= longest ? std::optional(number) : std::nullopt;
}

} // namespace

QRect place_for_window(QSize content, WindowFrame frame, const OpenWindows& open) {
    const QRect area = free_area(open.active);
    const QSize size = content.boundedTo(area.size());
    return free_place(wanted_corner(size, frame, open, area), size, area);
}

QString text_of(const KeptPlace& kept) {
    return QStringLiteral("%1 %2 %3 %4 ")
               .arg(kept.corner.x())
               .arg(kept.corner.y())
               .arg(kept.added.width())
               .arg(kept.added.height()) +
           QLatin1String(kept.maximized ? "maximized" : "normal");
}

std::optional<KeptPlace> kept_place(const QString& text) {
    const QStringList parts = text.split(QLatin1Char(' '));
    if (parts.size() != 5) {
        return std::nullopt;
    }
    const auto left = length(parts[0]);
    const auto top = length(parts[1]);
    const auto wider = length(parts[2]);
    const auto higher = length(parts[3]);
    if (!left || !top || !wider || !higher) {
        return std::nullopt;
    }
    return KeptPlace{
        .corner = {*left, *top}, .added = {*wider, *higher}, .maximized = parts[4] == QLatin1String("maximized")};
}

KeptPlace place_to_keep(const QWidget& window, QSize natural) {
    const bool maximized = window.isMaximized();
    const QRect place = maximized ? window.normalGeometry() : window.geometry();
    const QSize at_first = natural.boundedTo(free_area(&window).size());
    return {.corner = place.topLeft(), .added = place.size() - at_first, .maximized = maximized};
}

QRect place_again(const KeptPlace& kept, QSize natural) {
    const QScreen* screen = QGuiApplication::screenAt(kept.corner);
    const QRect area = free_area(screen != nullptr ? screen : QGuiApplication::primaryScreen());
    const QSize size = (natural.boundedTo(area.size()) + kept.added).boundedTo(area.size());
    return free_place(kept.corner, size, area);
}

} // namespace tessit::qt
