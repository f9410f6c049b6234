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

// What is saved where nothing was changed.
inline const std::string default_settings =
    "serial port,15;dutycycle,7;output,0;pulse,0;shape,0;wave,0;width,9;rate,1;sf_time_ms,3:00;sf_time_s,180;"
    "wp_time_ms,:10;wp_time_s,10;timeformat,1;use_euro,False;\n";

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

class ProgramTest : public ::testing::Test {
protected:
    Program program;
    App& app = program.app;
    ScriptedDesktop& desktop = program.desktop;
};

// A program with an empty editor in front.
class EditorTest : public ProgramTest {
protected:
    EditWindow& window() { return app.editwindow.get(); }

    void SetUp() override { program.new_protocol(); }
};

} // namespace tessit::testing
