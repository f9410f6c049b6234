// SPDX-License-Identifier: MIT
// The program with nobody who expects anything: work is not saved where it asks, every other question is answered with
// the button that goes on, and file dialogs give `file`. For inputs that nobody has thought of.
#pragma once

#include "core/app.h"
#include "device/settings_window.h"
#include "editor/edit_window.h"
#include "support/scripted_desktop.h"

#include <algorithm>

namespace tessit::testing {

struct QuietDesktop : ScriptedDesktop {
    std::filesystem::path file = folder / "file";

    DialogAnswer show_dialog(const MessageDialog& dialog) override {
        return dialog.AlternateActionButton.Visible ? DialogAnswer::alternate : DialogAnswer::action;
    }
    std::optional<FolderItem> choose_open_file(const FileRequest&) override { return FolderItem(file); }
    std::optional<FolderItem> choose_save_file(const FileRequest&) override { return FolderItem(file); }
    void show_fault(const FaultReport& report) override { faults.push_back(report); }
};

struct QuietProgram {
    explicit QuietProgram(const std::string& settings = "rate,1;\n") {
        write_file(settings_file, settings);
        app.start();
    }

    QuietDesktop desktop;
    const std::filesystem::path settings_file = desktop.folder / "ZP2Settings.fig";
    App app{desktop, Version{}};

    void save_settings() {
        app.from_user("savesettings", [this] { app.savesettings(); });
    }
    void connect(SerialPorts& ports) {
        desktop.connect(ports);
        app.choose_menu("SettingsSetSerialPort");
        app.settings_window->Serial_box.choose(1);
        app.settings_window->close_by_user();
    }
    bool faults_are_of(FaultKind kind) const {
        return std::all_of(desktop.faults.begin(), desktop.faults.end(),
                           [kind](const FaultReport& fault) { return fault.kind == kind; });
    }
};

} // namespace tessit::testing
