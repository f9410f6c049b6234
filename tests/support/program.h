// SPDX-License-Identifier: MIT
// The whole program on a scripted desktop, and short ways to drive it as a user would.
#pragma once

#include "core/app.h"
#include "core/popup_window.h"
#include "editor/edit_window.h"
#include "program/main_window.h"
#include "support/scripted_desktop.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tessit::testing {

inline constexpr Version test_version{.StageCode = Stage::beta, .MajorVersion = 1, .MinorVersion = 2, .BugVersion = 3};

// Settings that a program without a serial port starts with in silence: every default, nothing said.
inline constexpr const char* quiet_settings = "rate,1;\n";

struct Program {
    // Started with quiet settings; `start` is for tests of the start itself.
    Program() : Program(quiet_settings) {}
    explicit Program(const std::string& settings) {
        write_file(desktop.folder / "ZP2Settings.fig", settings);
        app.start();
    }

    ScriptedDesktop desktop;
    App app{desktop, test_version};

    void new_protocol() { app.choose_menu("FileCreateNewFile"); }

    // Types a frequency and presses Return.
    void enter(const std::string& frequency) {
        app.editwindow->FreqField.type(frequency);
        app.editwindow->FreqField.press(keys::return_);
    }

    std::string cell(int row, int column) { return app.editwindow->edit_displayBox.Cell(row, column); }

    // A row's twelve cells joined by "|".
    std::string row(int row) {
        std::string text;
        for (int i = 0; i < column::count; ++i) {
            text += (i == 0 ? "" : "|") + cell(row, i);
        }
        return text;
    }

    int levels() { return app.editwindow->edit_displayBox.ListCount() - 1; }

    // The saved protocol, through the Save command.
    std::string save_as(const std::string& name) {
        desktop.choose_file(desktop.folder / name);
        app.choose_menu("FileSave");
        return file_bytes(desktop.folder / name);
    }

    void open(const std::filesystem::path& file) {
        desktop.choose_file(file);
        app.choose_menu("FileOpen");
    }
};

// A program with an empty editor in front.
class EditorTest : public ::testing::Test {
protected:
    Program program;
    App& app = program.app;
    EditWindow& window() { return app.editwindow.get(); }

    void SetUp() override { program.new_protocol(); }
};

} // namespace tessit::testing
