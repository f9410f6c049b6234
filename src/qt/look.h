// SPDX-License-Identifier: MIT
// Font and colours. Designed colours are used on a light desktop; a dark one keeps its own. Text always contrasts.
#pragma once

#include "platform/control.h"

#include <QColor>
#include <QFont>
#include <QPalette>

namespace tessit::qt {

QFont application_font();

bool is_dark(const QPalette& palette);
QColor readable_on(const QColor& background); // black or white, whichever stands out more

QPalette legible_palette();              // the application's, with disabled texts that can still be read
QPalette window_palette(Color designed); // of a window's content, from the application's palette
QPalette field_palette(Color background);

// A colour of a table cell. Greys run from the background of fields (white) to their text (black), so that they hold
// on a dark desktop too; other colours are as they are.
QColor cell_color(Color designed);

} // namespace tessit::qt
