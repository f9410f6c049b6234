// SPDX-License-Identifier: MIT
// A small program on the Qt desktop: one window with a control of each class, a notice, and a list of what was raised.
#pragma once

#include "platform/application.h"
#include "platform/buttons.h"
#include "platform/choice.h"
#include "platform/edit_field.h"
#include "platform/listbox.h"
#include "platform/static_controls.h"
#include "platform/text.h"
#include "qt/qt_desktop.h"
#include "support/scripted_desktop.h"

#include <QtTest>
#include <QtWidgets>
#include <functional>
#include <string>
#include <vector>

namespace tessit::qt {

using testing::joined;

using Log = std::vector<std::string>;

class SampleApp;

class SampleWindow : public Window {
public:
    explicit SampleWindow(SampleApp& owner);

    EditField field{*this,
                    {.name = "field", .place = {20, 20, 120, 24}, .label = "Field"},
                    {.limit_text = 7,
                     .on_key_down = [this](const std::string& key) { return key_down(key); },
                     .on_text_change = [this] { note("field " + field.Text()); },
                     .on_lost_focus = [this] { lost_focus(); }}};
    EditField notes{*this,
                    {.name = "notes", .place = {20, 60, 120, 60}, .label = "Notes"},
                    {.multiline = true, .on_text_change = [this] { note("notes " + notes.Text()); }}};
    ComboBox combo{*this,
                   {.name = "combo", .place = {160, 20, 120, 24}, .label = "Combo"},
                   {.items = {"One", "Two", "Three"}, .list_index = 0, .on_change = [this] { combo_changed(); }}};
    PopupMenu menu{*this,
                   {.name = "menu", .place = {160, 60, 120, 24}, .label = "Menu"},
                   {.items = {"", "10", "20"}, .list_index = 1, .on_change = [this] { note("menu " + menu.Text()); }}};
    RadioButton left{*this,
                     {.name = "left", .place = {160, 100, 60, 20}},
                     {.caption = "Left", .group = 1, .value = true, .on_action = [this] { note("left"); }}};
    RadioButton right{*this,
                      {.name = "right", .place = {230, 100, 60, 20}},
                      {.caption = "Right", .group = 1, .on_action = [this] { note("right"); }}};
    PushButton button{*this,
                      {.name = "button", .place = {300, 20, 80, 24}},
                      {.caption = "Push && pull", .on_action = [this] { on_button(); }}};
    Listbox table{*this,
                  {.name = "table", .place = {20, 140, 360, 140}, .label = "Table", .grow = Grow::both},
                  {.columns = 3,
                   .on_double_click = [this] { note("double " + Str(table.ListIndex())); },
                   .on_change = [this] { note("row " + Str(table.ListIndex())); }}};
    StaticText caption{*this, {.name = "caption", .place = {20, 290, 200, 20}}, {.text = "Lines\rof text"}};

    std::function<bool(const std::string&)> key_down = [](const std::string&) { return false; };
    std::function<void()> on_button = [this] { note("button"); };
    std::function<void()> lost_focus = [] {};
    std::function<void()> combo_changed = [this] { note("combo " + Str(combo.ListIndex()) + " " + combo.Text()); };

    void note(const std::string& what);
    bool Event_CancelClose() override;
    void Event_Activate() override { note("activate"); }
    void Event_EnableMenuItems() override;

private:
    SampleApp& app;
};

class SampleNotice : public Window {
public:
    explicit SampleNotice(SampleApp& owner);
    ProgressBar bar{*this, {.name = "bar", .place = {10, 10, 200, 20}, .label = "Progress"}, 100};
};

class SampleApp : public Application {
public:
    explicit SampleApp(Desktop& desktop_of_test)
        : Application(desktop_of_test, Version{},
                      MenuBar({{"FileMenu",
                                "File",
                                {{"FileOpen", "Open", true},
                                 {"FileSave", "Save", false},
                                 {"Separator", "-", true},
                                 {"FileSaveAs", "Save As", true}}}})) {
        MenuBar1.item("FileOpen").bind([this] { return chosen("FileOpen"); });
        MenuBar1.item("FileSave").bind([this] { return chosen("FileSave"); });
    }
    ~SampleApp() override = default;
    std::string_view opening_entry(const FolderItem& file) const override {
        const auto extension = file.path().extension();
        return extension == ".zp2" ? "FileOpen" : extension == ".csv" ? "FileSave" : "";
    }

    ImplicitWindow<SampleApp, SampleWindow> window{*this};
    ImplicitWindow<SampleApp, SampleWindow> second{*this};
    ImplicitWindow<SampleApp, SampleNotice> notice{*this};
    Log log;
    bool can_save = false;
    bool keeps_open = false;

protected:
    void show_main_window() override {}

private:
    bool chosen(const std::string& entry) {
        log.push_back(entry);
        return true;
    }
};

inline SampleWindow::SampleWindow(SampleApp& owner)
    : Window(owner, {.name = "sample", .title = "Sample", .width = 400, .height = 320}), app(owner) {}

inline void SampleWindow::note(const std::string& what) {
    app.log.push_back(what);
}

inline bool SampleWindow::Event_CancelClose() {
    note("cancel close");
    return app.keeps_open;
}

inline void SampleWindow::Event_EnableMenuItems() {
    menu_item("FileSave").SetEnabled(app.can_save);
}

inline SampleNotice::SampleNotice(SampleApp& owner)
    : Window(owner, {.name = "notice",
                     .title = "Notice",
                     .width = 220,
                     .height = 40,
                     .frame = WindowFrame::notice,
                     .has_menu_bar = false}) {}

// Polls until the condition holds; false after a generous time.
inline bool eventually(const std::function<bool()>& condition) {
    return QTest::qWaitFor(condition, 10'000);
}

} // namespace tessit::qt
