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

} // namespace tessit::qt
