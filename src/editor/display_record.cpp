// SPDX-License-Identifier: MIT
// App::displaydata: a level of the register image becomes a row of the editor's table.
#include "core/level_rows.h"
#include "editor/edit_window.h"
#include "level/decoder.h"

namespace tessit {

void App::displaydata(std::int32_t image_level) {
    Listbox& table = editwindow->edit_displayBox;
    const int target = row_for_next_level(*this, table);
    const DecodedLevel decoded =
        decode_level(bytes(image_level), {.time_form = time_form_of(default_timeformat), .mark = decimal_mark()});
    show_level(table, target, decoded);
    editwindow->add_to_totals(decoded);
    insert = false;
}

} // namespace tessit
