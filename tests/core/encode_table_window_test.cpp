// SPDX-License-Identifier: MIT
// The table to the register image and back, in the running program.
#include "support/program.h"

namespace tessit::testing {
namespace {

using TableCodecTest = EditorTest;

TEST_F(TableCodecTest, reset_unsets_levels_1_to_50_and_not_index_0) {
    app.fbyte2[0] = 7;
    app.errorchk[50] = 9;
    app.row = 4;
    app.datareset();
    EXPECT_EQ(joined(app.fbyte2[0], app.hi_add[50], app.errorchk[50], app.row), "7|255|0|0");
    EXPECT_EQ(app.bytes(50), (LevelBytes{255, 255, 255, 255, 255, 255, 255, 255, 255, 255, 255, 0}));
}

TEST_F(TableCodecTest, rows_become_levels_under_a_progress_notice) {
    program.enter("7.83");
    program.enter("1234.5");
    std::vector<std::string> before = desktop.shown;
    app.load_data_array();
    EXPECT_EQ(joined(desktop.shown.back(), app.popupwindow->statusField.Text(), app.popupwindow->ProgressBar1.Value()),
              "popupwindow|loading data registers|3");
    EXPECT_FALSE(app.popupwindow->Visible());
    EXPECT_EQ(joined(app.fbyte0[1], app.db3[2], app.fbyte0[3]), "150|4|255");
}

TEST_F(TableCodecTest, too_many_decimals_beep_and_leave_the_notice_up) {
    program.enter("7.83");
    program.enter("1.2345");
    program.enter("10");
    desktop.expect_message("too many decimals entered");
    app.load_data_array();
    EXPECT_EQ(desktop.dialogs.back().Icon, DialogIcon::stop);
    EXPECT_EQ(desktop.beeps, 3);
    EXPECT_TRUE(app.popupwindow->Visible());
    EXPECT_EQ(app.fbyte0[1], 150); // the rows before stay
    EXPECT_EQ(app.fbyte0[3], 255);
}

TEST_F(TableCodecTest, faults_at_save_keep_table_and_flag_and_take_the_notice_away) {
    struct Case {
        int column;
        const char* text;
        const char* reason;
    };
    const Case cases[] = {
        {column::base, "0.255", "Its base frequency (\"0.255\") must be a number of 0.256 to 999999."},
        {column::base, "1234567890", "Its base frequency has more than nine characters."},
        {column::base, "", "Its base frequency (\"\") must be a number of 0.256 to 999999."},
        {column::time_each, "180", "Its time (\"180\") needs a colon in the form MM:SS."},
        {column::time_each, "", "Its time (\"\") needs a colon in the form MM:SS."},
    };
    for (const auto& [column, text, reason] : cases) {
        program.new_protocol();
        program.enter("7.83");
        window().edit_displayBox.SetCell(1, column::base, "7.83"); // the case before may have left its own
        window().edit_displayBox.SetCell(1, column, text);
        desktop.expect_fault("_FileSave_Action");
        app.choose_menu("FileSave");
        EXPECT_EQ(desktop.faults.back().kind, FaultKind::out_of_bounds) << text;
        EXPECT_EQ(desktop.faults.back().what,
                  std::string("Level 1 can't be turned into the generator's form. ") + reason);
        EXPECT_EQ(program.cell(1, column), text);
        EXPECT_TRUE(app.editchanged && !app.popupwindow->Visible());
        app.editchanged = false;
    }
}

TEST_F(TableCodecTest, a_row_beyond_the_bank_is_told_as_such) {
    program.enter("7.83");
    for (int row = 2; row <= 51; ++row) {
        window().edit_displayBox.AddRow(Str(row));
        for (int i = 1; i < column::count; ++i) {
            window().edit_displayBox.SetCell(row, i, program.cell(1, i));
        }
    }
    desktop.expect_fault("_FileSave_Action");
    app.choose_menu("FileSave");
    EXPECT_EQ(desktop.faults.back().what,
              "The table has 51 levels, and a bank holds 50. Delete the rows that are too many.");
    EXPECT_EQ(app.fbyte0[50], 150);
}

TEST_F(TableCodecTest, display_appends_a_row_or_fills_the_inserted_one) {
    program.enter("7.83");
    app.load_data_array();
    app.displaydata(1);
    EXPECT_EQ(program.row(2), "2|Single Frequency|007.830||1|3:00|00:03:00|ON|1|Square|70%|Positive");
    EXPECT_EQ(window().BankFreqField.Text(), "1"); // the running totals know only what was displayed

    app.row = 1;
    app.insert = true;
    window().edit_displayBox.SetCell(1, column::level, "x");
    app.displaydata(1);
    EXPECT_EQ(joined(program.levels(), program.cell(1, column::level), program.cell(1, column::base)), "2|x|007.830");
    EXPECT_FALSE(app.insert);
    EXPECT_EQ(window().BankTimeField.Text(), "00:06:00");

    EXPECT_THROW(app.displaydata(51), Fault);
}

} // namespace
} // namespace tessit::testing
