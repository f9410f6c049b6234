// SPDX-License-Identifier: MIT
#include "qt/earlier_input.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QInputEvent>

namespace tessit::qt {

namespace {

class InputWatch : public QObject {
public:
    using QObject::QObject;

    // Input comes from the window system to windows, which pass it on to their widgets.
    bool eventFilter(QObject* receiver, QEvent* event) override {
        if (!receiver->isWindowType() || !event->isInputEvent()) {
            return false;
        }
        const quint64 stamp = static_cast<const QInputEvent*>(event)->timestamp();
        const bool earlier = stamp > from && stamp < until;
        if (earlier && is_press(*event)) {
            event->accept(); // a shortcut looks no further
            return true;
        }
        if (!earlier && stamp != 0) { // entering a window has none
            last_stamp_ = stamp;
            since_last_.start();
        }
        return false;
    }

    void drop_so_far() {
        from = last_stamp_;
        until = last_stamp_ + (since_last_.isValid() ? static_cast<quint64>(since_last_.elapsed()) : 0);
    }

    quint64 from = 0; // what is stamped between these two is dropped
    quint64 until = 0;

private:
    static bool is_press(const QEvent& event) {
        return event.type() == QEvent::KeyPress || event.type() == QEvent::ShortcutOverride ||
               event.type() == QEvent::MouseButtonPress || event.type() == QEvent::MouseButtonDblClick ||
               event.type() == QEvent::TouchBegin;
    }

    quint64 last_stamp_ = 0;
    QElapsedTimer since_last_;
};

// The application's one; made when it is first asked for.
InputWatch& input_watch() {
    const auto name = QStringLiteral("input_watch");
    QCoreApplication* application = QCoreApplication::instance();
    if (auto* found = application->findChild<QObject*>(name, Qt::FindDirectChildrenOnly)) {
        return static_cast<InputWatch&>(*found);
    }
    auto* made = new InputWatch(application);
    made->setObjectName(name);
    application->installEventFilter(made);
    return *made;
}

} // namespace

void watch_input() {
    input_watch();
}

void drop_input_so_far() {
    input_watch().drop_so_far();
}

} // namespace tessit::qt
