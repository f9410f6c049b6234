// SPDX-License-Identifier: MIT
#include "qt/control_widget.h"

#include "qt/busy_sign.h"
#include "qt/look.h"
#include "qt/widget_text.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QThread>
#include <QWindow>

namespace tessit::qt {

ControlWidget::ControlWidget(Control& control, QWidget& widget)
    : control_(&control), design_(control.design()), widget_(widget) {
    control.attach(this);
    widget.setObjectName(to_widget(control.name()));
    widget.setToolTip(to_widget(design_.help_tag).toHtmlEscaped());
    if (*design_.label != '\0') {
        widget.setAccessibleName(to_widget(design_.label));
    }
    if (*design_.help_tag != '\0') {
        widget.setAccessibleDescription(to_widget(design_.help_tag));
    }
}

void ControlWidget::detach() {
    if (control_ != nullptr) {
        control_->attach(nullptr);
        control_ = nullptr;
    }
}

void ControlWidget::refresh() {
    if (attached()) {
        quietly([this] {
            show_state();
            show_values();
        });
    }
}

void ControlWidget::quietly(const std::function<void()>& change) {
    struct Quiet {
        int& count;
        explicit Quiet(int& counter) : count(counter) { ++count; }
        ~Quiet() { --count; }
    } quiet{quiet_};
    change();
}

void ControlWidget::show_state() {
    widget_.setEnabled(control_->Enabled());
    const bool shown = control_->Visible() && !out_of_sight_;
    if (widget_.isHidden() == shown) {
        widget_.setVisible(shown);
    }
}

void ControlWidget::keep_out_of_sight() {
    out_of_sight_ = true;
    widget_.setFocusPolicy(Qt::NoFocus);
    widget_.hide();
}

// Oftener than the eye can follow, painting would be most of what the handler does; the rest comes when it waits. A
// window that has only just come up is painted with the handler's end; it is waited for where that is far away.
void ControlWidget::repaint_now() {
    constexpr int frame = 25; // milliseconds
    refresh();
    show_pending();
    const QWindow* screen_window = widget_.window()->windowHandle();
    const bool exposed = screen_window != nullptr && screen_window->isExposed();
    const bool painted_just_now = since_painted_.isValid() && !since_painted_.hasExpired(frame);
    if (exposed ? painted_just_now : !handler_has_much_to_do()) {
        return;
    }
    handler_goes_on();
    paint_at_once(*widget_.window());
    since_painted_.start();
}

void ControlWidget::take_focus() {
    widget_.setFocus(Qt::OtherFocusReason);
}

void ControlWidget::tell(const std::function<void()>& door) {
    if (attached() && quiet_ == 0) {
        door();
        refresh();
    }
}

void ControlWidget::set_text_size(int points) {
    if (points > 0) {
        QFont font = widget_.font();
        font.setPixelSize(scaled(points, text_scale(widget_)));
        widget_.setFont(font);
    }
}

void paint_at_once(QWidget& window) {
    constexpr auto only_painting = QEventLoop::ExcludeUserInputEvents | QEventLoop::ExcludeSocketNotifiers;
    if (!window.isVisible()) {
        return;
    }
    const QDeadlineTimer limit(500);
    while (window.windowHandle() != nullptr && !window.windowHandle()->isExposed() && !limit.hasExpired()) {
        QCoreApplication::processEvents(only_painting);
        QThread::usleep(500);
    }
    window.repaint();
    QCoreApplication::processEvents(only_painting);
}

} // namespace tessit::qt
