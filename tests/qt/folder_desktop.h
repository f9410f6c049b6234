// SPDX-License-Identifier: MIT
// The whole program on the Qt desktop: a program folder of its own, the same fonts everywhere, message boxes that
// answer themselves, and widgets by their names.
#pragma once

#include "core/app.h"
#include "qt/qt_desktop.h"
#include "support/scripted_desktop.h"

#include <QtTest>
#include <QtWidgets>
#include <gtest/gtest.h>

namespace tessit::qt {

using testing::joined;

class FolderDesktop : public QtDesktop {
public:
    FolderItem program_folder() override { return FolderItem(folder.path().toStdString()); }
    std::vector<FolderItem> document_folders() override { return {FolderItem(installed.path().toStdString())}; }
    DialogAnswer show_dialog(const MessageDialog&) override { return DialogAnswer::action; }
    void show_fault(const FaultReport& report) override { faults.push_back(report); }
    const std::vector<std::string>& fonts() override { return font_names; }
    QFont desktop_font() override { return font; }

    QTemporaryDir folder;
    QTemporaryDir installed;
    QFont font = QtDesktop::desktop_font();
    std::vector<FaultReport> faults; // that the test has not taken away
    std::vector<std::string> font_names{"Arial", "Liberation Sans Narrow", "Noto Sans Mono CJK SC"};
};

class ProgramTest : public ::testing::Test {
protected:
    ProgramTest() { app.start(); }
    void TearDown() override {
        app.editchanged = false;
        EXPECT_TRUE(desktop.faults.empty()) << desktop.faults.front().what;
    }

    WindowWidget& widget(Window& window) const {
        EXPECT_TRUE(QTest::qWaitForWindowActive(desktop.widget_of(window)));
        return *desktop.widget_of(window);
    }
    template <class W> W& find(Window& window, const char* name) const {
        W* found = desktop.widget_of(window)->findChild<W*>(QLatin1String(name));
        EXPECT_NE(found, nullptr) << name;
        return *found;
    }

    FolderDesktop desktop;
    App app{desktop, {.StageCode = Stage::beta, .MajorVersion = 10, .MinorVersion = 20, .BugVersion = 30}};
};

} // namespace tessit::qt
