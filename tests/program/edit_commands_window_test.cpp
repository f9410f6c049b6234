// SPDX-License-Identifier: MIT
// The Edit menu's commands on rows, in the running editor.
#include "device/read_window.h"
#include "support/program.h"

namespace tessit::testing {
namespace {

class RowCommandsTest : public EditorTest {
protected:
    Listbox& table() { return window().edit_displayBox; }

    void enter_levels(int count) {
        for (int i = 1; i <= count; ++i) {
            program.enter(std::to_string(i * 10));
        }
    }

    // Numbers and frequencies of rows 1 on: "1:10 2:20".
    std::string levels() {
        std::string text;
        for (int row = 1; row < table().ListCount(); ++row) {
            text += (row == 1 ? "" : " ") + program.cell(row, column::level) + ":" + program.cell(row, column::base);
        }
        return text;
    }
};

TEST_F(RowCommandsTest, delete_removes_renumbers_and_adds_up_from_the_cells) {
    enter_levels(5);
    app.editchanged = false;
    table().choose(3);
    app.choose_menu("EditDeleteRow");
    EXPECT_EQ(joined(levels(), window().BankFreqField, window().BankTimeField, table().ListIndex()),
              "1:10 2:20 3:40 4:50|4|00:12:00|-1");
    EXPECT_EQ(window().focus_control(), &window().FreqField);
    EXPECT_FALSE(app.editchanged || app.MenuBar1.item("EditDeleteRow").Enabled());
    app.enable_menu_items();
    EXPECT_TRUE(app.MenuBar1.item("EditDeleteRow").Enabled());
}

TEST_F(RowCommandsTest, delete_without_a_level_selected_only_adds_up) {
    enter_levels(2);
    window().BankTimeField.SetText("?");
    for (const int row : {-1, 0}) { // nothing, and the empty row 0
        table().SetListIndex(row);
        app.choose_menu("EditDeleteRow");
        EXPECT_EQ(joined(levels(), window().BankTimeField.Text()), "1:10 2:20|00:06:00");
    }
}

TEST_F(RowCommandsTest, deleting_the_only_level_keeps_the_old_number_of_frequencies) {
    enter_levels(1);
    table().choose(1);
    app.choose_menu("EditDeleteRow");
    EXPECT_EQ(joined(window().BankFreqField, window().BankTimeField), "1|00:00:00");
}

TEST_F(RowCommandsTest, delete_in_seconds_form_ends_in_a_fault_with_the_row_removed) {
    window().format_box.choose(0);
    enter_levels(3);
    table().choose(2);
    desktop.expect_fault("_EditDeleteRow_Action");
    app.choose_menu("EditDeleteRow");
    EXPECT_EQ(joined(levels(), window().BankTimeField.Text()), "1:10 2:30|");
    program.enter("70");
    EXPECT_EQ(joined(levels(), window().BankTimeField.Text()), "1:10 2:30 3:70|540");
}

TEST_F(RowCommandsTest, insert_opens_an_empty_row_that_the_next_level_fills) {
    enter_levels(3);
    table().choose(2);
    app.choose_menu("EditInsertRow");
    EXPECT_EQ(joined(levels(), table().ListIndex()), "1:10 2: 3:20 4:30|2");
    EXPECT_TRUE(app.insert && !app.MenuBar1.item("EditDeleteRow").Enabled());
    program.enter("15");
    EXPECT_EQ(joined(levels(), program.cell(2, column::total_time), window().BankFreqField.Text()),
              "1:10 2:15 3:20 4:30|00:03:00|4");
    EXPECT_FALSE(app.insert);
}

TEST_F(RowCommandsTest, delete_behind_insert_leaves_the_next_level_its_place) {
    enter_levels(3);
    table().choose(2);
    app.choose_menu("EditInsertRow");
    app.choose_menu("EditDeleteRow");
    EXPECT_EQ(levels(), "1:10 2:20 3:30");
    program.enter("15");
    EXPECT_EQ(levels(), "1:10 2:15 3:30");
}

TEST_F(RowCommandsTest, a_level_without_its_row_is_told_the_way_out) {
    enter_levels(2);
    table().choose(2);
    app.choose_menu("EditInsertRow");
    for (int deletion = 0; deletion < 2; ++deletion) {
        table().choose(2);
        app.choose_menu("EditDeleteRow");
    }
    desktop.expect_fault("editwindow.FreqField_KeyDown");
    program.enter("15");
    EXPECT_NE(desktop.faults.back().what.find("choose Insert Row again"), std::string::npos);
    table().choose(1);
    app.choose_menu("EditInsertRow");
    window().enterbutton.click();
    EXPECT_EQ(levels(), "1:15 2:10");

    table().double_click(2);
    table().choose(2);
    app.choose_menu("EditDeleteRow");
    desktop.expect_fault("editwindow.submitchange_Action");
    window().submitchange.click();
    EXPECT_NE(desktop.faults.back().what.find("Press \"Cancel Change\""), std::string::npos);
}

TEST_F(RowCommandsTest, insert_without_a_level_selected_selects_the_row_worked_on_before) {
    enter_levels(3);
    app.row = 3;
    app.choose_menu("EditInsertRow");
    EXPECT_EQ(joined(levels(), table().ListIndex()), "1:10 2:20 3:30|3");
    EXPECT_FALSE(app.insert);
}

TEST_F(RowCommandsTest, the_fiftieth_row_can_be_inserted_and_then_not_be_filled) {
    enter_levels(49);
    table().choose(7);
    app.choose_menu("EditInsertRow");
    EXPECT_EQ(program.levels(), 50);
    desktop.expect_message("maximum 50 levels has been exceeded");
    program.enter("15");
    EXPECT_EQ(program.cell(7, column::base), "");

    app.insert = false;
    table().choose(9);
    desktop.expect_message("All 50 levels are full");
    app.choose_menu("EditInsertRow");
    EXPECT_EQ(app.row, 9);
    EXPECT_FALSE(app.insert);
    EXPECT_TRUE(app.MenuBar1.item("EditDeleteRow").Enabled()); // the command ended before its last step
}

TEST_F(RowCommandsTest, insert_goes_by_the_last_document_window_in_the_list) {
    enter_levels(2);
    table().choose(1);
    desktop.expect_message("No Serial Port Selected");
    app.choose_menu("ZephonReadZephon"); // in front of the editor, which stays last
    EXPECT_EQ(app.myactivewindow, document::reader);
    app._EditInsertRow_Action();
    EXPECT_EQ(levels(), "1: 2:10 3:20");
    window().activate(); // now the read window is last
    table().choose(2);
    app.choose_menu("EditInsertRow");
    EXPECT_EQ(levels(), "1: 2:10 3:20");
}

TEST_F(RowCommandsTest, make_all_changes_every_row_and_nothing_else) {
    enter_levels(2);
    app.editchanged = false;
    app.choose_menu("EditMakeallSine");
    for (int row = 0; row <= 2; ++row) { // the empty row 0 too
        EXPECT_EQ(joined(program.cell(row, column::wave_shape), program.cell(row, column::duty_cycle)), "Sine|");
    }
    app.choose_menu("EditMakeallSquare");
    for (int row = 0; row <= 2; ++row) {
        EXPECT_EQ(program.cell(row, column::wave_shape), "Square");
        EXPECT_EQ(program.cell(row, column::duty_cycle), "70"); // without "%"
    }
    EXPECT_FALSE(app.editchanged);
}

} // namespace
} // namespace tessit::testing
