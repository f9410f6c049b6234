// SPDX-License-Identifier: MIT
// The seam through which shared commands work on the document window in front, whichever it is.
#pragma once

#include "core/app_state.h"
#include "level/encoder.h"
#include "platform/application.h"
#include "platform/listbox.h"

#include <string>

namespace tessit {

class DocumentWindow {
public:
    virtual ~DocumentWindow() = default;

    virtual const Listbox& level_table() = 0;
    virtual int last_level_row() = 0;           // levels are rows 1 to this one
    virtual EncodingRules encoding_rules() = 0; // how this window's texts become bytes
};

// The row that the next level goes to: a new one at the end, or while `insert` is set the one that Insert Row opened.
// Fault out_of_bounds where that one has been deleted since.
int row_for_next_level(const AppState& state, Listbox& table);

// Two commands look for a document by title and differ in whether the main panel can be that document.
enum class MainPanel { counts, is_passed_over };

// The title of the last visible document window in the list, which need not be the one in front. Empty for none.
std::string title_of_last_document(const Application& app, MainPanel main_panel);

// The printed report's column widths and alignments, which every level table sets when it opens.
void set_up_report_columns(AppState& state);

} // namespace tessit
