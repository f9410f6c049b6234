// SPDX-License-Identifier: MIT
// Where on the screen a new window opens.
#pragma once

#include "platform/window.h"

#include <QRect>
#include <QSize>

class QWidget;

namespace tessit::qt {

// Inside the screen's free area less its frame: in the middle, or for a dialog beside and for a notice over the
// middle of the active window; never with its corner exactly on that of another visible window.
QRect place_for_window(QSize content, WindowFrame frame, const QWidget* active);

} // namespace tessit::qt
