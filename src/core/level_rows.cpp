// SPDX-License-Identifier: MIT
#include "core/level_rows.h"

#include "level/level_table.h"
#include "platform/text.h"

namespace tessit {

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

Insertion open_row_above_selected(App& app, Listbox& table) {
    app.row = table.ListIndex();
    if (table.ListCount() > most_levels) {
        app.MsgBox("All 50 levels are full");
        return Insertion::table_full;
    }
    table.InsertRow(table.ListIndex(), Str(table.ListCount()));
    renumber_levels(table);
    return Insertion::done;
}

void remove_selected_level(Listbox& table) {
    if (table.ListIndex() > 0) {
        table.RemoveRow(table.ListIndex());
        renumber_levels(table);
    }
}

} // namespace tessit
