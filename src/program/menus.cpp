// SPDX-License-Identifier: MIT
#include "program/menus.h"

#include "core/app.h"

namespace tessit {

namespace {

MenuItem on(const char* name, const char* caption) {
    return {name, caption, true};
}

MenuItem off(const char* name, const char* caption) { // only a window's rules enable it
    return {name, caption, false};
}

} // namespace

MenuBar make_menu_bar() {
    return MenuBar({
        {"FileMenu",
         "File",
         {on("FileCreateNewFile", "Create New File"), on("FileOpen", "Open"), off("FileSave", "Save"),
          off("FileExport", "Export"), on("FilePageSetup", "Page Setup"), on("FilePrint", "Print"),
          on("FileQuitEditor", "Quit Editor"), on("UntitledSeparator1", "-"), on("FileExitProgram", "Exit Program")}},
        {"ZephonMenu",
         "Zephon",
         {off("ZephonLoadDirect", "Load Direct"), on("ZephonLoadFromFile", "Load From File"),
          on("ZephonReadZephon", "Read Zephon")}},
        {"EditMenu",
         "Edit",
         {on("EditCut", "Cut"), on("EditCopy", "Copy"), on("EditPaste", "Paste"), on("UntitledSeparator0", "-"),
          on("EditDeleteRow", "Delete Row"), off("EditInsertRow", "Insert Row"), on("UntitledSeparator2", "-"),
          on("EditMakeallSine", "Make all Sine"), on("EditMakeallSquare", "Make all Square"),
          on("UntitledSeparator3", "-"), on("EditEditProtocol", "Edit Protocol")}},
        {"ConsolidatorMenu",
         "Consolidator",
         {on("ConsolidatorNew", "New"), on("ConsolidatorOpen", "Open"), on("UntitledSeparator", "-"),
          off("ConsolidatorQuit", "Quit")}},
        {"SettingsMenu",
         "Settings",
         {on("SettingsSetSerialPort", "Set Serial Port"), on("SettingsSetPreferences", "Set Preferences"),
          off("SettingsSaveSettings", "Save Settings")}},
        {"ContactUs",
         "ContactUs",
         {on("ContactUsGiveusyourFeedback", "Give us your Feedback"), on("ContactUsOnlineSupport", "Online Support")}},
        {"HelpMenu",
         "Help",
         {on("HelpOpenHelpFile", "Open Help File"), on("HelpDisplayManual", "Display Manual"),
          on("HelpOnlineHelp", "Online Help")}},
    });
}

void App::_ApplicationAddMenuHandlers() {
    const auto bind = [this](std::string_view entry, bool (App::*action)()) {
        MenuBar1.bind(entry, [this, action] { return (this->*action)(); });
    };
    bind("FileCreateNewFile", &App::_FileCreateNewFile_Action);
    bind("FileOpen", &App::_FileOpen_Action);
    bind("FileSave", &App::_FileSave_Action);
    bind("FileExport", &App::_FileExport_Action);
    bind("FilePageSetup", &App::_FilePageSetup_Action);
    bind("FilePrint", &App::_FilePrint_Action);
    bind("FileQuitEditor", &App::_FileQuitEditor_Action);
    bind("FileExitProgram", &App::_FileExitProgram_Action);
    bind("ZephonLoadDirect", &App::_ZephonLoadDirect_Action);
    bind("ZephonLoadFromFile", &App::_ZephonLoadFromFile_Action);
    bind("ZephonReadZephon", &App::_ZephonReadZephon_Action);
    bind("EditCut", &App::_EditCut_Action);
    bind("EditCopy", &App::_EditCopy_Action);
    bind("EditPaste", &App::_EditPaste_Action);
    bind("EditDeleteRow", &App::_EditDeleteRow_Action);
    bind("EditInsertRow", &App::_EditInsertRow_Action);
    bind("EditMakeallSine", &App::_EditMakeallSine_Action);
    bind("EditMakeallSquare", &App::_EditMakeallSquare_Action);
    bind("EditEditProtocol", &App::_EditEditProtocol_Action);
    bind("ConsolidatorNew", &App::_ConsolidatorNew_Action);
    bind("ConsolidatorOpen", &App::_ConsolidatorOpen_Action);
    bind("ConsolidatorQuit", &App::_ConsolidatorQuit_Action);
    bind("SettingsSetSerialPort", &App::_SettingsSetSerialPort_Action);
    bind("SettingsSetPreferences", &App::_SettingsSetPreferences_Action);
    bind("SettingsSaveSettings", &App::_SettingsSaveSettings_Action);
    bind("ContactUsGiveusyourFeedback", &App::_ContactUsGiveusyourFeedback_Action);
    bind("ContactUsOnlineSupport", &App::_ContactUsOnlineSupport_Action);
    bind("HelpOpenHelpFile", &App::_HelpOpenHelpFile_Action);
    bind("HelpHelpFile", &App::_HelpHelpFile_Action); // this and the last one are names that no entry carries
    bind("HelpDisplayManual", &App::_HelpDisplayManual_Action);
    bind("HelpOnlineHelp", &App::_HelpOnlineHelp_Action);
    bind("Untitled", &App::_Untitled_Action);
}

} // namespace tessit
