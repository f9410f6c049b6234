// SPDX-License-Identifier: MIT
#include "core/document_window.h"

#include "level/level_table.h"
#include "platform/text.h"

namespace tessit {

DocumentWindow* last_document(const Application& app, MainPanel main_panel) {
    DocumentWindow* last = nullptr;
    for (int i = 0; i < app.WindowCount(); ++i) {
        Window& window = app.Window(i);
        if (window.Visible() && window.Frame() == 0) {
            auto* document = dynamic_cast<DocumentWindow*>(&window); // null for the main panel
            last = document == nullptr && main_panel == MainPanel::is_passed_over ? last : document;
        }
    }
    return last;
}

ShownDocument DocumentWindow::shown_document() {
    return {.path = file_ ? file_->AbsolutePath() : "", .modified = change_flag()};
}

void archive_shared_state(Archive& archive, AppState& state) {
    archive.flag("use_euro", state.use_euro);
    archive.text("filename", state.filename);
    archive.text("filetype", state.filetype);
    archive.number("start_level", state.start_level);
    archive.number("level", state.level);
    archive.number("row", state.row);
    archive.flag("insert", state.insert);
    archive.flag("changelevel", state.changelevel);
    archive.number("default_timeformat", state.default_timeformat);
    for (std::string* time : {&state.default_sf_time_s, &state.default_sf_time_ms, &state.default_wp_time_s,
                              &state.default_wp_time_ms}) { // the remembered ones
        archive.text("time", *time);
    }
}

MessageDialog save_question(const std::string& message) {
    return {.Message = message,
            .Explanation = "If you don't save, your changes will be lost",
            .Icon = DialogIcon::caution,
            .ActionButton = {"Save", true},
            .CancelButton = {"Cancel", true},
            .AlternateActionButton = {"Don't Save", true}};
}

MessageDialog unsaved_work_dialog(const std::string& what_is_unsaved) {
    return save_question(what_is_unsaved + "\rDo you want to save it?");
}

void set_up_report_columns(AppState& state) {
    state.cwidth = Split(report_column_widths, ",");
    for (int i = 0; i < column::count; ++i) {
        state.calign[i] = report_column_alignments[static_cast<std::size_t>(i)];
    }
}

} // namespace tessit
