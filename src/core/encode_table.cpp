// SPDX-License-Identifier: MIT
// App's way from a document's table to the register image.
#include "core/app.h"
#include "core/document_window.h"
#include "core/popup_window.h"
#include "level/encoder.h"
#include "platform/text.h"

namespace tessit {

namespace {

EncodingResult encode(RegisterImage& image, int level, const LevelCells& cells, const EncodingRules& rules) {
    try {
        return encode_level(image, level, cells, rules);
    } catch (const Fault& fault) {
        throw Fault(fault.kind(),
                    "Level " + Str(level) + " can't be turned into the generator's form. " + fault.what());
    }
}

} // namespace

void App::load_data_array() {
    encode_document(front_document());
}

void App::encode_document(DocumentWindow* document) {
    datareset();
    popupwindow->statusField.SetText("loading data registers");
    popupwindow->Show();
    auto& progress = popupwindow->ProgressBar1;
    progress.SetValue(1);
    const auto table = document == nullptr ? std::nullopt : document->level_table();
    const int last_level = table ? table->last_level : 0;
    for (int level_row = 1; level_row <= last_level; ++level_row) {
        if (level_row > most_levels) {
            throw Fault(FaultKind::out_of_bounds, "The table has " + Str(last_level) + " levels, and a bank holds " +
                                                      Str(most_levels) + ". Delete the rows that are too many.");
        }
        const LevelCells cells = cells_of(table->rows, level_row);
        if (table->rules.blank_rows == BlankRows::skipped && same_text(cells[column::waveform], "blank")) {
            continue;
        }
        if (encode(*this, level_row, cells, table->rules) == EncodingResult::too_many_decimals) {
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

} // namespace tessit
