// SPDX-License-Identifier: MIT
#include "core/app.h"

#include "composer/compose_window.h"
#include "consolidator/consolidator_window.h"
#include "core/popup_window.h"
#include "device/read_window.h"
#include "editor/edit_window.h"
#include "level/number.h"
#include "platform/text.h"
#include "program/main_window.h"
#include "program/menus.h"

namespace tessit {

App::App(Desktop& desktop, const Version& program_version) : Application(desktop, program_version, make_menu_bar()) {}

void App::start() {
    _ApplicationAddMenuHandlers();
    from_user("App.start", [this] { Window1.get(); });
}

float App::strintR(const std::string& text) {
    chrarray = characters(text);
    return read_number(chrarray);
}

DocumentWindow* App::front_document() {
    switch (myactivewindow) {
    case document::editor:
        return &editwindow.get();
    case document::composer:
        return &composewindow.get();
    case document::reader:
        return &ReadZPWindow.get();
    default:
        return nullptr;
    }
}

void App::save_settings_and_quit() {
    guarded("App.savesettings", [this] { savesettings(); });
    Quit();
}

bool App::_FileExitProgram_Action() {
    save_settings_and_quit();
    return true;
}

void App::show_main_window() {
    Window1->Show();
}

void App::fault_caught() {
    if (popupwindow.exists()) {
        popupwindow->Hide();
    }
}

} // namespace tessit
