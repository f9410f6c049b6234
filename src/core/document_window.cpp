// SPDX-License-Identifier: MIT
#include "core/document_window.h"

#include "platform/text.h"

namespace tessit {

namespace {

constexpr const char* main_title = "Tessit Control";

} // namespace

int row_for_next_level(const AppState& state, Listbox& table) {
    if (!state.insert) {
        table.AddRow(Str(table.ListCount()));
        return table.ListCount() - 1;
    }
    if (state.row >= table.ListCount()) {
        throw Fault(
            FaultKind::out_of_bounds,
            "Row " + Str(state.row) +
                ", which Insert Row opened for the next level, is not in the table any more. Select a level and "
                "choose Insert Row again, or save this table and begin another one.");
    }
    return state.row;
}

std::string title_of_last_document(const Application& app, MainPanel main_panel) {
    std::string title;
    for (int i = 0; i < app.WindowCount(); ++i) {
        const Window& window = app.Window(i);
        const bool passed_over = main_panel == MainPanel::is_passed_over && window.Title() == main_title;
        if (window.Visible() && window.Frame() == 0 && !passed_over) {
            title = window.Title();
        }
    }
    return title;
}

void set_up_report_columns(AppState& state) {
    state.cwidth = Split(report_column_widths, ",");
    for (int i = 0; i < column::count; ++i) {
        state.calign[i] = report_column_alignments[static_cast<std::size_t>(i)];
    }
}

} // namespace tessit
