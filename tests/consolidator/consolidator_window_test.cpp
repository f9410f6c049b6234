// SPDX-License-Identifier: MIT
// The consolidator's window: entry, notations, commands on the list, files and both closing questions.
#include "support/full_disk.h"
#include "support/list_program.h"

namespace tessit::testing {
namespace {

class ConsolidatorTest : public ListTest {
protected:
    void answer_on_closing(DialogAnswer answer) {
        desktop.expect_message("Do you want to save your frequency list before quitting?", answer);
        consolidator().close_by_user();
    }
};

TEST_F(ConsolidatorTest, opens_empty_and_hides_the_main_window) {
    EXPECT_FALSE(app.Window1->Visible());
    EXPECT_EQ(app.myactivewindow, document::consolidator);
    EXPECT_EQ(consolidator().nameField.Text(), "untitled");
    EXPECT_TRUE(consolidator().naDecimal.Value());
    EXPECT_EQ(joined(app.filetype, app.cwidth.count(), app.calign[11]), ".csv|13|Left");
}

TEST_F(ConsolidatorTest, entries_are_added_as_typed) {
    enter("7.83");
    enter("x");
    enter("");
    EXPECT_EQ(joined(list(), app.numentries), "7.83, x, |3");
    EXPECT_TRUE(app.consolidatorchanged && app.dataentry);
    consolidator().entryField.type("5l");
    EXPECT_EQ(list(), "7.83, x, 5");                  // doubled separators are folded
    EXPECT_EQ(consolidator().entryField.Text(), "l"); // the letter enters and stays behind
    consolidator().entryField.edit("");
    consolidator().entryField.press(keys::enter);
    EXPECT_EQ(app.numentries, 5);
    consolidator().entryField.edit("1.5\n2.5\n"); // pasted lines
    EXPECT_EQ(consolidator().entryField.Text(), "1.5, 2.5");
}

TEST_F(ConsolidatorTest, an_entry_behind_an_opened_list_joins_its_last_number) {
    open_list("1, 2, 3");
    EXPECT_EQ(joined(list(), consolidator().nameField.Text()), "1, 2, 3|night");
    EXPECT_TRUE(app.dataentry && !app.filepath && !app.popupwindow->Visible());
    enter("4");
    EXPECT_EQ(list(), "1, 2, 34");
}

TEST_F(ConsolidatorTest, columns_become_lists_whatever_their_line_ends) {
    const std::tuple<const char*, const char*, const char*> cases[] = {
        {"1\n2\r\n3\r4\n", "1, 2, 3, 4, ", "1: 2: 3: 4: "},
        {"1\t2", "1, 2", "1: 2"},
        {"1\n\n\n2", "1, 2", "1: 2"}, // folded until nothing is left to fold
        {", , , , , ,", ",", ", , , , , ,"},
    };
    for (const auto& [text, points, commas] : cases) {
        for (const bool comma : {false, true}) {
            app.use_euro = comma;
            consolidator().freqdisplayfield.edit("");
            consolidator().freqdisplayfield.edit(text);
            EXPECT_EQ(list(), comma ? commas : points);
        }
    }
}

TEST_F(ConsolidatorTest, the_notation_follows_the_buttons) {
    consolidator().isoDecimal.click();
    EXPECT_TRUE(app.use_euro);
    enter("1,5");
    enter("2,5");
    EXPECT_EQ(list(), "1,5: 2,5");
    consolidator().SortupButton.click();
    EXPECT_EQ(list(), "0 : 1,5 : 2,5");
    consolidator().RemDupButton.click();
    EXPECT_EQ(list(), "1.5 : 2.5 : 0"); // points, in either notation; the first 0 was found again in the last
    consolidator().freqdisplayfield.edit("1,5: 2,5");
    consolidator().naDecimal.click();
    EXPECT_EQ(list(), "1.5, 2.5");
    consolidator().isoDecimal.click();
    EXPECT_EQ(list(), "1,5: 2,5");
}

TEST_F(ConsolidatorTest, undo_goes_back_over_commands_with_all_that_they_changed) {
    ConsolidatorWindow& w = consolidator();
    const auto state = [&] {
        return joined(list(), w.countText, w.nameField, app.numentries, app.datasort, app.use_euro,
                      w.isoDecimal.Value());
    };
    desktop.clipboard = "8\n9";
    const std::pair<const char*, std::function<void()>> steps[] = {
        {"7.83|1 entry|untitled|1|0|0|0", [&] { enter("7.83"); }},
        {"7.83, 5|2 entries|untitled|2|0|0|0", [&] { enter("5"); }},
        {"0, 5, 7.83|3 entries|untitled|2|1|0|0", [&] { w.SortupButton.click(); }},
        {"0: 5: 7,83|3 entries|untitled|2|1|1|1", [&] { w.isoDecimal.click(); }},
        {"8: 9 :|2 entries|untitled|2|1|1|1", [&] { app.choose_menu("EditPaste"); }},
        {"9 : 8 : 0|3 entries|untitled|2|1|1|1", [&] { w.SortdnButton.click(); }},
        {"3: 3: |2 entries|night|2|1|1|1", [&] { open_list("3\n3\n"); }},
        {"3 : 0|2 entries|night|1|1|1|1", [&] { w.RemDupButton.click(); }},
        {"3 : 0: 4|3 entries|night|1|1|1|1", [&] { w.freqdisplayfield.edit("3 : 0\r4"); }}, // made one line at once
    };
    std::vector<std::string> states{state()};
    for (const auto& [expected, step] : steps) {
        step();
        EXPECT_EQ(state(), expected);
        states.push_back(state());
    }
    for (std::size_t at = states.size() - 1; at-- > 0;) {
        w.freqdisplayfield.undo();
        EXPECT_EQ(state(), states[at]);
    }
    w.freqdisplayfield.undo(); // nothing is left of the window's opening
    for (const std::string& expected : states) {
        EXPECT_EQ(state(), expected);
        w.freqdisplayfield.redo();
    }
    app.consolidatorchanged = false;
    w.close_by_user();
    open_list("1, 2");
    consolidator().freqdisplayfield.undo();
    EXPECT_EQ(list(), "1, 2") << "the window was opened with it";
}

TEST_F(ConsolidatorTest, reports_of_removals_pile_up_and_sorting_changes_no_flag) {
    consolidator().freqdisplayfield.edit("1, 2, 2, 3");
    consolidator().RemDupButton.click();
    EXPECT_EQ(joined(list(), app.numentries), "1, 2, 3, 0|3");
    EXPECT_FALSE(app.datasort);
    consolidator().SortdnButton.click();
    EXPECT_EQ(list(), "3, 2, 1, 0, 0");
    EXPECT_TRUE(app.datasort);
    consolidator().freqdisplayfield.edit("5, 5");
    consolidator().RemDupButton.click();
    EXPECT_EQ(consolidator().duplicatefield.Text(), "\r1 duplicates of frequency 2Hz  were removed"
                                                    "\r1 duplicates of frequency 5Hz  were removed");
    EXPECT_FALSE(app.consolidatorchanged);
}

TEST_F(ConsolidatorTest, an_empty_list_stays_empty) {
    ConsolidatorWindow& w = consolidator();
    for (PushButton* button : {&w.SortupButton, &w.SortdnButton, &w.RemDupButton}) {
        w.freqdisplayfield.edit("  ");
        button->click();
        EXPECT_EQ(list() + w.duplicatefield.Text(), "");
    }
}

TEST_F(ConsolidatorTest, the_clipboard_serves_the_list_alone) {
    consolidator().freqdisplayfield.edit("1, 2, 3");
    consolidator().freqdisplayfield.select({.start = 3, .length = 3});
    app.choose_menu("EditCopy");
    EXPECT_EQ(desktop.clipboard, "2, ");
    app.choose_menu("EditCut");
    EXPECT_EQ(joined(list(), consolidator().freqdisplayfield.SelStart()), "1, 3|3");

    desktop.clipboard = "10\n20\n30";
    app.choose_menu("EditPaste"); // in place of everything
    EXPECT_EQ(joined(list(), app.numentries), "10, 20, 30,|0");
    EXPECT_FALSE(app.consolidatorchanged);
    enter("40");
    EXPECT_EQ(list(), "10, 20, 30,40");

    app.use_euro = true;
    desktop.clipboard = "1,5\t2,5";
    app.choose_menu("EditPaste");
    EXPECT_EQ(list(), "1,5: 2,5 :");
    desktop.clipboard.reset(); // a picture, say
    app.choose_menu("EditPaste");
    EXPECT_EQ(list(), "1,5: 2,5 :");

    app.consolidatorchanged = false;
    consolidator().close_by_user();
    desktop.clipboard = "4";
    app.choose_menu("ContactUsOnlineSupport");
    app.choose_menu("EditPaste");
    EXPECT_EQ(app.front_window(), &consolidator()); // the list can be seen
}

TEST_F(ConsolidatorTest, save_writes_the_text_as_it_stands) {
    enter("7.83");
    desktop.choose_file(desktop.folder / "own.csv");
    app.choose_menu("FileSave");
    EXPECT_EQ(file_bytes(desktop.folder / "own.csv"), "7.83\n");
    EXPECT_EQ(desktop.file_requests.back().default_name, "untitled.csv");
    EXPECT_EQ(desktop.file_requests.back().type.Name, "Frequency List/csv");
    EXPECT_EQ(app.filename, (desktop.folder / "own.csv").string());
    EXPECT_FALSE(app.consolidatorchanged);

    enter("8");
    desktop.dismiss_file_dialog();
    app.choose_menu("FileSave");
    EXPECT_TRUE(app.consolidatorchanged); // unlike a protocol's
}

TEST_F(ConsolidatorTest, a_full_disk_keeps_list_and_file) {
    enter("7.83, 14.1, 20.3");
    write_file(desktop.folder / "own.csv", "1\n");
    for (const bool closing : {false, true}) {
        desktop.choose_file(desktop.folder / "own.csv");
        desktop.expect_fault(closing ? "consolidatorWindow.Event_CancelClose" : "_FileSave_Action");
        const FullDisk full_disk;
        closing ? answer_on_closing(DialogAnswer::action) : app.choose_menu("FileSave");
        EXPECT_EQ(list(), "7.83, 14.1, 20.3");
        EXPECT_TRUE(app.consolidatorchanged);
        EXPECT_EQ(file_bytes(desktop.folder / "own.csv"), "1\n");
    }
}

TEST_F(ConsolidatorTest, a_list_that_cant_be_read_changes_nothing) {
    enter("5");
    desktop.choose_file(desktop.folder / "missing.csv");
    desktop.expect_fault("_ConsolidatorOpen_Action");
    app.choose_menu("ConsolidatorOpen");
    desktop.dismiss_file_dialog();
    app.choose_menu("ConsolidatorOpen");
    EXPECT_EQ(joined(list(), consolidator().nameField.Text()), "5|untitled");
}

TEST_F(ConsolidatorTest, a_dismissed_file_dialog_loses_the_list) {
    enter("5");
    desktop.dismiss_file_dialog();
    answer_on_closing(DialogAnswer::action);
    app.choose_menu("ConsolidatorNew");
    EXPECT_EQ(list(), "");
    EXPECT_FALSE(app.consolidatorchanged);
}

TEST_F(ConsolidatorTest, the_quit_command_asks_a_question_of_its_own) {
    enter("5");
    desktop.expect_message("Do you want to save your work before quitting?", DialogAnswer::alternate);
    app.choose_menu("ConsolidatorQuit");
    EXPECT_TRUE(!app.consolidatorWindow.exists() && app.Window1->Visible());
}

} // namespace
} // namespace tessit::testing
