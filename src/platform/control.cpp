// SPDX-License-Identifier: MIT
#include "platform/control.h"

#include "platform/application.h"
#include "platform/archive.h"
#include "platform/window.h"

namespace tessit {

Control::Control(Window& window, const ControlDesign& design)
    : window_(window), design_(design), enabled_(design.enabled), visible_(design.visible) {
    window.add(*this);
}

void Control::SetEnabled(bool enabled) {
    if (enabled != enabled_) {
        enabled_ = enabled;
        show_change();
    }
}

void Control::SetVisible(bool visible) {
    if (visible != visible_) {
        visible_ = visible;
        show_change();
    }
}

void Control::SetFocus() {
    window_.set_focus_control(this);
    if (view_ != nullptr) {
        view_->take_focus();
    }
}

void Control::Refresh() {
    if (view_ != nullptr) {
        view_->repaint_now();
    }
}

void Control::show_change() {
    if (view_ != nullptr) {
        view_->refresh();
    }
}

void Control::archive(Archive& archive) {
    archive.section(design_.name);
    archive.flag("enabled", enabled_);
    archive.flag("visible", visible_);
    archive_values(archive);
    if (archive.puts_back()) {
        show_change();
    }
}

void Control::raise(const char* event, const std::function<void()>& handler) {
    if (handler) {
        window_.application().raise(window_.name() + "." + name() + "_" + event, handler);
    }
}

void Control::from_user(const char* event, const std::function<void()>& handler) {
    window_.application().from_user(window_.name() + "." + name() + "_" + event, handler);
}

} // namespace tessit
