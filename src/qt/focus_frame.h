// SPDX-License-Identifier: MIT
// Tables and fields of several lines whose frame shows that they have the focus, as the style shows it of a line's.
#pragma once

#include <QEvent>
#include <QPainter>
#include <QWidget>

namespace tessit::qt {

template <class ScrollArea> class FocusFrame : public ScrollArea {
public:
    using ScrollArea::ScrollArea;

protected:
    bool event(QEvent* event) override {
        const bool done = ScrollArea::event(event);
        if (event->type() == QEvent::Paint && this->hasFocus()) {
            QPainter painter(this);
            painter.setPen(this->palette().color(QPalette::Active, QPalette::Highlight));
            painter.drawRect(this->rect().adjusted(0, 0, -1, -1));
        }
        return done;
    }
};

} // namespace tessit::qt
