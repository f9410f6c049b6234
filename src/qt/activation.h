// SPDX-License-Identifier: MIT
// Keeps the model's front window and the window system's active window the same. Both may move first; while a handler
// runs nothing is passed to the model, and what the window system says of a window that the program has just
// overtaken is not believed.
#pragma once

#include <QElapsedTimer>
#include <QPointer>
#include <QTimer>

namespace tessit::qt {

class WindowWidget;

class Activation : public QObject {
public:
    Activation();

    void bring_to_front(WindowWidget& window); // the program's wish
    void show_behind(WindowWidget& window);    // where another is about to come to the front
    void window_system_changed();              // some window was activated
    void event_ended() { window_system_changed(); }

private:
    void pass_on();
    bool expected_still_to_come(const WindowWidget& active) const;

    QTimer pass_on_timer_;
    QPointer<QWidget> expected_; // the program's wish, until the window system has fulfilled it
    QElapsedTimer since_wish_;
    bool passing_on_ = false;
    bool shown_behind_ = false; // a window whose showing the window system may take for a wish to be active
};

} // namespace tessit::qt
