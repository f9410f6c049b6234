// SPDX-License-Identifier: MIT
// Where on the screen a window opens: as it was when it was there last, else at a place of its own.
#pragma once

#include "platform/window.h"

#include <QRect>
#include <QSize>
#include <QString>
#include <optional>

class QWidget;

namespace tessit::qt {

struct OpenWindows { // null for none
    const QWidget* active = nullptr;
    const QWidget* document = nullptr; // the frontmost document window to be seen
    int steps_to_document = -1;        // in the cascade, from the new window: -1 for one in front of it, 1 behind it
};

// Inside the screen's free area less its frame. A document window comes in the middle or a step from the last one,
// beginning anew in the corner where that is not inside; a dialog beside and a notice over the middle of the active
// window. Never with its corner exactly on that of another visible window.
QRect place_for_window(QSize content, WindowFrame frame, const OpenWindows& open);

// What is kept of a window from one time to the next, as "LEFT TOP WIDER HIGHER normal", the last two numbers being
// what the user has added to its size, or the same with "maximized".
struct KeptPlace {
    QPoint corner;
    QSize added;
    bool maximized = false;
};

QString text_of(const KeptPlace& kept);
std::optional<KeptPlace> kept_place(const QString& text); // none for any other text

KeptPlace place_to_keep(const QWidget& window, QSize natural); // `natural` is the size of its whole content
QRect place_again(const KeptPlace& kept, QSize natural);       // on a screen that there is, inside its free area

} // namespace tessit::qt
