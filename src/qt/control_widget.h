// SPDX-License-Identifier: MIT
// What all adapters between a model control and its widget share. The model's values reach the widget by one
// idempotent refresh; what the user does goes through `tell` to one of the control's doors. The widgets belong to
// their window, the adapters to the WindowWidget; both outlive the model's control for a while, detached.
#pragma once

#include "platform/control.h"

#include <QElapsedTimer>
#include <QObject>
#include <QSize>
#include <QWidget>
#include <functional>

namespace tessit::qt {

class ControlWidget : public QObject, public ControlView {
public:
    ControlWidget(Control& control, QWidget& widget);

    QWidget& widget() const { return widget_; }
    const ControlDesign& design() const { return design_; }
    bool attached() const { return control_ != nullptr; }
    virtual void detach(); // the model's control is going: nothing is passed on in either direction any more

    // The least size at which nothing of the widget's fixed texts is cut off.
    virtual QSize needed_size() const { return widget_.minimumSizeHint(); }
    // Which part of additional width goes to the left: 0 none, 1 half, 2 all of it.
    virtual int halves_to_the_left() const { return 0; }
    virtual bool is_frame() const { return false; } // other controls lie inside it

    // Brings what `refresh` left for later: a long text that a handler may set several times is shown when it ends, or
    // when it lets the screen be seen.
    virtual void show_pending() {}

    // The design keeps it off the content: it is not to be seen, and nobody is told that it is.
    void keep_out_of_sight();

    void refresh() final;
    void repaint_now() override;
    void take_focus() override;

protected:
    virtual void show_values() = 0; // called under the quiet counter
    // Hands user input to the model and then shows what the model made of it. Ignored while a refresh runs, so that
    // a widget's signals about the program's own changes raise no second event.
    void tell(const std::function<void()>& door);
    void quietly(const std::function<void()>& change); // a change of the widget that `tell` must not pass on
    bool is_quiet() const { return quiet_ > 0; }
    void set_text_size(int points); // 0 leaves the system's

private:
    void show_state();

    Control* control_;
    const ControlDesign design_;
    QWidget& widget_;
    int quiet_ = 0;
    bool out_of_sight_ = false;
    QElapsedTimer since_painted_;
};

// Shows `window` and has it on the screen, first exposure included; lets no user input in.
void paint_at_once(QWidget& window);

} // namespace tessit::qt
