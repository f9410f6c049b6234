// SPDX-License-Identifier: MIT
#include "qt/logo.h"

#include <QImage>
#include <QPainter>
#include <QResource>
#include <algorithm>

namespace tessit::qt {

namespace {

// Shrinking a larger one than is needed would take a noticeable part of the program's start.
QImage smallest_picture_for(int side) {
    const int size = side <= 64 ? 64 : side <= 128 ? 128 : 256;
    const QResource pixels(QStringLiteral(":/%1.pixels").arg(size));
    return QImage(pixels.data(), size, size, QImage::Format_ARGB32_Premultiplied);
}

} // namespace

QPixmap logo(QSize size, qreal device_pixel_ratio) {
    QPixmap picture(size * device_pixel_ratio);
    picture.setDevicePixelRatio(device_pixel_ratio);
    picture.fill(Qt::transparent);
    const int side = static_cast<int>(std::min(size.width(), size.height()) * device_pixel_ratio);
    QPixmap tile = QPixmap::fromImage(smallest_picture_for(side).scaledToWidth(side, Qt::SmoothTransformation));
    tile.setDevicePixelRatio(device_pixel_ratio);
    QPainter painter(&picture);
    painter.drawPixmap(QPointF(size.width() - tile.deviceIndependentSize().width(),
                               size.height() - tile.deviceIndependentSize().height()) /
                           2,
                       tile);
    return picture;
}

} // namespace tessit::qt
