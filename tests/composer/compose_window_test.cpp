// SPDX-License-Identifier: MIT
// The composer's window: taking over a list, clicking cells, entering rows, and the ways in which its table leaves.
#include "support/full_disk.h"
#include "support/list_program.h"

namespace tessit::testing {
namespace {

class ComposerTest : public ListTest {
protected:
    void enter_prime(int row) {
        composer().freq_listBox.click_cell(row, prime_column::prime);
        composer().enterbutton.click();
    }
    void choose_format(int format) { composer().formatbox.choose(format); }
    const std::string& total_time() { return composer().totaltimefield.Text(); }
    void load_back(int row) {
        composer().compose_displayBox.choose(row);
        composer().compose_displayBox.double_click(row);
    }
    Color background(int row, int column) {
        struct Canvas : CellGraphics {
            Canvas() : CellGraphics(10, 10) {}
            void FillRect(int, int, int, int) override { filled = ForeColor; }
            Color filled;
        } canvas;
        composer().freq_listBox.paint_cell_background(canvas, row, column);
        return canvas.filled;
    }
};

TEST_F(ComposerTest, takes_the_list_over_from_high_to_low) {
    consolidator().nameField.edit("night");
    compose("100, 110, 117.9, 120, 300");
    EXPECT_EQ(primes(), "300.|| 120.|| 117.9|| 110.|5|115. 100.||");
    EXPECT_EQ(joined(composer().namefield, composer().timefield, composer().dutybox), "night|3:00|70");
    EXPECT_FALSE(consolidator().Visible() || composer().widthbox.Enabled());
    EXPECT_EQ(app.myactivewindow, document::composer);
    EXPECT_EQ(background(4, 2), Color{0xFFFFFF});
    EXPECT_EQ(app.textshade[0], Color{0x000000});
    EXPECT_EQ(app.textshade[3], Color{0xFF6600});
}

TEST_F(ComposerTest, a_list_sorted_upward_stays_upward_and_an_empty_one_is_no_trouble) {
    app.use_euro = true;
    consolidator().freqdisplayfield.edit("122,5 : 300 : 124,5");
    consolidator().SortupButton.click();
    consolidator().composebutton.click();
    EXPECT_EQ(primes(), "122,5|| 124,5|1|123.5, 300,||"); // a centre keeps its point
    composer().close_by_user();
    EXPECT_TRUE(!app.consolidatorWindow.exists() && app.Window1->Visible());

    app.choose_menu("ConsolidatorNew");
    compose("");
    EXPECT_EQ(primes(), "");
    composer().allbutton.click();
    EXPECT_EQ(levels(), 0);
}

TEST_F(ComposerTest, clicks_fill_the_fields_in_their_order) {
    compose("110, 100, 300");
    Listbox& list = composer().freq_listBox;
    list.click_cell(2, prime_column::center);
    ComposeWindow& w = composer();
    EXPECT_EQ(joined(w.freq_field, w.wavebox, w.widthbox, w.timefield), "105.|Spread Contracting|5|:10");
    EXPECT_TRUE(w.widthbox.Enabled());
    list.click_cell(1, prime_column::width);
    EXPECT_EQ(joined(app.cellcol, composer().freq_field.Text()), "1|105.");
    // Back to a prime the wave's change writes the time by the default format, not by the box.
    app.default_timeformat = 0;
    list.click_cell(0, prime_column::prime);
    EXPECT_EQ(joined(w.timefield, w.widthbox), "180|0");
    EXPECT_FALSE(w.widthbox.Enabled());
    list.click_cell(0, prime_column::center); // an empty cell empties the field
    EXPECT_EQ(joined(composer().freq_field.Text(), list.ListIndex()), "|0");
    list.click_cell(0, prime_column::prime);
    list.SetCell(2, prime_column::width, "12"); // beyond the box: what the wave set stays
    list.click_cell(2, prime_column::center);
    EXPECT_EQ(w.widthbox.ListIndex(), app.defaultwidth);
}

TEST_F(ComposerTest, entering_a_new_row) {
    compose("110, 100, 300");
    composer().freq_listBox.click_cell(2, prime_column::center);
    composer().enterbutton.click();
    EXPECT_EQ(level(1), "1|Spread Contracting|105.|5|11|:10|1:50|ON|1|Square|70|Positive");
    EXPECT_EQ(joined(composer().totalfreqfield.Text(), total_time()), "11|1:50");
    EXPECT_EQ(background(2, prime_column::center), Color{0xC0C0C0});
    EXPECT_TRUE(!composer().allbutton.Enabled() && !composer().formatbox.Enabled() && app.composechanged);
    enter_prime(0);
    EXPECT_EQ(level(2), "2|Single Frequency|300.|1|1|3:00|3:00|ON|1|Square|70|Positive");
    EXPECT_EQ(joined(total_time(), composer().compose_displayBox.ListIndex()), "4:50|2");
    EXPECT_EQ(composer().freq_field.Text(), "300."); // the editor's field is cleared, not this one
    EXPECT_TRUE(app.editwindow->Visible() && app.in_front(composer()));
    EXPECT_EQ(app.myactivewindow, document::composer);
}

TEST_F(ComposerTest, seconds_show_the_latest_row_alone) {
    choose_format(0);
    compose("300, 200, 100");
    choose_format(1);
    EXPECT_EQ(joined(app.default_timeformat, composer().timefield), "1|3:00");
    choose_format(0);
    EXPECT_EQ(joined(app.default_timeformat, composer().timefield), "0|180");
    for (int row = 0; row < 3; ++row) {
        enter_prime(row);
    }
    EXPECT_EQ(level(3), "3|Single Frequency|100.|1|1|180|180|ON|1|Square|70|Positive");
    EXPECT_EQ(joined(total_time(), composer().totalfreqfield.Text()), "00:03:00|3");
    load_back(2);
    composer().timefield.edit("47");
    composer().enterbutton.click();
    EXPECT_EQ(app.default_sf_time_s, "47");
    EXPECT_EQ(composer().totalfreqfield.Text(), "50"); // begins with the row's own 47
    EXPECT_EQ(total_time(), "00:00:00");
}

TEST_F(ComposerTest, a_changed_row_keeps_its_place_and_turns_a_sweep_round) {
    compose("300, 200");
    composer().freq_field.edit("250");
    composer().wavebox.choose(4); // the editor has it at 3
    composer().widthbox.choose(5);
    composer().enterbutton.click();
    EXPECT_EQ(level(1).substr(0, 35), "1|Sweep Increasing|250|5|6|:10|1:00");
    enter_prime(0);
    load_back(1);
    EXPECT_EQ(app.level, 1);
    EXPECT_EQ(joined(composer().wavebox, composer().widthbox, composer().dutybox), "Sweep Decreasing|0|70");
    composer().enterbutton.click();
    EXPECT_EQ(level(1), "1|Sweep Decreasing|250|0|1|:10|0:10|ON|1|Square|70|Positive");
    EXPECT_EQ(joined(levels(), total_time(), app.level), "2|3:10|0");
    composer().compose_displayBox.choose(0);
    composer().compose_displayBox.double_click(0); // the empty row: the next entry is a new one
    EXPECT_EQ(app.level, 0);
}

TEST_F(ComposerTest, a_level_that_is_gone_cannot_be_changed) {
    compose("300, 200");
    enter_prime(0);
    load_back(1);
    app.choose_menu("EditDeleteRow");
    EXPECT_EQ(levels(), 0);
    EXPECT_EQ(composer().totalfreqfield.Text(), "1"); // totals stay
    desktop.expect_fault("composewindow.enterbutton_Action");
    composer().enterbutton.click();
    load_back(0);
    enter_prime(1);
    EXPECT_EQ(levels(), 1);
}

TEST_F(ComposerTest, a_time_without_a_colon_keeps_the_rows_so_far) {
    compose("300, 200");
    enter_prime(0);
    composer().timefield.edit("180");
    desktop.expect_fault("composewindow.enterbutton_Action");
    composer().enterbutton.click();
    EXPECT_EQ(levels(), 2);
    EXPECT_EQ(level(2), "2|Single Frequency|300.|1|1|180||||||");
    EXPECT_NE(desktop.faults.back().what.find("no colon"), std::string::npos);
}

TEST_F(ComposerTest, limits_of_entry) {
    compose("300");
    composer().freq_field.edit("1000000");
    desktop.expect_message("Maximum frequency exceeded");
    composer().enterbutton.click();
    EXPECT_EQ(levels(), 1); // entered all the same
    for (int i = 2; i <= 50; ++i) {
        enter_prime(0);
    }
    desktop.expect_message("maximum 50 levels has been exceeded");
    enter_prime(0);
    EXPECT_EQ(levels(), 50);
}

TEST_F(ComposerTest, default_all_enters_every_prime_and_stops_at_fifty) {
    std::string many;
    for (int i = 1; i <= 10000; ++i) { // is no trouble
        many += Str(i * 90) + "\n";
    }
    compose(many);
    desktop.expect_message("maximum 50 levels has been exceeded");
    composer().allbutton.click();
    EXPECT_EQ(levels(), 50);
    EXPECT_EQ(level(50), "50|Single Frequency|895590.|1|1|3:00|3:00|ON|1|Square|70|Positive");
    EXPECT_EQ(joined(total_time(), composer().totalfreqfield.Text()), "02:30:00|50");
    EXPECT_TRUE(composer().allbutton.Enabled());
    EXPECT_EQ(background(9999, 0), Color{0xFFFFFF}); // greys nothing
}

TEST_F(ComposerTest, default_all_overwrites_from_the_top) {
    compose("300, 200");
    choose_format(0);
    composer().allbutton.click();
    EXPECT_EQ(total_time(), "00:00:00");
    composer().timefield.edit("60");
    composer().allbutton.click();
    EXPECT_EQ(levels(), 4);
    EXPECT_EQ(level(1), "1|Single Frequency|300.|1|1|60|60|ON|1|Square|70|Positive");
    EXPECT_EQ(level(3), "3|||||||||||");
}

TEST_F(ComposerTest, insert_row_opens_a_row_for_the_next_entry) {
    compose("300, 200");
    composer().allbutton.click();
    app.choose_menu("EditInsertRow");
    EXPECT_TRUE(app.insert); // also with what Default all selected
    EXPECT_EQ(levels(), 3);
    enter_prime(1);
    EXPECT_EQ(level(2), "2|Single Frequency|200.|1|1|3:00|3:00|ON|1|Square|70|Positive");
    EXPECT_EQ(levels(), 3);
    app.composewindow->compose_displayBox.SetListIndex(-1);
    app.editwindow.Close();
    composer().activate(); // the main window came up
    app.choose_menu("EditInsertRow");
    EXPECT_EQ(levels(), 3);
    EXPECT_TRUE(app.insert);
}

TEST_F(ComposerTest, saves_and_exports_its_own_table) {
    app.use_euro = true;
    compose("7,83 : 300");
    enter_prime(0);
    enter_prime(1);
    EXPECT_EQ(hex(program.save_as("composed.zp2")),
              "04 93 e0 08 00 03 15 07 00 00 01 61 00 1e 96 08 00 03 15 07 00 00 01 24");
    EXPECT_FALSE(app.composechanged);
    desktop.choose_file(desktop.folder / "table.tab");
    app.choose_menu("FileExport");
    const std::string text = file_bytes(desktop.folder / "table.tab");
    EXPECT_NE(text.find("\r2\tSingle Frequency\t7,83\t1\t1\t3:00\t3:00\tON\t1\tSquare\t70\tPositive\r\n"),
              std::string::npos);
}

TEST_F(ComposerTest, closing_keeps_the_window_where_saving_fails_and_not_where_its_dialog_is_dismissed) {
    const std::string question = "Your composed protocol has not been saved to file\rDo you want to save it?";
    consolidator().nameField.edit("night");
    compose("300");
    enter_prime(0);
    {
        desktop.choose_file(desktop.folder / "night.zp2");
        desktop.expect_message(question, DialogAnswer::action);
        desktop.expect_fault("composewindow.Event_CancelClose");
        const FullDisk full_disk;
        composer().close_by_user();
        EXPECT_EQ(joined(levels(), desktop.file_requests.back().default_name), "1|night.zp2");
    }
    desktop.dismiss_file_dialog(); // the work is lost without further word
    desktop.expect_message(question, DialogAnswer::action);
    composer().close_by_user();
    EXPECT_FALSE(app.composewindow.exists());
}

TEST_F(ComposerTest, a_second_hand_over_reports_a_painting_fault_once) {
    compose("300");
    app.consolidatorWindow->Show();
    std::string many;
    for (int i = 1; i <= 40; ++i) {
        many += Str(i * 100) + ",";
    }
    compose(many);
    EXPECT_EQ(composer().freq_listBox.ListCount(), 41); // appended to what stood there
    desktop.expect_fault("composewindow.freq_listBox_CellBackgroundPaint");
    background(40, 0);
    background(39, 0);
    desktop.run_event_loop();
}

} // namespace
} // namespace tessit::testing
