// SPDX-License-Identifier: MIT
#include "platform/window.h"

#include "platform/application.h"

#include <algorithm>

namespace tessit {

void Window::raise(const char* event, const std::function<void()>& handler) {
    application_.raise(name() + "." + event, handler);
}

bool Window::holds_work() const {
    return design_.frame == WindowFrame::document ||
           std::any_of(controls_.begin(), controls_.end(),
                       [](const Control* control) { return control->holds_input(); });
}

void Window::Show() {
    if (closing_ || application_.quitting()) {
        return;
    }
    visible_ = true;
    application_.bring_to_front(*this);
}

DialogAnswer Window::ask(const MessageDialog& question) {
    if (!application_.in_front(*this)) { // nor is a hidden one
        visible_ = true;
        application_.bring_to_front(*this);
    }
    return application_.ShowModal(question);
}

void Window::Hide() {
    if (visible_) {
        visible_ = false;
        application_.hidden(*this);
    }
}

void Window::Close() {
    if (closing_) {
        return;
    }
    closing_ = true;
    struct StillOpen { // a veto, or a fault in the question, keeps the window open
        Window* window;
        ~StillOpen() {
            if (window != nullptr) {
                window->closing_ = false;
            }
        }
    } still_open{this};
    bool vetoed = false;
    raise("Event_CancelClose", [&] { vetoed = Event_CancelClose(); });
    if (vetoed) {
        return application_.kept_open(*this);
    }
    if (design_.lifetime == Lifetime::program) {
        return raise("Event_Close", [this] { Event_Close(); });
    }
    still_open.window = nullptr;
    struct Retirement { // also when Event_Close ends in a fault
        Window& window;
        ~Retirement() { window.application_.retire(window); }
    } retirement{*this};
    raise("Event_Close", [this] { Event_Close(); });
}

void Window::activate() {
    if (visible_ && !application_.in_front(*this)) {
        application_.from_user(name() + ".Event_Activate", [this] { Show(); });
    }
}

void Window::close_by_user() {
    application_.from_user(name() + ".Event_CancelClose", [this] { Close(); });
}

void Window::move_to(int left, int top) {
    left_ = left;
    top_ = top;
}

void Window::archive(Archive& archive) {
    for (Control* control : controls_) {
        control->archive(archive);
    }
}

MenuItem& Window::menu_item(std::string_view entry) const {
    return application_.MenuBar1.item(entry);
}

} // namespace tessit
