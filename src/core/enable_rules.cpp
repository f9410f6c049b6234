// SPDX-License-Identifier: MIT
#include "core/enable_rules.h"

namespace tessit {

void EnableRules::apply(MenuBar& bar) const {
    for (const auto entry : enables) {
        bar.item(entry).SetEnabled(true);
    }
    for (const auto entry : disables) {
        bar.item(entry).SetEnabled(false);
    }
}

const EnableRules settings_window_rules{
    .enables = {"SettingsSaveSettings"},
    .disables = {"SettingsSetSerialPort", "SettingsSetPreferences", "FileCreateNewFile", "FileOpen", "FileExport",
                 "FilePrint", "FilePageSetup", "FileQuitEditor", "ZephonLoadDirect", "ZephonLoadFromFile", "EditCut",
                 "EditCopy", "EditPaste", "EditDeleteRow", "EditInsertRow", "ConsolidatorNew", "ConsolidatorOpen",
                 "ConsolidatorQuit"},
};

} // namespace tessit
