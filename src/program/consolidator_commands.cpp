// SPDX-License-Identifier: MIT
// The Consolidator menu's commands.
#include "composer/compose_window.h"
#include "consolidator/consolidator_window.h"
#include "core/app.h"
#include "core/popup_window.h"
#include "files/list_file.h"
#include "platform/text.h"

namespace tessit {

namespace {

void open_frequency_list(App& app, const FolderItem& file) {
    auto stream = file.OpenAsTextFile(most_list_bytes);
    ConsolidatorWindow& window = app.consolidatorWindow.get(); // before the name: it takes its own when it comes up
    app.filename = Replace(file.DisplayName(), list_extension, "");
    window.nameField.SetText(app.filename);
    app.popupwindow->statusField.SetText("");
    app.popupwindow->statusField.SetText("Loading file:  " + app.filename);
    app.popupwindow->Show();
    app.popupwindow->ProgressBar1.SetValue(0);
    app.popupwindow->ProgressBar1.Refresh();
    EditField& list = window.freqdisplayfield;
    list.SetText(stream->ReadAll()); // its text change makes separators of line ends and tabs
    list.SetText(list.Text());
    window.shows_file(file);
    stream->Close();
}

} // namespace

bool App::_ConsolidatorNew_Action() {
    consolidatorWindow->Show();
    return true;
}

bool App::_ConsolidatorOpen_Action() {
    filepath = GetOpenFolderItem(list_file_type_for_opening());
    if (!filepath) {
        return true;
    }
    open_frequency_list(*this, *filepath);
    filepath.reset(); // settings are not saved until a later save has set it again
    popupwindow->Hide();
    consolidatorWindow->Show();
    dataentry = true; // after the showing, which clears it
    enable_menu_items();
    return true;
}

bool App::_ConsolidatorQuit_Action() {
    if (consolidatorchanged) {
        const auto answer = consolidatorWindow->ask(save_question("Do you want to save your work before quitting?"));
        if (answer != DialogAnswer::alternate) {
            return true; // "Save" saves nothing: the list stays where it is, for the Save command
        }
    }
    consolidatorWindow->forget_list();
    consolidatorWindow.Close();
    composewindow.Close();
    show_main_window();
    return true;
}

} // namespace tessit
