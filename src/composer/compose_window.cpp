// SPDX-License-Identifier: MIT
#include "composer/compose_window.h"

#include "composer/grouping.h"
#include "consolidator/consolidator_window.h"
#include "core/enable_rules.h"
#include "core/level_rows.h"

namespace tessit {

namespace {

const EnableRules rules{
    .enables = {"ConsolidatorQuit", "HelpOpenHelpFile", "HelpDisplayManual", "FilePrint", "FilePageSetup", "FileSave",
                "FileExport", "EditDeleteRow", "EditInsertRow", "ZephonLoadDirect"},
    .disables = {"ConsolidatorNew", "ConsolidatorOpen", "FileOpen", "FileCreateNewFile", "FileQuitEditor", "EditCut",
                 "EditCopy", "EditPaste", "ZephonLoadFromFile", "SettingsSaveSettings"},
};

constexpr Color unused_cell{0xFFFFFF};

void archive_colors(Archive& archive, Array<Color>& colors) {
    std::int32_t count = colors.count();
    archive.number("colours", count);
    for (int i = 0; i < count; ++i) {
        if (i == colors.count()) {
            colors.append({});
        }
        auto rgb = static_cast<std::int32_t>(colors[i].rgb);
        archive.number("colour", rgb);
        colors[i] = {static_cast<unsigned>(rgb)};
    }
}

} // namespace

void ComposeWindow::Event_Open() {
    app.myactivewindow = document::composer;
    app.level = 0; // what was begun in an earlier table
    app.insert = false;
    namefield.SetText(app.consolidatorWindow->nameField.Text());
    freq_listBox.SetHeadings("Prime\tWidth\tCenter");
    app.group.fill(false);
    freq_listBox.SetColumnWidths("80, 40, 80");
    const int last_row = app.numentries > 9 ? app.numentries + 10 : 10;
    app.selrowcol = {static_cast<std::size_t>(last_row) + 1, Array<Color>(4, unused_cell)};
    set_up_level_table(compose_displayBox);
    timefield.SetText(app.default_sf_time_ms); // whatever the format
    ratebox.SetText(app.default_rate);
    dutybox.SetListIndex(app.defaultduty);
    formatbox.SetListIndex(app.default_timeformat); // where it changes, the time is written anew
    outputbox.SetListIndex(app.defaultoutput);
    pulsebox.SetListIndex(app.defaultpulse);
    shapebox.SetListIndex(app.defaultshape);
    ratebox.SetText(app.default_rate);
}

void ComposeWindow::Event_Activate() {
    app.myactivewindow = document::composer;
}

void ComposeWindow::Event_EnableMenuItems() {
    rules.apply(app.MenuBar1);
}

void ComposeWindow::show_time(TimeForm form) {
    const bool packet = wavebox.ListIndex() > 0;
    const bool clock = form == TimeForm::clock;
    timefield.SetText(packet ? (clock ? app.default_wp_time_ms : app.default_wp_time_s)
                             : (clock ? app.default_sf_time_ms : app.default_sf_time_s));
}

bool ComposeWindow::freq_listBox_CellClick(int row, int column) {
    app.cellrow = row;
    app.cellcol = column;
    if (column == prime_column::width) {
        return false;
    }
    freq_field.SetText(freq_listBox.Cell(row, column));
    const bool seconds = formatbox.ListIndex() == 0;
    if (column == prime_column::center) {
        wavebox.SetListIndex(app.defaultpacket);
        timefield.SetText(seconds ? app.default_wp_time_s : app.default_wp_time_ms);
    }
    if (column == prime_column::prime) {
        timefield.SetText(seconds ? app.default_sf_time_s : app.default_sf_time_ms);
        wavebox.SetListIndex(single_frequency_index); // after the time: its change has the last word on it
    }
    widthbox.SetListIndex(truncate(app.strintR(freq_listBox.Cell(row, prime_column::width))));
    return false;
}

bool ComposeWindow::freq_listBox_CellTextPaint(CellGraphics& g, int row, int, int, int) {
    g.ForeColor = app.textshade[row];
    return false;
}

void ComposeWindow::freq_listBox_CellBackgroundPaint(CellGraphics& g, int row, int column) {
    g.ForeColor = app.selrowcol[row][column];
    g.FillRect(0, 0, g.Width, g.Height);
}

void ComposeWindow::wavebox_Change() {
    const bool packet = wavebox.ListIndex() > 0;
    widthbox.SetEnabled(packet);
    widthbox.SetListIndex(packet ? app.defaultwidth : 0);
    show_time(app.default_timeformat > 0 ? TimeForm::clock : TimeForm::seconds); // not by formatbox
}

void ComposeWindow::formatbox_Change() {
    const int format = formatbox.ListIndex();
    if (wavebox.ListIndex() < 0 || (format != 0 && format != 1)) {
        return;
    }
    show_time(time_form_of(format));
    app.default_timeformat = format; // in contrast to the editor's
}

void ComposeWindow::compose_displayBox_DoubleClick() {
    const int row = compose_displayBox.ListIndex();
    const auto cell = [&](int index) -> const std::string& { return compose_displayBox.Cell(row, index); };
    freq_field.SetText(cell(column::base));
    if (const Wave* wave = wave_with_text(cell(column::waveform))) {
        wavebox.SetListIndex(static_cast<int>(wave - waves.data())); // the editor's index, which turns a sweep round
    }
    widthbox.SetListIndex(truncate(app.strintR(cell(column::width)) / 10.0)); // 0 for each of the digits
    timefield.SetText(cell(column::time_each));
    pulsebox.ChooseText(cell(column::pulse));
    ratebox.SetText(cell(column::rate));
    dutybox.SetListIndex(truncate(app.strintR(cell(column::duty_cycle)) / 10.0));
    shapebox.ChooseText(cell(column::wave_shape));
    outputbox.ChooseText(cell(column::output));
    app.level = row;
    freq_field.SetFocus();
    freq_field.SelectAll();
}

bool ComposeWindow::compose_displayBox_CellClick() {
    menu_item("EditDeleteRow").SetEnabled(true);
    return false;
}

std::optional<LevelTable> ComposeWindow::level_table() {
    return LevelTable{.rows = compose_displayBox,
                      .last_level = compose_displayBox.LastIndex(),
                      .rules = {.time_form = formatbox.ListIndex() == 0 ? TimeForm::seconds : TimeForm::clock,
                                .comma = app.use_euro ? CommaRule::becomes_point : CommaRule::stays,
                                .rate = RateRule::high_byte_by_255,
                                .blank_rows = BlankRows::encoded},
                      .total_frequencies = totalfreqfield,
                      .total_time = totaltimefield};
}

void ComposeWindow::save() {
    app.filename = namefield.Text();
    app.save_document(this);
    app.composechanged = false; // also when the dialog was dismissed
}

void ComposeWindow::delete_selected_level() {
    remove_selected_level(compose_displayBox); // the totals stay as they were
}

Insertion ComposeWindow::insert_level() {
    if (compose_displayBox.ListIndex() > 0) {
        if (open_row_above_selected(app, compose_displayBox) == Insertion::table_full) {
            return Insertion::table_full;
        }
        compose_displayBox.SetListIndex(app.row);
        compose_displayBox.SetScrollPosition(compose_displayBox.ListCount() - 7);
    }
    app.insert = true; // also where nothing was selected, unlike the editor
    return Insertion::done;
}

MessageDialog ComposeWindow::closing_question() const {
    return unsaved_work_dialog("Your composed protocol has not been saved to file");
}

void ComposeWindow::archive_document(Archive& archive) {
    Window::archive(archive);
    archive_shared_state(archive, app);
    for (std::int32_t* number :
         {&app.numentries, &app.composelevel, &app.cellrow, &app.cellcol, &totalminutes, &totalseconds, &totalhours}) {
        archive.number("number", *number);
    }
    archive_colors(archive, app.textshade);
    std::int32_t rows = app.selrowcol.count();
    archive.number("rows", rows);
    for (int row = 0; row < rows; ++row) {
        if (row == app.selrowcol.count()) {
            app.selrowcol.append({});
        }
        archive_colors(archive, app.selrowcol[row]);
    }
}

bool ComposeWindow::Event_CancelClose() {
    if (app.composechanged) {
        const auto answer = ask(closing_question());
        if (answer == DialogAnswer::cancel) {
            return true;
        }
        if (answer == DialogAnswer::action) {
            app.filename = namefield.Text();
            app.save_document(this); // a dismissed file dialog loses the work without further word
        }
    }
    app.composechanged = false;
    app.composed = false;
    app.composelevel = 0;
    app.show_main_window();
    return false;
}

void ComposeWindow::Event_Close() {
    app.consolidatorWindow.Close(); // hidden since it handed its list over
    app.show_main_window();
}

void App::open_composer() {
    composewindow->Show();
    compose();
}

double App::diff(double a, double b) {
    return distance_between(a, b);
}

void App::compose() {
    textshade.resize(numentries + 1);
    if (!datasort) {
        consolidatorsortdn();
    }
    wparray.resize(0);
    Listbox& list = composewindow->freq_listBox;
    for (const PrimeRow& prime : group_frequencies(intarray, numentries)) {
        list.AddRow(prime_text(prime.frequency, decimal_mark()));
        const int last = list.LastIndex();
        textshade.resize(last + 2);
        textshade[last] = prime.color;
        if (prime.run) {
            list.SetCell(last, prime_column::width, Str(prime.run->width));
            list.SetCell(last, prime_column::center, center_text(prime.run->center, decimal_mark()));
        }
    }
}

} // namespace tessit
