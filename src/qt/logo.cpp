// SPDX-License-Identifier: MIT
#include "qt/logo.h"

#include <QPainter>
#include <algorithm>

namespace tessit::qt {

namespace {

// Reading and shrinking a larger one than is needed takes a noticeable part of the program's start.
QString smallest_picture_for(int side) {
    const int size = side <= 64 ? 64 : side <= 128 ? 128 : 256;
    return QStringLiteral(":/%1.png").arg(size);
}

} // namespace

QPixmap logo(QSize size, qreal device_pixel_ratio) {
    QPixmap picture(size * device_pixel_ratio);
    picture.setDevicePixelRatio(device_pixel_ratio);
    picture.fill(Qt::transparent);
    const int side = static_cast<int>(std::min(size.width(), size.height()) * device_pixel_ratio);
    QPixmap tile = QPixmap(smallest_picture_for(side)).scaledToWidth(side, Qt::SmoothTransformation);
    tile.setDevicePixelRatio(device_pixel_ratio);
    QPainter painter(&picture);
    painter.drawPixmap(QPointF(size.width() - tile.deviceIndependentSize().width(),
                               size.height() - tile.deviceIndependentSize().height()) /
                           2,
                       tile);
    return picture;
}

} // namespace tessit::qt
