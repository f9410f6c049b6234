// SPDX-License-Identifier: MIT
// What editor and composer do alike with the rows of their tables.
#pragma once

#include "core/app.h"
#include "core/document_window.h"
#include "platform/listbox.h"

namespace tessit {

// The row that the next level goes to: a new one at the end, or while `insert` is set the one that Insert Row opened.
// Fault out_of_bounds where that one has been deleted since.
int row_for_next_level(const AppState& state, Listbox& table);

// Opens an empty row above the selected one, which becomes `row`. Tells the user of a full table, which stays.
Insertion open_row_above_selected(App& app, Listbox& table);

void remove_selected_level(Listbox& table); // and numbers the others anew; nothing where none is selected

} // namespace tessit
