// SPDX-License-Identifier: MIT
// App::Update_display: what stands in the entry fields becomes a new row, or changes one.
#include "core/level_rows.h"
#include "editor/edit_window.h"
#include "editor/level_entry.h"
#include "platform/text.h"

namespace tessit {

namespace {

void fill_cells_before_total(EditWindow& w, int row) {
    Listbox& table = w.edit_displayBox;
    const int wave = w.wave_box.ListIndex();
    table.SetCell(row, column::waveform, w.wave_box.Text());
    table.SetCell(row, column::base, w.FreqField.Text());
    table.SetCell(row, column::width, wave == single_frequency_index ? "" : w.WidthMenu.Text());
    table.SetCell(row, column::frequencies, frequencies_text(editor_wave_order, wave, w.WidthMenu.ListIndex()));
    table.SetCell(row, column::time_each, w.time_field.Text());
}

void fill_cells_behind_total(EditWindow& w, int row) {
    Listbox& table = w.edit_displayBox;
    table.SetCell(row, column::pulse, w.PulseMenu.Text());
    table.SetCell(row, column::rate, w.rate_field.Text());
    table.SetCell(row, column::wave_shape, w.shape_box.Text());
    table.SetCell(row, column::duty_cycle, w.DutyMenu.Text() + "%");
    table.SetCell(row, column::output, w.output_box.Text());
}

// Column 6. Gives the seconds that the form of seconds leaves in the total variable, 0 in the clock form.
std::int32_t fill_total(App& app, EditWindow& w, int row) {
    Listbox& table = w.edit_displayBox;
    const float frequencies = app.strintR(table.Cell(row, column::frequencies));
    if (w.format_box.ListIndex() == 0) {
        const std::int32_t seconds = total_seconds(frequencies, app.strintR(w.time_field.Text()));
        table.SetCell(row, column::total_time, Str(seconds));
        return seconds;
    }
    if (w.format_box.ListIndex() == 1) {
        const std::string clock = format_clock(total_clock(frequencies, w.time_field.Text()));
        table.SetCell(row, column::total_time, table.Cell(row, column::total_time) + clock);
    }
    return 0;
}

void enter_new_level(App& app, EditWindow& w) {
    Listbox& table = w.edit_displayBox;
    if (table.ListCount() - 1 >= most_levels) {
        return app.MsgBox("maximum 50 levels has been exceeded");
    }
    if (!IsNumeric(w.FreqField.Text(), app.decimal_mark())) {
        return app.MsgBox("Invalid frequency entered");
    }
    const int row = row_for_next_level(app, table);
    fill_cells_before_total(w, row);
    fill_total(app, w, row);
    fill_cells_behind_total(w, row);
    w.add_up_cells(0, PlainSeconds::added);
    w.level_field.SetText(Str(table.ListCount()));
    table.SetScrollPosition(row - 10);
    w.FreqField.SetText("");
    app.insert = false;
}

// The entry fields from the last row, so that they show what the next level would inherit.
void show_last_row(EditWindow& w) {
    const Listbox& table = w.edit_displayBox;
    const auto cell = [&](int index) { return table.Cell(table.ListCount() - 1, index); };
    w.wave_box.ChooseText(cell(column::waveform));
    w.WidthMenu.ChooseText(cell(column::width));
    w.FreqField.SetText("");
    w.time_field.SetText(cell(column::time_each));
    w.PulseMenu.ChooseText(cell(column::pulse));
    w.rate_field.SetText(cell(column::rate));
    w.DutyMenu.ChooseText(cell(column::duty_cycle), 1);
    w.shape_box.ChooseText(cell(column::wave_shape));
    w.output_box.ChooseText(cell(column::output));
}

void change_level(App& app, EditWindow& w) {
    const int row = app.row;
    if (row >= w.edit_displayBox.ListCount()) {
        throw Fault(FaultKind::out_of_bounds, "Level " + Str(row) +
                                                  ", which was to be changed, is not in the table any more. Press "
                                                  "\"Cancel Change\" to go on with new levels.");
    }
    fill_cells_before_total(w, row);
    if (w.format_box.ListIndex() == 1) {
        w.edit_displayBox.SetCell(row, column::total_time, "");
    }
    const std::int32_t left_over = fill_total(app, w, row);
    fill_cells_behind_total(w, row);
    // The sum begins with what the total variable still holds, so in seconds it shows too much until the next level.
    w.add_up_cells(left_over, PlainSeconds::added);
    w.FreqField.SetText("");
    w.changelvlfield.SetVisible(false);
    w.cancelbutton.SetVisible(false);
    w.submitchange.SetVisible(false);
    app.changelevel = false;
    show_last_row(w);
}

} // namespace

void App::Update_display() {
    EditWindow& window = editwindow.get();
    if (changelevel) {
        change_level(*this, window);
    } else {
        enter_new_level(*this, window);
    }
}

} // namespace tessit
