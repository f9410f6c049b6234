// SPDX-License-Identifier: MIT
// The program as a whole: its start and end, and the doors through which windows reach what stands above them.
#include "core/app.h"

#include "composer/compose_window.h"
#include "consolidator/consolidator_window.h"
#include "core/popup_window.h"
#include "device/read_window.h"
#include "editor/edit_window.h"
#include "program/main_window.h"
#include "program/menus.h"
#include "program/unsaved_work.h"

namespace tessit {

namespace {

template <class Access> DocumentWindow* active_document(App& app, Access access) {
    switch (app.myactivewindow) {
    case document::editor:
        return access(app.editwindow);
    case document::consolidator:
        return access(app.consolidatorWindow);
    case document::composer:
        return access(app.composewindow);
    case document::reader:
        return access(app.ReadZPWindow);
    default:
        return nullptr;
    }
}

} // namespace

App::App(Desktop& desktop, const Version& program_version)
    : Application(desktop, program_version, make_menu_bar()), unsaved_work_(UnsavedWork::of(*this)) {}

App::~App() {
    free_windows();
}

void App::start() {
    _ApplicationAddMenuHandlers();
    from_user("App.start", [this] { Window1.get(); });
}

Serial& App::serial_line() {
    return Window1->serial_port;
}

DocumentWindow* App::front_document() {
    return active_document(*this, [](auto& window) -> DocumentWindow* { return &window.get(); });
}

DocumentWindow* App::open_document() {
    return active_document(*this,
                           [](auto& window) -> DocumentWindow* { return window.exists() ? &window.get() : nullptr; });
}

void App::save_settings_and_quit() {
    guarded("App.savesettings", [this] { savesettings_at_end(); });
    Quit();
}

void App::show_main_window() {
    Window1->Show();
}

void App::hide_main_window() {
    Window1->Hide();
}

void App::fault_caught() {
    if (popupwindow.exists()) {
        popupwindow->Hide();
    }
}

} // namespace tessit
