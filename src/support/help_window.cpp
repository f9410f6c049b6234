// SPDX-License-Identifier: MIT
#include "support/help_window.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace tessit {

namespace {

void show_document(App& app, const char* name, std::string_view chapter = "") {
    app.helpWindow->HTMLV.LoadPage(app.GetFolderItem("").Child(name), chapter);
    app.helpWindow->Show(); // in front again, where it was open behind another window
}

// The chapter of HELP.html that tells of a window; of any other its beginning.
constexpr std::pair<std::string_view, std::string_view> chapters[] = {
    {"editwindow", "enter"},           {"consolidatorWindow", "list"},
    {"composewindow", "compose"},      {"ReadZPWindow", "read"},
    {"settings_window", "port"},       {"load_direct_window", "load"},
    {"loadzephonWindow", "load-file"}, {"SetPreferencesWindow", "preferences"},
    {"pgsetupwindow", "print"},        {"qcsetupwindow", "print"},
    {"FeedbackWindow", "support"},     {"ContactUsWindow", "support"},
    {"OnlineHelpWindow", "support"},
};

std::string_view chapter_on(const std::string& window) {
    const auto* found = std::find_if(std::begin(chapters), std::end(chapters),
                                     [&](const auto& chapter) { return chapter.first == window; });
    return found == std::end(chapters) ? "" : found->second;
}

} // namespace

void App::show_help_on(const tessit::Window& window) {
    from_user("App.show_help_on", [&] { show_document(*this, "HELP.html", chapter_on(window.name())); });
}

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
