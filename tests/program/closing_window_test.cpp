// SPDX-License-Identifier: MIT
// Every way to close a document window, with every window in front: what is asked about is in front and can be seen,
// and Save writes that document.
#include "composer/compose_window.h"
#include "consolidator/consolidator_window.h"
#include "device/read_window.h"
#include "support/help_window.h"
#include "support/program.h"

namespace tessit::testing {
namespace {

// Answers all questions about unsaved work alike and saves under the name of the window that asks.
class AnsweringDesktop : public ScriptedDesktop {
public:
    App* app = nullptr;
    DialogAnswer answer = DialogAnswer::cancel;
    std::string asked; // names of the windows that were in front, each with a blank

    DialogAnswer show_dialog(const MessageDialog& dialog) override {
        if (!dialog.AlternateActionButton.Visible) {
            return DialogAnswer::action;
        }
        EXPECT_TRUE(app->front_window()->Visible());
        asked += app->front_window()->name() + " ";
        return answer;
    }
    std::optional<FolderItem> choose_save_file(const FileRequest&) override {
        return FolderItem(folder / app->front_window()->name());
    }
    std::string saved(const std::string& window) { return file_bytes(folder / window); }
};

// All four documents are open with work in them: the list hidden since the hand-over, the read window in front.
struct Desk {
    Desk() {
        write_file(desktop.folder / "ZP2Settings.fig", quiet_settings);
        desktop.app = &app;
        app.start();
        app.choose_menu("ConsolidatorNew");
        app.consolidatorWindow->entryField.type("528");
        app.consolidatorWindow->entryField.press(keys::return_);
        app.consolidatorWindow->composebutton.click();
        app.composewindow->allbutton.click();
        app.choose_menu("HelpOpenHelpFile");
        app.choose_menu("FileCreateNewFile");
        app.editwindow->FreqField.type("100");
        app.editwindow->enterbutton.click();
        app.serialselected = true;
        app.choose_menu("ZephonReadZephon");
        for (auto* bytes : {&app.fbyte1, &app.db3, &app.timesec}) {
            (*bytes)[0] = 8;
        }
        app.from_user("read", [this] { app.showzephon(); });
        unsaved(false);
    }

    void unsaved(bool all) { app.editchanged = app.composechanged = app.readchanged = app.consolidatorchanged = all; }
    void act(const std::function<void()>& command) { app.from_user("command", command); }
    void bring_to_front(const std::string& name) {
        for (int i = 0; i < app.WindowCount(); ++i) {
            if (app.Window(i).name() == name) {
                return act([&] { app.Window(i).Show(); });
            }
        }
        ADD_FAILURE() << name;
    }

