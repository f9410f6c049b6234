// SPDX-License-Identifier: MIT
#include "editor/edit_window.h"

#include "core/enable_rules.h"
#include "core/level_rows.h"
#include "files/protocol_file.h"
#include "platform/text.h"

namespace tessit {

namespace {

const EnableRules rules{
    .enables = {"FileSave", "FileExport", "FilePrint", "EditDeleteRow", "EditInsertRow", "ZephonLoadDirect"},
    .disables = {"FileCreateNewFile", "EditCut", "EditCopy", "EditPaste", "EditEditProtocol", "ZephonLoadFromFile",
                 "ConsolidatorNew", "ConsolidatorOpen", "ConsolidatorQuit", "SettingsSaveSettings"},
};

} // namespace

void EditWindow::Event_Open() {
    app.hide_main_window();
    for (const char* entry : {"EditDeleteRow", "EditCut", "EditCopy", "EditPaste"}) {
        menu_item(entry).SetEnabled(false);
    }
    app.start_level = 1;
    app.myactivewindow = document::editor;
    app.changelevel = false; // what was begun in an earlier table
    app.insert = false;
    (app.use_euro ? isoDecimal : naDecimal).SetValue(true);

    set_up_level_table(edit_displayBox);
    set_up_report_columns(app);
    align_level_table(edit_displayBox);

    level_field.SetText("1");
    level_field.SetText(Str(edit_displayBox.LastIndex() + 1));
    format_box.SetListIndex(app.default_timeformat);
    wave_box.SetListIndex(app.defaultwave);
    WidthMenu.SetListIndex(app.defaultwidth);
    // By the defaults and not by the controls, whose changes have just written converted times.
    const bool single = app.defaultwave == 0;
    const bool clock = app.default_timeformat > 0;
    time_field.SetText(single ? (clock ? app.default_sf_time_ms : app.default_sf_time_s)
                              : (clock ? app.default_wp_time_ms : app.default_wp_time_s));
    rate_field.SetText(app.default_rate);
    EditField1.SetVisible(true);
    app.hide_main_window();
}

void EditWindow::Event_Activate() {
    app.myactivewindow = document::editor;
}

void EditWindow::Event_Close() {
    Close();
    app.show_main_window();
}

void EditWindow::Event_EnableMenuItems() {
    rules.apply(app.MenuBar1);
}

const std::string& EditWindow::remembered_time(TimeForm form) const {
    if (wave_box.ListIndex() > 0) {
        return form == TimeForm::seconds ? app.default_wp_time_s : app.default_wp_time_ms;
    }
    return form == TimeForm::seconds ? app.default_sf_time_s : app.default_sf_time_ms;
}

void EditWindow::wave_box_Change() {
    WidthMenu.SetEnabled(wave_box.ListIndex() > 0);
    time_field.SetText(remembered_time(format_box.ListIndex() == 0 ? TimeForm::seconds : TimeForm::clock));
    FreqField.SetFocus();
}

void EditWindow::format_box_Change() {
    if (format_box.ListIndex() == 1) {
        // The digits of the minutes text are taken for seconds, so "3:00" becomes 5:00; that is how it is meant.
        const std::int32_t seconds = truncate(app.strintR(remembered_time(TimeForm::clock)));
        time_field.SetText(format_minutes(seconds / 60, seconds % 60));
    } else if (format_box.ListIndex() == 0) {
        time_field.SetText(remembered_time(TimeForm::seconds));
    }
    FreqField.SetFocus();
}

void EditWindow::DutyMenu_Change() {
    app.defaultduty = DutyMenu.ListIndex();
    FreqField.SetFocus();
}

void EditWindow::naDecimal_Action() {
    app.use_euro = false;
    exchange_base_marks(edit_displayBox, ",", ".");
}

void EditWindow::isoDecimal_Action() {
    app.use_euro = true;
    exchange_base_marks(edit_displayBox, ".", ",");
}

void EditWindow::edit_displayBox_DoubleClick() {
    // Of the window's place only its top is taken off, not its left; rows go by y alone.
    app.row = edit_displayBox.RowFromXY(app.System.MouseX() - edit_displayBox.Left(),
                                        app.System.MouseY() - edit_displayBox.Top() - Top());
    const auto cell = [this](int index) -> const std::string& { return edit_displayBox.Cell(app.row, index); };
    changelvlfield.SetVisible(true);
    changelvlfield.SetText("");
    changelvlfield.SetText("Change Level:  " + cell(column::level));
    app.changelevel = true;
    cancelbutton.SetVisible(true);
    submitchange.SetVisible(true);

    wave_box.ChooseText(cell(column::waveform));
    if (const auto width = width_index(cell(column::waveform), app.strintR(cell(column::frequencies)))) {
        WidthMenu.SetListIndex(*width);
    }
    WidthMenu.ChooseText(cell(column::width), 1); // not "0": a sweep of width 0 comes back with 1
    FreqField.SetText(cell(column::base));
    time_field.SetText(cell(column::time_each));
    PulseMenu.ChooseText(cell(column::pulse));
    rate_field.SetText(cell(column::rate));
    DutyMenu.ChooseText(cell(column::duty_cycle), 1); // a cell such as "50%" matches nothing, and is meant to
    shape_box.ChooseText(cell(column::wave_shape));
    output_box.ChooseText(cell(column::output));
    FreqField.SetFocus();
    FreqField.SelectAll();
}

void EditWindow::enter_level() {
    format_box.SetEnabled(false);
    app.Update_display();
    app.changed = true;
    app.editchanged = true;
}

void EditWindow::remember_time() {
    const bool single = wave_box.ListIndex() == 0; // a wave that is in no list counts as a packet here
    const bool seconds = format_box.ListIndex() == 0;
    (single ? (seconds ? app.default_sf_time_s : app.default_sf_time_ms)
            : (seconds ? app.default_wp_time_s : app.default_wp_time_ms)) = time_field.Text();
}

void EditWindow::enterbutton_Action() {
    if (FreqField.Text().empty()) {
        return app.MsgBox("No Frequency Entered");
    }
    enter_level();
}

void EditWindow::submitchange_Action() {
    app.Update_display();
    FreqField.SetFocus();
}

void EditWindow::cancelbutton_Action() {
    changelvlfield.SetVisible(false);
    app.changelevel = false;
    cancelbutton.SetVisible(false); // submitchange stays, and would now append a level
}

bool EditWindow::FreqField_KeyDown(const std::string& key) {
    if (!is_enter_key(key)) {
        return false;
    }
    if (999999.0 < app.strintR(FreqField.Text())) {
        app.MsgBox("Frequency entered exceeds the maximum");
    } else if (FreqField.Text().empty()) {
        app.MsgBox("No Frequency Entered");
    } else {
        enter_level();
        remember_time();
    }
    return false; // so the letter L stays behind in the field
}

bool EditWindow::namefield_KeyDown(const std::string& key) {
    if (key == ChrB(keys::enter) || key == ChrB(keys::return_)) { // the letter L is ordinary text here
        app.filename = namefield.Text();
        FreqField.SetFocus();
    }
    return false;
}

bool EditWindow::time_field_KeyDown(const std::string& key) {
    if (is_enter_key(key)) {
        FreqField.SetFocus();
    }
    return false;
}

void EditWindow::add_to_totals(const DecodedLevel& decoded) {
    BankTotals totals{.frequencies = totalfreqs,
                      .time = {.hours = totalhours, .minutes = totalminutes, .seconds = totalseconds}};
    totals.add(decoded);
    totalfreqs = totals.frequencies;
    totalhours = totals.time.hours;
    totalminutes = totals.time.minutes;
    totalseconds = totals.time.seconds;
    BankFreqField.SetText(Str(totalfreqs));
    BankTimeField.SetText(format_clock(totals.time)); // in this form whatever the time format
}

void EditWindow::add_up_cells(std::int32_t frequencies_from, PlainSeconds plain_seconds) {
    std::vector<float> frequencies;
    std::vector<std::string> times;
    for (int row = 1; row < edit_displayBox.ListCount(); ++row) {
        frequencies.push_back(app.strintR(edit_displayBox.Cell(row, column::frequencies)));
        times.push_back(edit_displayBox.Cell(row, column::total_time));
    }
    if (const auto sum = bank_frequencies(frequencies_from, frequencies)) {
        BankFreqField.SetText(Str(*sum));
    }
    BankTimeField.SetText("");
    BankTimeField.SetText(bank_time(times, plain_seconds));
}

bool EditWindow::refuses_another_level() {
    if (edit_displayBox.LastIndex() < most_levels) {
        return false;
    }
    app.ShowModal({.Message = "This Protocol requires more space than available in this bank\r"
                              "Some data may have been dropped",
                   .Icon = DialogIcon::caution});
    return true;
}

std::optional<LevelTable> EditWindow::level_table() {
    return LevelTable{.rows = edit_displayBox,
                      .last_level = edit_displayBox.ListCount() - 1,
                      .rules = {.time_form = format_box.ListIndex() == 0 ? TimeForm::seconds : TimeForm::clock,
                                .comma = app.use_euro ? CommaRule::becomes_point : CommaRule::stays,
                                .rate = RateRule::high_byte_by_255,
                                .blank_rows = BlankRows::encoded},
                      .total_frequencies = BankFreqField,
                      .total_time = BankTimeField};
}

void EditWindow::save() {
    app.filename = namefield.Text();
    app.save_document(this);
    app.editchanged = false; // also when the dialog was dismissed
}

void EditWindow::delete_selected_level() {
    remove_selected_level(edit_displayBox);
    add_up_cells(0, PlainSeconds::out_of_bounds);
    FreqField.SetFocus();
}

Insertion EditWindow::insert_level() {
    if (edit_displayBox.ListIndex() > 0) {
        if (open_row_above_selected(app, edit_displayBox) == Insertion::table_full) {
            return Insertion::table_full;
        }
        app.insert = true;
    }
    edit_displayBox.SetListIndex(app.row); // with nothing selected, the row that was worked on before
    FreqField.SetFocus();
    return Insertion::done;
}

MessageDialog EditWindow::closing_question() const {
    return unsaved_work_dialog("Data in the Edit window has not been saved to file");
}

void EditWindow::archive_document(Archive& archive) {
    Window::archive(archive);
    archive_shared_state(archive, app);
    for (std::int32_t* total : {&totalseconds, &totalminutes, &totalhours, &totalfreqs}) {
        archive.number("total", *total);
    }
}

bool EditWindow::Event_CancelClose() {
    if (!app.editchanged) {
        return false;
    }
    switch (ask(closing_question())) {
    case DialogAnswer::cancel:
        return true;
    case DialogAnswer::action:
        save_before_closing();
        break;
    case DialogAnswer::alternate:
        break;
    }
    app.changed = false;
    app.editchanged = false;
    app.insert = false;
    return false; // also when the file dialog was dismissed: the work is then lost without further word
}

void EditWindow::save_before_closing() {
    app.encode_document(this);
    app.filename = namefield.Text() + ".zp2";
    if (const auto file = app.GetSaveFolderItem(protocol_file_type_for_saving(), app.filename)) {
        auto stream = file->CreateBinaryFile("zp2");
        write_protocol(*stream, app, UnsetMark::high_frequency_byte);
        stream->Close();
    }
}

} // namespace tessit
