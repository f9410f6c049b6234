// SPDX-License-Identifier: MIT
#include "qt/earlier_input.h"

#include <QCoreApplication>
#include <QEvent>

namespace tessit::qt {

namespace {

class InputFilter : public QObject {
public:
    // Releases reach the windows, which keep account of the buttons that are down, but no widget.
    bool eventFilter(QObject* receiver, QEvent* event) override {
        switch (event->type()) {
        case QEvent::KeyPress:
        case QEvent::ShortcutOverride:
        case QEvent::Shortcut:
        case QEvent::InputMethod:
        case QEvent::ContextMenu:
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonDblClick:
        case QEvent::Wheel:
        case QEvent::TouchBegin:
        case QEvent::TabletPress:
            return true;
        case QEvent::KeyRelease:
        case QEvent::MouseButtonRelease:
            return receiver->isWidgetType();
        default:
            return false;
        }
    }
};

} // namespace

void drop_earlier_input() {
    InputFilter filter;
    QCoreApplication::instance()->installEventFilter(&filter);
    QCoreApplication::processEvents(QEventLoop::ExcludeSocketNotifiers);
}

} // namespace tessit::qt
