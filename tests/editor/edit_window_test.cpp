// SPDX-License-Identifier: MIT
// The editor window: how its controls react to one another, how a row comes back into the fields, how it closes.
#include "support/program.h"

#include <gtest/gtest.h>

namespace tessit::testing {
namespace {

constexpr const char* unsaved = "Data in the Edit window has not been saved to file\rDo you want to save it?";

using EditWindowTest = EditorTest;

TEST_F(EditWindowTest, opens_with_the_defaults_and_an_empty_row) {
    EXPECT_EQ(program.levels(), 0);
    EXPECT_EQ(window().namefield.Text(), "Untitled");
    EXPECT_EQ(window().level_field.Text(), "1");
    EXPECT_EQ(window().format_box.Text(), "MM:SS");
    EXPECT_EQ(window().time_field.Text(), "3:00");
    EXPECT_EQ(window().WidthMenu.Text(), "9");
    EXPECT_FALSE(window().WidthMenu.Enabled());
    EXPECT_EQ(window().DutyMenu.Text(), "70");
    EXPECT_EQ(window().BankFreqField.Text(), "");
    EXPECT_EQ(window().focus_control(), &window().FreqField);
    EXPECT_EQ(app.myactivewindow, document::editor);
    EXPECT_EQ(app.cwidth.count(), 13);
    EXPECT_EQ(app.cwidth[1], "90 ");
    EXPECT_EQ(app.calign[11], "Left");
    EXPECT_FALSE(app.Window1->Visible());
}

TEST_F(EditWindowTest, opening_takes_the_time_by_the_defaults_and_not_by_the_controls) {
    struct Case {
        int wave, format;
        const char* time;
    };
    for (const auto& c : {Case{0, 1, "3:00"}, {0, 0, "180"}, {2, 1, ":10"}, {2, 0, "10"}}) {
        app.editwindow.Close();
        app.defaultwave = c.wave;
        app.default_timeformat = c.format;
        program.new_protocol();
        EXPECT_EQ(window().time_field.Text(), c.time);
        EXPECT_EQ(window().WidthMenu.Enabled(), c.wave > 0);
    }
}

TEST_F(EditWindowTest, wave_and_format_bring_the_remembered_times) {
    window().wave_box.choose(1);
    EXPECT_EQ(window().time_field.Text(), ":10");
    EXPECT_TRUE(window().WidthMenu.Enabled());
    window().format_box.choose(0);
    EXPECT_EQ(window().time_field.Text(), "10");
    window().format_box.choose(1);
    EXPECT_EQ(window().time_field.Text(), "0:10"); // converted, unlike on the way there
    window().wave_box.choose(0);
    EXPECT_EQ(window().time_field.Text(), "3:00");
    window().format_box.choose(0);
    window().format_box.choose(1);
    EXPECT_EQ(window().time_field.Text(), "5:00"); // the digits of 3:00 are taken for 300 seconds
    EXPECT_EQ(app.default_timeformat, 1);
}

TEST_F(EditWindowTest, duty_is_remembered_and_every_list_gives_the_focus_back) {
    window().DutyMenu.choose(3);
    EXPECT_EQ(app.defaultduty, 3);
    for (PopupMenu* list : {static_cast<PopupMenu*>(&window().PulseMenu), static_cast<PopupMenu*>(&window().shape_box),
                            static_cast<PopupMenu*>(&window().output_box)}) {
        window().namefield.SetFocus();
        list->choose(1);
        EXPECT_EQ(window().focus_control(), &window().FreqField) << list->name();
    }
}

TEST_F(EditWindowTest, decimal_mark_rewrites_the_base_column_alone) {
    program.enter("7.83");
    program.enter("50");
    window().isoDecimal.click();
    EXPECT_TRUE(app.use_euro);
    EXPECT_FALSE(window().naDecimal.Value());
    EXPECT_EQ(program.cell(1, column::base), "7,83");
    EXPECT_EQ(program.cell(2, column::base), "50");
    program.enter("1,5"); // a user of the comma can type it
    EXPECT_EQ(program.cell(3, column::base), "1,5");
    window().naDecimal.click();
    EXPECT_EQ(program.cell(1, column::base), "7.83");
    EXPECT_EQ(program.cell(3, column::base), "1.5");
}

TEST_F(EditWindowTest, double_click_loads_a_row_back) {
    window().wave_box.choose(3);
    window().WidthMenu.choose(4);
    program.enter("12.5");
    window().wave_box.choose(0);
    window().shape_box.choose(2);
    window().output_box.choose(2);
    window().PulseMenu.choose(1);
    program.enter("100");

    window().edit_displayBox.double_click(1);
    EXPECT_EQ(window().changelvlfield.Text(), "Change Level:  1");
    EXPECT_TRUE(app.changelevel);
    EXPECT_EQ(app.row, 1);
    EXPECT_EQ(window().wave_box.Text(), "Sweep Increasing");
    EXPECT_EQ(window().WidthMenu.Text(), "4"); // not the 5 frequencies: the width column corrects it
    EXPECT_EQ(window().FreqField.Text(), "12.5");
    EXPECT_EQ(window().time_field.Text(), ":10");
    EXPECT_EQ(window().shape_box.Text(), "Square");
    EXPECT_TRUE(window().submitchange.Visible());

    window().edit_displayBox.double_click(2);
    EXPECT_EQ(window().shape_box.Text(), "Triangle");
    EXPECT_EQ(window().output_box.Text(), "Offset");
    EXPECT_EQ(window().PulseMenu.Text(), "OFF");
    EXPECT_EQ(window().WidthMenu.Text(), "1");

    window().edit_displayBox.double_click(17); // no row there
    EXPECT_EQ(app.row, 2);
}

TEST_F(EditWindowTest, double_click_takes_the_windows_top_off_and_not_its_left) {
    program.enter("7.83");
    window().move_to(300, 120);
    window().edit_displayBox.double_click(1);
    EXPECT_EQ(app.row, 1);
}

TEST_F(EditWindowTest, sweep_of_width_zero_comes_back_with_width_one) {
    window().wave_box.choose(4);
    window().WidthMenu.choose(0);
    program.enter("12.5");
    window().edit_displayBox.double_click(1);
    window().submitchange.click();
    EXPECT_EQ(program.cell(1, column::width), "1");
    EXPECT_EQ(program.cell(1, column::frequencies), "2");
}

TEST_F(EditWindowTest, duty_of_a_row_with_percent_is_not_taken_back) {
    window().DutyMenu.choose(5);
    program.enter("7.83");
    window().DutyMenu.choose(2);
    window().edit_displayBox.double_click(1);
    EXPECT_EQ(window().DutyMenu.Text(), "20");
    window().submitchange.click();
    EXPECT_EQ(program.cell(1, column::duty_cycle), "20%");
}

TEST_F(EditWindowTest, empty_row_0_can_be_changed_and_no_total_reads_it) {
    window().edit_displayBox.double_click(0);
    EXPECT_EQ(window().changelvlfield.Text(), "Change Level:  ");
    EXPECT_EQ(window().FreqField.Text(), "");
    window().FreqField.type("9");
    window().submitchange.click();
    EXPECT_EQ(program.cell(0, column::base), "9");
    EXPECT_EQ(program.levels(), 0);
}

TEST_F(EditWindowTest, cancel_leaves_submit_visible_and_submit_then_appends) {
    program.enter("7.83");
    window().edit_displayBox.double_click(1);
    window().cancelbutton.click();
    EXPECT_FALSE(app.changelevel);
    EXPECT_FALSE(window().cancelbutton.Visible());
    EXPECT_TRUE(window().submitchange.Visible());
    window().submitchange.click();
    EXPECT_EQ(program.levels(), 2);
    EXPECT_EQ(program.cell(2, column::base), "7.83");
}

} // namespace
} // namespace tessit::testing