    AnsweringDesktop desktop;
    App app{desktop, test_version};
};

using Flag = bool AppState::*;

struct Way {
    const char* name;
    const char* document; // that alone is unsaved
    Flag flag;
    std::function<void(App&)> command;
};

const Way ways[] = {
    {"Quit Editor", "editwindow", &AppState::editchanged, [](App& app) { app._FileQuitEditor_Action(); }},
    {"Create New File", "editwindow", &AppState::editchanged, [](App& app) { app._FileCreateNewFile_Action(); }},
    {"the editor's button", "editwindow", &AppState::editchanged, [](App& app) { app.editwindow->close_by_user(); }},
    {"Exit Program", "editwindow", &AppState::editchanged, [](App& app) { app._FileExitProgram_Action(); }},
    {"Consolidator > Quit", "composewindow", &AppState::composechanged,
     [](App& app) { app._ConsolidatorQuit_Action(); }},
    {"the composer's button", "composewindow", &AppState::composechanged,
     [](App& app) { app.composewindow->close_by_user(); }},
    {"Exit Program", "composewindow", &AppState::composechanged, [](App& app) { app._FileExitProgram_Action(); }},
    {"Read", "ReadZPWindow", &AppState::readchanged, [](App& app) { app.ReadZPWindow->Readbutton_Action(); }},
    {"Edit Protocol", "ReadZPWindow", &AppState::readchanged, [](App& app) { app._EditEditProtocol_Action(); }},
    {"the read window's button", "ReadZPWindow", &AppState::readchanged,
     [](App& app) { app.ReadZPWindow->close_by_user(); }},
    {"the main window's button", "ReadZPWindow", &AppState::readchanged,
     [](App& app) { app.Window1->close_by_user(); }},
    {"the composer it was handed to", "consolidatorWindow", &AppState::consolidatorchanged,
     [](App& app) { app.composewindow->close_by_user(); }},
    {"the list's button", "consolidatorWindow", &AppState::consolidatorchanged,
     [](App& app) { app.consolidatorWindow->close_by_user(); }},
    {"Exit Program", "consolidatorWindow", &AppState::consolidatorchanged,
     [](App& app) { app._FileExitProgram_Action(); }},
};

constexpr const char* fronts[] = {"editwindow",   "consolidatorWindow", "composewindow",
                                  "ReadZPWindow", "helpWindow",         "Window1"};

TEST(Closing, save_writes_the_document_that_is_asked_about_and_cancel_leaves_it_in_front) {
    for (const Way& way : ways) {
        Desk reference;
        reference.bring_to_front(way.document);
        reference.act([&] { reference.app._FileSave_Action(); });
        const std::string bytes = reference.desktop.saved(way.document);
        ASSERT_FALSE(bytes.empty()) << way.document;
        for (const char* front : fronts) {
            for (const DialogAnswer answer : {DialogAnswer::action, DialogAnswer::cancel}) {
                SCOPED_TRACE(std::string(way.name) + " for " + way.document + " with " + front + " in front");
                Desk desk;
                desk.bring_to_front(front);
                desk.app.*way.flag = true;
                desk.desktop.answer = answer;
                desk.act([&] { way.command(desk.app); });
                EXPECT_EQ(desk.desktop.asked, std::string(way.document) + " ");
                if (answer == DialogAnswer::action) {
                    EXPECT_EQ(hex(desk.desktop.saved(way.document)), hex(bytes));
                } else {
                    EXPECT_EQ(desk.app.front_window()->name(), way.document);
                    EXPECT_TRUE(desk.app.*way.flag && !desk.desktop.has_quit);
                }
            }
        }
    }
}

TEST(Closing, exit_asks_about_each_document_once) {
    Desk desk;
    desk.unsaved(true);
    desk.desktop.answer = DialogAnswer::alternate;
    desk.act([&] { desk.app._FileExitProgram_Action(); });
    EXPECT_EQ(desk.desktop.asked, "ReadZPWindow editwindow composewindow consolidatorWindow ");
    EXPECT_TRUE(desk.desktop.has_quit);

    Desk kept; // the list is asked about as the composer closes
    kept.app.consolidatorchanged = true;
    kept.act([&] { kept.app._FileExitProgram_Action(); });
    EXPECT_EQ(kept.desktop.asked, "consolidatorWindow ");
    EXPECT_FALSE(kept.desktop.has_quit);
}

TEST(Closing, the_lists_own_quit_saves_nothing_and_leaves_it_in_front) {
    for (const DialogAnswer answer : {DialogAnswer::action, DialogAnswer::cancel}) {
        Desk desk;
        desk.app.consolidatorchanged = true;
        desk.desktop.answer = answer;
        desk.act([&] { desk.app._ConsolidatorQuit_Action(); });
        EXPECT_EQ(desk.desktop.asked, "consolidatorWindow ");
        EXPECT_EQ(desk.app.front_window()->name(), "consolidatorWindow");
        EXPECT_TRUE(desk.app.consolidatorchanged);
    }
}

TEST(Closing, what_was_begun_in_a_closed_window_reaches_no_other_table) {
    Desk desk;
    App& app = desk.app;
    desk.bring_to_front("editwindow");
    app.editwindow->edit_displayBox.double_click(1);
    app.editwindow->edit_displayBox.choose(1);
    app.choose_menu("EditInsertRow");
    EXPECT_TRUE(app.changelevel && app.insert);
    app.editwindow->close_by_user();
    app.choose_menu("FileCreateNewFile");
    app.editwindow->FreqField.type("200");
    app.editwindow->enterbutton.click();
    EXPECT_EQ(app.editwindow->edit_displayBox.Cell(1, column::base), "200");
    EXPECT_EQ(app.editwindow->BankFreqField.Text(), "1");

    app.composewindow->activate();
    app.composewindow->compose_displayBox.choose(1);
    app.composewindow->compose_displayBox.double_click(1);
    app.choose_menu("EditInsertRow");
    EXPECT_EQ(app.level, 1);
    app.composewindow->close_by_user();
    app.choose_menu("ConsolidatorNew");
    app.consolidatorWindow->composebutton.click();
    app.composewindow->freq_field.edit("300");
    app.composewindow->enterbutton.click();
    EXPECT_EQ(app.composewindow->compose_displayBox.Cell(1, column::base), "300");
    EXPECT_EQ(app.composewindow->totalfreqfield.Text(), "1");
}

} // namespace
} // namespace tessit::testing
