// SPDX-License-Identifier: MIT
#include "support/help_window.h"

namespace tessit {

namespace {

void show_document(App& app, const char* name) {
    app.helpWindow->HTMLV.LoadPage(app.GetFolderItem("").Child(name));
    app.helpWindow->Show(); // in front again, where it was open behind another window
}

} // namespace

bool App::_HelpOpenHelpFile_Action() {
    show_document(*this, "HELP.html");
    return true;
}

bool App::_HelpHelpFile_Action() {
    return _HelpOpenHelpFile_Action();
}

bool App::_HelpDisplayManual_Action() {
    show_document(*this, "manual.pdf");
    return true;
}

} // namespace tessit
