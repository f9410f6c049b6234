// SPDX-License-Identifier: MIT
// Writing the settings file, by the menu, by the preferences and at the program's end.
#include "core/app.h"
#include "device/settings_window.h"
#include "files/preferences_window.h"
#include "files/settings_file.h"
#include "platform/text.h"

namespace tessit {

namespace {

// None where it is missing or can't be read.
std::optional<std::string> content_of(const FolderItem& file) {
    try {
        return file.Exists() ? std::optional(file.OpenAsTextFile(most_settings_bytes)->ReadAll()) : std::nullopt;
    } catch (const Fault&) {
        return std::nullopt;
    }
}

} // namespace

void App::savesettings() {
    close_settings_windows();
    if (settings_can_be_saved()) {
        write_settings(settings_text(*this));
    }
}

void App::savesettings_at_end() {
    close_settings_windows();
    write_settings_at_end();
}

void App::close_settings_windows() {
    settings_window.Close();
    SetPreferencesWindow.Close();
    settings_window->outputfield.SetText("serial port," + Str(portnum));
}

// After an open dialog was dismissed nothing is saved, and nothing said.
bool App::settings_can_be_saved() const {
    return filepath && GetFolderItem("").Exists();
}

void App::write_settings_at_end() {
    if (settings_can_be_saved()) {
        if (const auto line = settings_at_end(*this, content_of(GetFolderItem(settings_file_name)))) {
            write_settings(*line);
        }
    }
}

void App::write_settings(const std::string& line) {
    auto stream = GetFolderItem(settings_file_name).CreateTextFile();
    stream->WriteLine(line);
    stream->Close();
    known_settings = {.file = line + "\n", .fields = settings_fields(*this)};
}

bool App::_SettingsSaveSettings_Action() {
    savesettings();
    return true;
}

} // namespace tessit
