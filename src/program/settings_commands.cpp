// SPDX-License-Identifier: MIT
// Writing the settings file, by the menu, by the preferences and at the program's end.
#include "core/app.h"
#include "device/settings_window.h"
#include "files/preferences_window.h"
#include "files/settings_file.h"
#include "platform/text.h"

namespace tessit {

void App::savesettings() {
    settings_window.Close();
    SetPreferencesWindow.Close();
    settings_window->outputfield.SetText("serial port," + Str(portnum));
    write_settings();
}

void App::write_settings() {
    if (!filepath) {
        return; // an open dialog was dismissed: nothing is saved, and nothing said
    }
    if (GetFolderItem("").Exists()) {
        auto stream = GetFolderItem(settings_file_name).CreateTextFile();
        stream->WriteLine(settings_text(*this));
        stream->Close();
    }
}

bool App::_SettingsSaveSettings_Action() {
    savesettings();
    return true;
}

} // namespace tessit
