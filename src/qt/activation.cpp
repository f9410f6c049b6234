// SPDX-License-Identifier: MIT
#include "qt/activation.h"

#include "platform/application.h"
#include "qt/window_widget.h"

#include <QApplication>

namespace tessit::qt {

namespace {
constexpr int patience = 400; // milliseconds for the window system to activate what was asked for
}

Activation::Activation() {
    pass_on_timer_.setSingleShot(true);
    connect(&pass_on_timer_, &QTimer::timeout, this, [this] { pass_on(); });
}

void Activation::bring_to_front(WindowWidget& window) {
    window.show();
    if (window.is_notice() || passing_on_) {
        return;
    }
    window.raise();
    if (!window.isActiveWindow() || shown_behind_) {
        shown_behind_ = false;
        expected_ = &window;
        since_wish_.start();
        window.activateWindow();
    }
}

void Activation::show_behind(WindowWidget& window) {
    window.setAttribute(Qt::WA_ShowWithoutActivating, true);
    window.show();
    window.raise(); // one that was to be seen already stands above those that are shown before it
    window.setAttribute(Qt::WA_ShowWithoutActivating, false);
    shown_behind_ = true;
}

void Activation::window_system_changed() {
    if (!pass_on_timer_.isActive()) {
        pass_on_timer_.start(0);
    }
}

bool Activation::expected_still_to_come(const WindowWidget& active) const {
    return expected_ != nullptr && expected_ != &active && expected_->isVisible() && !since_wish_.hasExpired(patience);
}

void Activation::pass_on() {
    auto* active = dynamic_cast<WindowWidget*>(QApplication::activeWindow());
    if (active == nullptr || active->model() == nullptr || active->is_notice() ||
        active->model()->application().busy()) {
        return; // the end of the running event brings us here again
    }
    if (expected_still_to_come(*active)) {
        pass_on_timer_.start(patience / 8);
        return;
    }
    expected_ = nullptr;
    passing_on_ = true;
    active->model()->activate();
    passing_on_ = false;
}

} // namespace tessit::qt
