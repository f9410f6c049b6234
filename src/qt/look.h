// SPDX-License-Identifier: MIT
// Fonts, sizes and colours. The desktop says how large texts are, and the designed places grow with them. Designed
// colours are used on a light desktop; a dark one keeps its own. Text always contrasts.
#pragma once

#include "platform/control.h"

#include <QColor>
#include <QFont>
#include <QPalette>
#include <QRect>

class QWidget;

namespace tessit::qt {

// The desktop's own font, for dialogs and the help.
QFont desktop_font();
QFont in_pixels(QFont font);

// The font of windows: the family that their places are made for. Its size is the designed one where the desktop has a
// usual one, else the desktop's.
QFont window_font(const QFont& desktop);

// How much larger than designed the texts of a widget's window are.
double text_scale(const QWidget& widget);
int scaled(int length, double scale);
QSize scaled(QSize size, double scale);
QRect scaled(const QRect& place, double scale); // neighbours stay neighbours

bool is_dark(const QPalette& palette);
QColor readable_on(const QColor& background); // black or white, whichever stands out more
QColor link_color(const QPalette& palette);   // its own, or a lighter one where that hardly stands out from fields

QPalette legible_palette();              // the application's, with disabled texts that can still be read
QPalette window_palette(Color designed); // of a window's content, from the application's palette
QPalette field_palette(Color background);

// A colour of a table cell. Greys run from the background of fields (white) to their text (black), so that they hold
// on a dark desktop too; other colours are as they are.
QColor cell_color(Color designed);

} // namespace tessit::qt
