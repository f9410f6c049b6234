// SPDX-License-Identifier: MIT
#include "qt/logo.h"

#include <QPainter>
#include <QPainterPath>
#include <algorithm>
#include <cmath>
#include <numbers>

namespace tessit::qt {

namespace {

// In a square of 100 by 100: one sine period, then one square period, joined at the middle.
QPainterPath waves() {
    constexpr double left = 14;
    constexpr double width = 36;
    constexpr double height = 20;
    QPainterPath path({left, 50});
    for (int step = 1; step <= 48; ++step) {
        const double part = step / 48.0;
        path.lineTo(left + width * part, 50 - height * std::sin(2 * std::numbers::pi * part));
    }
    for (const QPointF point : {QPointF(50, 30), QPointF(68, 30), QPointF(68, 70), QPointF(86, 70), QPointF(86, 50)}) {
        path.lineTo(point);
    }
    return path;
}

} // namespace

QPixmap logo(QSize size, qreal device_pixel_ratio) {
    QPixmap picture(size * device_pixel_ratio);
    picture.setDevicePixelRatio(device_pixel_ratio);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    const int side = std::min(size.width(), size.height());
    painter.translate((size.width() - side) / 2.0, (size.height() - side) / 2.0);
    painter.scale(side / 100.0, side / 100.0);
    QLinearGradient tile({0, 0}, {0, 100});
    tile.setColorAt(0, QColor(0x1f6f8b));
    tile.setColorAt(1, QColor(0x123c55));
    painter.setPen(Qt::NoPen);
    painter.setBrush(tile);
    painter.drawRoundedRect(QRectF(2, 2, 96, 96), 18, 18);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(QColor(255, 255, 255, 60), 1.5));
    painter.drawLine(QPointF(10, 50), QPointF(90, 50));
    painter.setPen(QPen(QColor(0xffd27f), 5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPath(waves());
    return picture;
}

} // namespace tessit::qt
