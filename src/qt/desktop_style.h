// SPDX-License-Identifier: MIT
// The style of the desktop but for three things. It leaves a title as it is when the document is changed. On a desktop
// without icons of its own it doesn't look for any. And it sees the same palette in all windows of the same colours:
// Qt's own style keeps what it has painted under a name with the number of the palette, every widget of a window with
// colours of its own has a new number, and no such name is ever forgotten, so that each window that was open once would
// cost memory.
#pragma once

#include <QProxyStyle>
#include <vector>

namespace tessit::qt {

class DesktopStyle : public QProxyStyle {
public:
    using QProxyStyle::QProxyStyle;

    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* returned) const override;
    QIcon standardIcon(StandardPixmap sign, const QStyleOption* option, const QWidget* widget) const override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget) const override;

private:
    void share_palette_of(const QStyleOption* option) const;

    mutable std::vector<QPalette> palettes_; // one of each
};

} // namespace tessit::qt
