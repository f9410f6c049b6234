// SPDX-License-Identifier: MIT
// Which commands each window offers, asked anew before the menu is used, and start and end of the program.
#include "device/settings_window.h"
#include "support/program.h"

namespace tessit::testing {
namespace {

// The entries that can be chosen, in menu order.
std::string offered(App& app) {
    app.enable_menu_items();
    std::string names;
    for (const Menu& menu : app.MenuBar1.menus()) {
        for (const MenuItem& item : menu.items) {
            names += item.Enabled() ? (names.empty() ? "" : " ") + item.name() : "";
        }
    }
    return names;
}

TEST(Menus, each_window_offers_its_commands) {
    Program program;
    App& app = program.app;
    const std::string everywhere = " ContactUsGiveusyourFeedback ContactUsOnlineSupport HelpOpenHelpFile "
                                   "HelpDisplayManual HelpOnlineHelp";
    EXPECT_EQ(offered(app),
              "FileCreateNewFile FileOpen FilePageSetup FileQuitEditor FileExitProgram ZephonLoadFromFile "
              "ZephonReadZephon EditMakeallSine EditMakeallSquare ConsolidatorNew ConsolidatorOpen "
              "SettingsSetSerialPort SettingsSetPreferences" +
                  everywhere);
    program.new_protocol();
    const std::string in_editor =
        "FileOpen FileSave FileExport FilePageSetup FilePrint FileQuitEditor FileExitProgram ZephonLoadDirect "
        "ZephonReadZephon EditDeleteRow EditInsertRow EditMakeallSine EditMakeallSquare "
        "SettingsSetSerialPort SettingsSetPreferences" +
        everywhere;
    EXPECT_EQ(offered(app), in_editor);
    app.choose_menu("SettingsSetSerialPort");
    EXPECT_EQ(offered(app), "FileExitProgram ZephonReadZephon EditMakeallSine EditMakeallSquare EditEditProtocol "
                            "SettingsSaveSettings" +
                                everywhere);
    app.settings_window->close_by_user();
    EXPECT_EQ(offered(app), in_editor);
    app.choose_menu("FileQuitEditor");
    EXPECT_TRUE(app.Window1->Visible());
    app.choose_menu("FileQuitEditor"); // nothing to close
    app.choose_menu("FileSave");       // disabled: nothing happens
    EXPECT_FALSE(app.editwindow.exists());
}

TEST(Menus, a_notice_that_stays_up_does_not_take_the_menu_from_the_editor) {
    Program program;
    program.new_protocol();
    program.app.popupwindow->Show();
    EXPECT_NE(offered(program.app).find("FileSave"), std::string::npos);
}

TEST(Start, credentials_port_and_version_are_completed_once) {
    Program program;
    App& app = program.app;
    EXPECT_EQ(joined(app.port, app.uName.size()), "465|15");
    EXPECT_NE(app.pwd, deployment::stored_credential);
    EXPECT_EQ(joined(app.Window1->versiontext.Text(), app.seperator), "Version  Beta  1.2.3|:");
    EXPECT_FALSE(app.Window1->StatusField.Visible());
    EXPECT_EQ(app.myactivewindow, document::none);
    EXPECT_FALSE(app.getrts());
}

TEST(Start, a_final_version_has_no_stage_word_and_two_blanks) {
    ScriptedDesktop desktop;
    write_file(desktop.folder / "ZP2Settings.fig", quiet_settings);
    App app(desktop, {.StageCode = Stage::final, .MajorVersion = 1, .MinorVersion = 2, .BugVersion = 3});
    app.start();
    EXPECT_EQ(app.Window1->versiontext.Text(), "Version  1.2.3");
}

} // namespace
} // namespace tessit::testing
