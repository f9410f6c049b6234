// SPDX-License-Identifier: MIT
// The editor window: how its controls react to one another, how a row comes back into the fields, how it closes.
#include "support/program.h"

namespace tessit::testing {
namespace {

using EditWindowTest = EditorTest;

TEST_F(EditWindowTest, opens_with_the_defaults_and_an_empty_row) {
    EXPECT_EQ(program.levels(), 0);
    EXPECT_EQ(joined(window().namefield, window().level_field, window().format_box, window().time_field),
              "Untitled|1|MM:SS|3:00");
    EXPECT_EQ(window().WidthMenu.Text(), "9");
    EXPECT_FALSE(window().WidthMenu.Enabled());
    EXPECT_EQ(joined(window().DutyMenu, window().BankFreqField), "70|");
    EXPECT_EQ(window().focus_control(), &window().FreqField);
    EXPECT_EQ(app.myactivewindow, document::editor);
    EXPECT_EQ(joined(app.cwidth.count(), app.cwidth[1], app.calign[11]), "13|90 |Left");
    EXPECT_FALSE(app.Window1->Visible());
}

TEST_F(EditWindowTest, opening_takes_the_time_by_the_defaults_and_not_by_the_controls) {
    const std::tuple<int, int, const char*> cases[] = {{0, 1, "3:00"}, {0, 0, "180"}, {2, 1, ":10"}, {2, 0, "10"}};
    for (const auto& [wave, format, time] : cases) {
        app.editwindow.Close();
        app.defaultwave = wave;
        app.default_timeformat = format;
        program.new_protocol();
        EXPECT_EQ(window().time_field.Text(), time);
        EXPECT_EQ(window().WidthMenu.Enabled(), wave > 0);
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
    EXPECT_TRUE(app.use_euro && !window().naDecimal.Value());
    EXPECT_EQ(joined(program.cell(1, column::base), program.cell(2, column::base)), "7,83|50");
    program.enter("1,5"); // a user of the comma can type it
    EXPECT_EQ(program.cell(3, column::base), "1,5");
    window().naDecimal.click();
    EXPECT_EQ(joined(program.cell(1, column::base), program.cell(3, column::base)), "7.83|1.5");
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
    EXPECT_EQ(joined(app.row, window().wave_box.Text()), "1|Sweep Increasing");
    EXPECT_EQ(window().WidthMenu.Text(), "4"); // not the 5 frequencies: the width column corrects it
    EXPECT_EQ(joined(window().FreqField, window().time_field, window().shape_box), "12.5|:10|Square");
    EXPECT_TRUE(window().submitchange.Visible());

    window().edit_displayBox.double_click(2);
    EXPECT_EQ(joined(window().shape_box, window().output_box, window().PulseMenu, window().WidthMenu),
              "Triangle|Offset|OFF|1");

    window().edit_displayBox.double_click(17); // no row there
    EXPECT_EQ(app.row, 2);
}

TEST_F(EditWindowTest, double_click_takes_the_windows_top_off_and_not_its_left) {
    program.enter("7.83");
    window().move_to(300, 120);
    window().edit_displayBox.double_click(1);
    EXPECT_EQ(app.row, 1);
}

TEST_F(EditWindowTest, a_width_of_zero_comes_back_as_one_and_the_duty_not_at_all) {
    window().wave_box.choose(4);
    window().WidthMenu.choose(0);
    window().DutyMenu.choose(5);
    program.enter("12.5");
    window().DutyMenu.choose(2);
    window().edit_displayBox.double_click(1);
    EXPECT_EQ(window().DutyMenu.Text(), "20");
    window().submitchange.click();
    EXPECT_EQ(joined(program.cell(1, column::width), program.cell(1, column::duty_cycle)), "1|20%");
}

TEST_F(EditWindowTest, empty_row_0_can_be_changed_and_no_total_reads_it) {
    window().edit_displayBox.double_click(0);
    EXPECT_EQ(joined(window().changelvlfield, window().FreqField), "Change Level:  |");
    window().FreqField.type("9");
    window().submitchange.click();
    EXPECT_EQ(joined(program.cell(0, column::base), program.levels()), "9|0");
}

TEST_F(EditWindowTest, cancel_leaves_submit_visible_and_submit_then_appends) {
    program.enter("7.83");
    window().edit_displayBox.double_click(1);
    window().cancelbutton.click();
    EXPECT_TRUE(!app.changelevel && !window().cancelbutton.Visible() && window().submitchange.Visible());
    window().submitchange.click();
    EXPECT_EQ(joined(program.levels(), program.cell(2, column::base)), "2|7.83");
}

} // namespace
} // namespace tessit::testing
