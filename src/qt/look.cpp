// SPDX-License-Identifier: MIT
#include "qt/look.h"

#include <QFontDatabase>
#include <QGuiApplication>
#include <QScreen>
#include <QWidget>
#include <algorithm>
#include <cmath>

namespace tessit::qt {

namespace {

constexpr int designed_text = 12;           // pixels
constexpr double largest_usual_text = 13.5; // 10 points on a screen of 96 dots an inch

double size_in_pixels(const QFont& font) {
    const QScreen* screen = QGuiApplication::primaryScreen();
    const double dots_per_inch = screen == nullptr ? 96 : screen->logicalDotsPerInchY();
    return font.pixelSize() > 0 ? font.pixelSize() : font.pointSizeF() * dots_per_inch / 72;
}

int whole_pixels(double text_size) {
    return std::clamp(static_cast<int>(std::lround(text_size)), 1, 8 * designed_text);
}

double luminance(const QColor& color) { // relative, as the accessibility guidelines define it
    const auto linear = [](double part) {
        return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

QColor between(const QColor& from, const QColor& to, double part) {
    const auto mixed = [&](int a, int b) { return static_cast<int>(std::lround(a + (b - a) * part)); };
    return {mixed(from.red(), to.red()), mixed(from.green(), to.green()), mixed(from.blue(), to.blue())};
}

QPalette with_legible_disabled(QPalette palette) {
    const QColor background = palette.color(QPalette::Window);
    const QColor faint = between(palette.color(QPalette::WindowText), background, 0.5);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(QPalette::Disabled, role, faint);
    }
    palette.setColor(QPalette::Disabled, QPalette::Light, background); // the shadow behind disabled menu entries
    return palette;
}

} // namespace

QFont desktop_font() {
    return QFontDatabase::systemFont(QFontDatabase::GeneralFont);
}

QFont in_pixels(QFont font) {
    font.setPixelSize(whole_pixels(size_in_pixels(font)));
    return font;
}

// Places are in logical pixels, and so are the fonts: they grow with the screen's scale as they do.
QFont window_font(const QFont& desktop) {
    const double size = size_in_pixels(desktop);
    QFont font;
    font.setFamilies({"Liberation Sans", "Arial", "Helvetica", "DejaVu Sans"});
    font.setPixelSize(size <= largest_usual_text ? designed_text : whole_pixels(size));
    return font;
}

double text_scale(const QWidget& widget) {
    const int size = widget.window()->font().pixelSize();
    return size <= 0 ? 1 : static_cast<double>(size) / designed_text;
}

int scaled(int length, double scale) {
    return static_cast<int>(std::lround(length * scale));
}

QSize scaled(QSize size, double scale) {
    return {scaled(size.width(), scale), scaled(size.height(), scale)};
}

QRect scaled(const QRect& place, double scale) {
    const QPoint corner(scaled(place.x(), scale), scaled(place.y(), scale));
    const QPoint end(scaled(place.x() + place.width(), scale), scaled(place.y() + place.height(), scale));
    return {corner, QSize(end.x() - corner.x(), end.y() - corner.y())};
}

bool is_dark(const QPalette& palette) {
    return luminance(palette.color(QPalette::Window)) < luminance(palette.color(QPalette::WindowText));
}

QColor readable_on(const QColor& background) {
    const double light = luminance(background) + 0.05;
    return 1.05 / light > light / 0.05 ? Qt::white : Qt::black;
}

// Dark themes may name no colour for links, and Qt's is a dark blue.
QColor link_color(const QPalette& palette) {
    constexpr double least_contrast = 4.5; // of the accessibility guidelines
    const QColor own = palette.color(QPalette::Link);
    const double contrast = (luminance(own) + 0.05) / (luminance(palette.color(QPalette::Base)) + 0.05);
    return is_dark(palette) && contrast < least_contrast ? QColor(0x6CB4FF) : own;
}

QPalette legible_palette() {
    return with_legible_disabled(QGuiApplication::palette());
}

QPalette window_palette(Color designed) {
    QPalette palette = QGuiApplication::palette();
    if (!is_dark(palette)) {
        palette.setColor(QPalette::Window, QColor(designed.rgb));
        palette.setColor(QPalette::WindowText, readable_on(designed.rgb));
    }
    return with_legible_disabled(palette);
}

QColor cell_color(Color designed) {
    const QColor color(designed.rgb);
    const QPalette palette = QGuiApplication::palette();
    if (color.saturation() > 0 || !is_dark(palette)) {
        return color;
    }
    return between(palette.color(QPalette::Base), palette.color(QPalette::Text), (255 - color.value()) / 255.0);
}

QPalette field_palette(Color background) {
    QPalette palette = QGuiApplication::palette();
    for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        palette.setColor(group, QPalette::Base, QColor(background.rgb));
        palette.setColor(group, QPalette::Text, readable_on(background.rgb));
    }
    return palette;
}

} // namespace tessit::qt
