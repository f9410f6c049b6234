// SPDX-License-Identifier: MIT
// Level entry in the running editor: both ways in, both paths, every limit on the path that has it.
#include "support/program.h"

namespace tessit::testing {
namespace {

using LevelEntryTest = EditorTest;

TEST_F(LevelEntryTest, rows_hold_what_was_typed) {
    program.enter("7.83");
    window().wave_box.choose(2);
    window().WidthMenu.choose(4);
    window().time_field.edit("1:20");
    window().rate_field.edit("60");
    window().shape_box.choose(1);
    window().DutyMenu.choose(0);
    window().output_box.choose(1);
    window().PulseMenu.choose(1);
    program.enter("12.50");
    EXPECT_EQ(program.row(1), "1|Single Frequency|7.83||1|3:00|00:03:00|ON|1|Square|70%|Positive");
    EXPECT_EQ(program.row(2), "2|Spread Expanding|12.50|4|9|1:20|00:12:00|OFF|60|Sine|%|Negative");
    EXPECT_EQ(joined(window().BankFreqField, window().BankTimeField, window().level_field, window().FreqField),
              "10|00:15:00|3|");
    EXPECT_TRUE(app.changed && app.editchanged && !window().format_box.Enabled());
}

TEST_F(LevelEntryTest, keys_that_enter_and_what_they_leave_behind) {
    window().FreqField.type("5");
    window().FreqField.press(keys::enter);
    EXPECT_EQ(program.levels(), 1);
    window().FreqField.type("6l"); // the letter enters, and then reaches the emptied field
    EXPECT_EQ(joined(program.levels(), window().FreqField.Text()), "2|l");
    desktop.expect_message("Invalid frequency entered");
    program.enter("");
    EXPECT_EQ(joined(window().FreqField.Text(), program.levels()), "l|2");

    window().namefield.edit("");
    window().namefield.SetFocus();
    window().namefield.type("All"); // ordinary text here
    EXPECT_EQ(joined(window().namefield, app.filename), "All|");
    EXPECT_EQ(window().focus_control(), &window().namefield);
    for (EditField* field : {&window().namefield, &window().rate_field}) {
        field->SetFocus();
        field->press(keys::return_);
        EXPECT_EQ(window().focus_control(), &window().FreqField) << field->name();
    }
    EXPECT_EQ(app.filename, "All");
}

TEST_F(LevelEntryTest, limits_stand_on_the_paths_that_have_them) {
    desktop.expect_message("No Frequency Entered");
    program.enter("");
    desktop.expect_message("No Frequency Entered");
    window().enterbutton.click();
    EXPECT_TRUE(window().format_box.Enabled() && !app.editchanged);

    program.enter("999999");
    desktop.expect_message("Frequency entered exceeds the maximum");
    program.enter("1000000");
    EXPECT_EQ(program.levels(), 1);
    window().enterbutton.click(); // the button does not test the maximum
    EXPECT_EQ(program.cell(2, column::base), "1000000");

    window().FreqField.type("123456789");
    EXPECT_EQ(window().FreqField.Text(), "1234567"); // seven characters at most
    window().FreqField.edit("abc");
    desktop.expect_message("Invalid frequency entered");
    window().enterbutton.click();
    EXPECT_EQ(window().FreqField.Text(), "abc"); // kept, so that it can be mended
    EXPECT_TRUE(app.editchanged);
}

TEST_F(LevelEntryTest, fifty_levels_and_no_more) {
    for (int i = 1; i <= 50; ++i) {
        program.enter("10");
    }
    EXPECT_EQ(joined(program.levels(), window().edit_displayBox.ScrollPosition()), "50|40");
    desktop.expect_message("maximum 50 levels has been exceeded");
    program.enter("10");
    EXPECT_EQ(joined(program.levels(), window().FreqField.Text()), "50|10");
}

TEST_F(LevelEntryTest, return_remembers_the_time_and_the_button_does_not) {
    window().time_field.edit("4:00");
    program.enter("5");
    EXPECT_EQ(app.default_sf_time_ms, "4:00");
    window().wave_box.choose(1);
    window().time_field.edit("0:20");
    program.enter("5");
    EXPECT_EQ(joined(app.default_wp_time_ms, app.default_wp_time_s), "0:20|10");
    window().time_field.edit("0:30");
    window().FreqField.type("5");
    window().enterbutton.click();
    EXPECT_EQ(app.default_wp_time_ms, "0:20");
}

TEST_F(LevelEntryTest, changing_a_row_in_seconds_adds_its_seconds_to_the_frequencies) {
    window().format_box.choose(0);
    window().wave_box.choose(1);
    window().WidthMenu.choose(2);
    window().time_field.edit("10");
    window().rate_field.edit("7");
    program.enter("20"); // 5 frequencies, 50 seconds
    window().wave_box.choose(3);
    window().WidthMenu.choose(3);
    window().rate_field.edit("8");
    program.enter("30"); // 4 frequencies
    EXPECT_EQ(joined(window().BankFreqField, window().BankTimeField), "9|90");

    window().edit_displayBox.double_click(1);
    window().submitchange.click();
    EXPECT_EQ(window().BankFreqField.Text(), "59"); // 50 too many, until the next level
    EXPECT_EQ(program.levels(), 2);
    EXPECT_FALSE(window().submitchange.Visible() || app.changelevel);
    EXPECT_EQ(joined(window().wave_box, window().rate_field),
              "Sweep Increasing|8"); // the fields show the last row again
    program.enter("40");
    EXPECT_EQ(window().BankFreqField.Text(), "13");
}

TEST_F(LevelEntryTest, a_change_is_neither_tested_nor_counted_as_a_change) {
    program.enter("7.83");
    app.editchanged = false;
    window().edit_displayBox.double_click(1);
    window().FreqField.edit("x");
    window().submitchange.click();
    EXPECT_EQ(program.cell(1, column::base), "x");
    EXPECT_EQ(program.cell(1, column::total_time), "00:03:00"); // emptied first, not appended to
    EXPECT_EQ(window().BankFreqField.Text(), "1");
    EXPECT_FALSE(app.editchanged);
}

TEST_F(LevelEntryTest, a_wave_text_of_the_users_own_has_no_frequencies) {
    window().wave_box.edit("Sawtooth");
    EXPECT_EQ(window().wave_box.ListIndex(), -1);
    window().time_field.edit("2");
    program.enter("5");
    EXPECT_EQ(program.row(1), "1|Sawtooth|5|9||2|00:00:00|ON|1|Square|70%|Positive");
    EXPECT_EQ(window().BankFreqField.Text(), "0");
    EXPECT_EQ(app.default_wp_time_ms, "2"); // counts as a packet
}

TEST_F(LevelEntryTest, a_time_format_of_the_users_own_ends_in_a_fault_and_the_program_goes_on) {
    window().format_box.edit("Hours");
    desktop.expect_fault("editwindow.FreqField_KeyDown");
    program.enter("5");
    EXPECT_EQ(joined(program.levels(), program.cell(1, column::total_time)), "1|");
    EXPECT_EQ(desktop.faults.back().kind, FaultKind::out_of_bounds);
    EXPECT_TRUE(window().Visible());
}

} // namespace
} // namespace tessit::testing
