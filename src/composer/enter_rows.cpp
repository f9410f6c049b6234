// SPDX-License-Identifier: MIT
// The composer's two entry actions: one level from the entry fields, or one for every prime.
#include "composer/compose_window.h"
#include "core/level_rows.h"
#include "editor/edit_window.h"
#include "editor/level_entry.h"

namespace tessit {

namespace {

constexpr Color used_cell{0xC0C0C0};

} // namespace

void ComposeWindow::enterbutton_Action() {
    allbutton.SetEnabled(false);
    formatbox.SetEnabled(false);
    if (refuse_full_table()) {
        return;
    }
    if (999999.0 < app.strintR(freq_field.Text())) {
        app.MsgBox("Maximum frequency exceeded"); // and enters the level all the same
    }
    app.composechanged = true;
    remember_time();
    if (app.level == 0) {
        enter_new_row();
    } else {
        enter_changed_row();
    }
}

bool ComposeWindow::refuse_full_table() {
    const bool full = compose_displayBox.LastIndex() >= most_levels;
    if (full) {
        app.MsgBox("maximum 50 levels has been exceeded");
    }
    return full;
}

void ComposeWindow::remember_time() {
    const bool packet = wavebox.ListIndex() > 0;
    const bool seconds = formatbox.ListIndex() == 0;
    (packet ? (seconds ? app.default_wp_time_s : app.default_wp_time_ms)
            : (seconds ? app.default_sf_time_s : app.default_sf_time_ms)) = timefield.Text();
}

float ComposeWindow::frequencies_of(int row) {
    return app.strintR(compose_displayBox.Cell(row, column::frequencies));
}

std::int32_t ComposeWindow::row_seconds(int row) {
    return total_seconds(frequencies_of(row), app.strintR(timefield.Text()));
}

// Columns 1 to 11. Gives the row's minutes and seconds in the clock form, zeros in the form of seconds.
ClockTime ComposeWindow::fill_row(int row, const std::string& frequency, RowCarry carry) {
    Listbox& table = compose_displayBox;
    const int wave = wavebox.ListIndex();
    table.SetCell(row, column::waveform, wavebox.Text());
    table.SetCell(row, column::base, frequency);
    table.SetCell(row, column::width, wave == single_frequency_index ? "1" : widthbox.Text());
    table.SetCell(row, column::frequencies, frequencies_text(composer_wave_order, wave, widthbox.ListIndex()));
    table.SetCell(row, column::time_each, timefield.Text());
    ClockTime total;
    if (formatbox.ListIndex() == 0) {
        table.SetCell(row, column::total_time, Str(row_seconds(row)));
    } else if (formatbox.ListIndex() == 1) {
        total = row_total(minutes_and_seconds(timefield.Text()), frequencies_of(row), carry);
        const std::string before = carry == RowCarry::new_row ? table.Cell(row, column::total_time) : "";
        table.SetCell(row, column::total_time, before + format_row_total(total));
    }
    table.SetCell(row, column::pulse, pulsebox.Text());
    table.SetCell(row, column::rate, ratebox.Text());
    table.SetCell(row, column::wave_shape, shapebox.Text());
    table.SetCell(row, column::duty_cycle, dutybox.Text());
    table.SetCell(row, column::output, outputbox.Text());
    return total;
}

void ComposeWindow::show_frequencies(std::int32_t start, int last_row) {
    std::vector<float> rows;
    for (int row = 1; row <= last_row; ++row) {
        rows.push_back(frequencies_of(row));
    }
    totalfreqfield.SetText(Str(bank_frequencies(start, rows).value_or(start)));
}

std::vector<std::string> ComposeWindow::total_times() {
    std::vector<std::string> cells;
    for (int row = 1; row < compose_displayBox.ListCount(); ++row) {
        cells.push_back(compose_displayBox.Cell(row, column::total_time));
    }
    return cells;
}

void ComposeWindow::keep_total(const ClockTime& total) {
    totalhours = total.hours;
    totalminutes = total.minutes;
    totalseconds = total.seconds;
}

void ComposeWindow::show_full_total() {
    totaltimefield.SetText(format_clock({.hours = totalhours, .minutes = totalminutes, .seconds = totalseconds}));
}

void ComposeWindow::show_minutes_total() { // the hours are not shown
    totaltimefield.SetText(format_minutes(totalminutes, totalseconds));
}

void ComposeWindow::enter_new_row() {
    Listbox& table = compose_displayBox;
    const int row = row_for_next_level(app, table);
    fill_row(row, freq_field.Text(), RowCarry::new_row);
    show_frequencies(0, table.ListCount() - 1);
    if (formatbox.ListIndex() == 0) {
        keep_total(seconds_total(totalseconds, row_seconds(row)));
        show_full_total();
    } else if (formatbox.ListIndex() == 1) {
        totaltimefield.SetText("");
        keep_total({});
        keep_total(total_of_new_row(total_times()));
        show_minutes_total();
    }
    app.editwindow->FreqField.SetText(""); // the editor's field; the editor comes up with it where it was not
    Show();                                // behind this window, which goes on
    grey_used_cell();
    app.insert = false;
}

void ComposeWindow::grey_used_cell() {
    const int selected = freq_listBox.ListIndex();
    if (selected > 5) { // scrolls the list
        freq_listBox.SetListIndex(selected + 3);
        freq_listBox.SetListIndex(selected);
    }
    compose_displayBox.SetListIndex(compose_displayBox.ListCount() - 1);
    app.selrowcol[app.cellrow][app.cellcol] = used_cell;
    freq_listBox.SetEnabled(true);
    freq_listBox.Refresh();
}

void ComposeWindow::enter_changed_row() {
    const int row = app.level;
    if (row >= compose_displayBox.ListCount()) {
        throw Fault(FaultKind::out_of_bounds, "Level " + Str(row) +
                                                  ", which was to be changed, is not in the table any more. "
                                                  "Double-click another level to change that one, or the empty row "
                                                  "at the top to go on with new levels.");
    }
    const ClockTime own = fill_row(row, freq_field.Text(), RowCarry::single_carry);
    const bool seconds = formatbox.ListIndex() == 0;
    // The sum begins with what the total variable still holds, so in seconds it shows too much until the next level.
    show_frequencies(seconds ? row_seconds(row) : 0, compose_displayBox.LastIndex());
    if (seconds) {
        keep_total(seconds_total(totalseconds, row_seconds(0))); // by the frequencies of the empty row: nothing
        show_full_total();
    } else if (formatbox.ListIndex() == 1) {
        totaltimefield.SetText("");
        keep_total({});
        keep_total(total_of_changed_row(total_times(), own.minutes));
        show_minutes_total();
    }
    app.level = 0;
    app.insert = false;
}

void ComposeWindow::allbutton_Action() {
    Listbox& table = compose_displayBox;
    for (int i = 0; i < freq_listBox.ListCount(); ++i) {
        if (refuse_full_table()) {
            return;
        }
        app.composechanged = true;
        table.AddRow(Str(table.ListCount()));
        const int row = i + 1; // not the row just added: what an earlier table holds is overwritten from its top
        const ClockTime own = fill_row(row, freq_listBox.Cell(i, prime_column::prime), RowCarry::single_carry);
        show_frequencies(0, table.ListCount() - 1);
        totaltimefield.SetText("");
        keep_total(added_up({.hours = totalhours, .minutes = totalminutes, .seconds = totalseconds}, own));
        show_full_total();
        table.SetListIndex(table.ListCount() - 1);
    }
}

} // namespace tessit
