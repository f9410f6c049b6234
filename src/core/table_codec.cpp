// SPDX-License-Identifier: MIT
// App's two ways between the table in front and the register image.
#include "core/app.h"
#include "core/document_window.h"
#include "core/popup_window.h"
#include "editor/edit_window.h"
#include "level/decoder.h"
#include "level/encoder.h"

namespace tessit {

namespace {

// The runtime's own words would tell the user nothing.
Fault unencodable(const Fault& fault, int level, const LevelCells& cells) {
    return Fault(fault.kind(),
                 "Level " + Str(level) + " can't be turned into the generator's form. Its base frequency (\"" +
                     cells[column::base] +
                     "\") must be a number of 0.256 or more in at most nine characters, and its time (\"" +
                     cells[column::time_each] + "\") needs a colon in the form MM:SS.");
}

EncodingResult encode(RegisterImage& image, int level, const LevelCells& cells, const EncodingRules& rules) {
    try {
        return encode_level(image, level, cells, rules);
    } catch (const Fault& fault) {
        throw unencodable(fault, level, cells);
    }
}

} // namespace

void App::datareset() {
    reset();
    row = 0;
}

void App::load_data_array() {
    encode_document(front_document());
}

void App::encode_document(DocumentWindow* document) {
    datareset();
    popupwindow->statusField.SetText("loading data registers");
    popupwindow->Show();
    auto& progress = popupwindow->ProgressBar1;
    progress.SetValue(1);
    const int last_row = document == nullptr ? 0 : document->last_level_row();
    for (int level_row = 1; level_row <= last_row; ++level_row) {
        if (level_row > most_levels) {
            throw Fault(FaultKind::out_of_bounds, "The table has " + Str(last_row) + " levels, and a bank holds " +
                                                      Str(most_levels) + ". Delete the rows that are too many.");
        }
        const EncodingRules rules = document->encoding_rules();
        const LevelCells cells = cells_of(document->level_table(), level_row);
        if (rules.blank_rows == BlankRows::skipped && same_text(cells[column::waveform], "blank")) {
            continue;
        }
        if (encode(*this, level_row, cells, rules) == EncodingResult::too_many_decimals) {
            for (int beep = 0; beep < 3; ++beep) {
                Beep();
            }
            return MsgBox("too many decimals entered", DialogIcon::stop); // the notice stays up
        }
        progress.SetValue(progress.Value() + 1);
        progress.Refresh();
    }
    popupwindow->Hide();
}

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
