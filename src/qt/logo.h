// SPDX-License-Identifier: MIT
// The program's picture, made from the desktop's icon (packaging/): a sine wave running into a square wave.
#pragma once

#include <QPixmap>

namespace tessit::qt {

// `size` in logical pixels; the tile is the largest square in its middle.
QPixmap logo(QSize size, qreal device_pixel_ratio);

} // namespace tessit::qt
