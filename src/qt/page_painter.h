// SPDX-License-Identifier: MIT
// Paints a page on a device with 72 dots to the inch, so that a point is a dot and a font's size in dots its size in
// points. Ink is black whatever the desktop's colours.
#pragma once

#include "platform/graphics.h"

#include <QPainter>

namespace tessit::qt {

double width_on_page(const std::string& text, const PageFont& font, QPaintDevice& device);
void paint_page(QPainter& painter, const Page& page);

} // namespace tessit::qt
