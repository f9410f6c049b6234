// SPDX-License-Identifier: MIT
// Printing from the document windows: the windows in which a page is set up, and the page that comes of it.
#include "device/read_window.h"
#include "report/page_setup_window.h"
#include "report/qc_window.h"
#include "support/list_program.h"

#include <gtest/gtest.h>

namespace tessit::testing {
namespace {

std::vector<DrawBlock> blocks_of(const Page& page) {
    std::vector<DrawBlock> blocks;
    for (const auto& operation : page) {
        if (const auto* block = std::get_if<DrawBlock>(&operation)) {
            blocks.push_back(*block);
        }
    }
    return blocks;
}

// The text that stands at a place; empty where none does.
std::string text_at(const Page& page, int x, int y) {
    for (const auto& operation : page) {
        const auto* string = std::get_if<DrawString>(&operation);
        if (string != nullptr && string->x == x && string->y == y && !string->text.empty()) {
            return string->text;
        }
    }
    return "";
}

class PageSetupTest : public EditorTest {
protected:
    ScriptedDesktop& desktop = program.desktop;
    PageSetupWindow& setup() { return app.pgsetupwindow.get(); }
    const Page& last_page() { return desktop.pages.back(); }

    void SetUp() override {
        EditorTest::SetUp();
        window().namefield.SetText("Sleep");
        app.choose_menu("FilePrint");
    }
    void TearDown() override { app.editchanged = false; }

    void print() {
        desktop.accept_printing();
        setup().DoneButton.click();
    }
};

TEST_F(PageSetupTest, a_protocol_goes_from_the_table_to_the_page) {
    program.enter("7.83");
    setup().footerfield.edit("Page 1");
    EXPECT_EQ(setup().headingfield.Text(), "Sleep");
    print();
    ASSERT_EQ(desktop.pages.size(), 1U);
    EXPECT_EQ(text_at(last_page(), 65, 76), "Waveform");
    EXPECT_EQ(text_at(last_page(), 65, 89), "Single Frequency");
    EXPECT_EQ(text_at(last_page(), 160, 89), "7.83"); // 155 + (40 - 20) - 15
    EXPECT_EQ(text_at(last_page(), 200, 109), "Total frequencies used:  1     Total time:  00:03:00");
    const auto blocks = blocks_of(last_page());
    ASSERT_EQ(blocks.size(), 2U);
    EXPECT_EQ(blocks[0].text, StyledText("Sleep"));
    EXPECT_EQ(blocks[0].font.TextSize, 12);
    EXPECT_EQ(blocks[1].text, StyledText("Page 1"));
    EXPECT_EQ(blocks[1].y, 149);
    EXPECT_EQ(app.heading, "Sleep");
    EXPECT_EQ(app.footer, "Page 1");
    EXPECT_FALSE(setup().Visible());
}

TEST_F(PageSetupTest, a_dismissed_dialog_prints_nothing_and_the_footer_waits_for_the_next_print) {
    setup().footerfield.edit("Page 1");
    desktop.dismiss_print_dialog();
    setup().DoneButton.click();
    EXPECT_TRUE(desktop.pages.empty());
    setup().headingfield.edit("Typed");
    app.choose_menu("FilePageSetup");
    EXPECT_TRUE(setup().Visible());
    EXPECT_EQ(setup().headingfield.Text(), "Sleep"); // the document's name once more
    EXPECT_EQ(setup().footerfield.Text(), "Page 1");
    setup().CancelButton.click();
    EXPECT_FALSE(app.pgsetupwindow.exists());
    EXPECT_EQ(app.footer, "Page 1");
    app.choose_menu("FilePrint");
    EXPECT_EQ(setup().footerfield.Text(), "");
}

TEST_F(PageSetupTest, sizes_are_read_as_numbers_are) {
    struct Case {
        const char* typed;
        int size;
        int printed;
    };
    const Case cases[] = {
        {"14", 14, 14},    {"13.5", 13, 13}, {"13,5", 135, 135},
        {"999", 999, 999}, {"0", 0, 12},     {"99999999999", 2147483647, 2147483647},
        {"large", 0, 12},  {"6", 6, 6},      {"", 0, 12},
    };
    for (const Case& c : cases) {
        setup().headfontBox.edit(c.typed);
        setup().footfontBox.edit(c.typed);
        EXPECT_EQ(app.headerfont, c.size) << c.typed;
        EXPECT_EQ(setup().headingfield.TextSize(), c.size) << c.typed;
        print();
        for (const DrawBlock& block : blocks_of(last_page())) {
            EXPECT_EQ(block.font.TextSize, c.printed) << c.typed;
        }
    }
    setup().footfontBox.choose(10);
    setup().Close();
    EXPECT_EQ(setup().footerfield.TextSize(), 20); // sizes last as long as the program runs
    EXPECT_EQ(setup().headingfield.TextSize(), 0);
}

TEST_F(PageSetupTest, each_style_button_serves_the_selection_of_its_own_field) {
    PageSetupWindow& w = setup();
    w.footerfield.edit("Foot");
    struct Case {
        BevelButton& button;
        EditField& field;
        TextStyle style;
    };
    const Case cases[] = {
        {w.Boldbutton1, w.headingfield, {.bold = true}},
        {w.Italicbutton1, w.headingfield, {.italic = true}},
        {w.underlinebutton1, w.headingfield, {.underline = true}},
        {w.Boldbutton, w.footerfield, {.bold = true}},
        {w.Italicbutton, w.footerfield, {.italic = true}},
        {w.underlinebutton, w.footerfield, {.underline = true}},
    };
    for (const Case& c : cases) {
        c.field.select({.start = 1, .length = 2});
        c.button.click();
        EXPECT_EQ(c.field.StyledText().style_at(1), c.style) << c.button.name();
        EXPECT_EQ(c.field.StyledText().style_at(0), TextStyle{}) << c.button.name();
        print();
        EXPECT_EQ(blocks_of(last_page())[&c.field == &w.footerfield ? 1 : 0].text, c.field.StyledText());
        c.button.click();
        EXPECT_FALSE(c.field.StyledText().is_styled()) << c.button.name();
    }
}

TEST_F(PageSetupTest, the_systems_fonts_are_listed_without_the_first) {
    EXPECT_EQ(setup().HeadstyleBox.ListCount(), 2);
    EXPECT_EQ(setup().footstyleBox.List(1), "Courier");
    setup().HeadstyleBox.choose(1); // and chosen in vain
    print();
    EXPECT_EQ(blocks_of(last_page())[0].font.TextFont, "arial");
}

TEST_F(PageSetupTest, a_printer_that_fails_is_told_and_the_document_stays) {
    program.enter("7.83");
    desktop.refuse_printing();
    desktop.expect_fault("pgsetupwindow.DoneButton_Action");
    setup().DoneButton.click();
    EXPECT_EQ(desktop.faults.front().kind, FaultKind::write_failed);
    EXPECT_EQ(program.levels(), 1);
}

TEST_F(PageSetupTest, nothing_is_printed_while_the_main_panel_is_visible_behind_the_document) {
    app.Window1->Show();
    window().Show();
    setup().DoneButton.click();
    EXPECT_TRUE(desktop.pages.empty());
    app.pgsetupwindow.Close();
    app.pagesetup();
    EXPECT_FALSE(app.pgsetupwindow.exists());
    app.Window1->Hide();
    app.pagesetup();
    EXPECT_TRUE(setup().Visible());
}

class ListPrintTest : public ListTest {
protected:
    const Page& print() {
        app.choose_menu("FilePrint");
        program.desktop.accept_printing();
        app.pgsetupwindow->DoneButton.click();
        return program.desktop.pages.back();
    }
};

TEST_F(ListPrintTest, a_composed_protocol_prints_from_the_composer) {
    consolidator().nameField.edit("night");
    compose("110, 100");
    composer().allbutton.click();
    const Page& page = print();
    EXPECT_EQ(text_at(page, 65, 76), "Waveform");
    EXPECT_EQ(text_at(page, 65, 99), "Single Frequency");
    EXPECT_EQ(text_at(page, 200, 119), "Total frequencies used:  " + composer().totalfreqfield.Text() +
                                           "     Total time:  " + composer().totaltimefield.Text());
    const auto blocks = blocks_of(page);
    ASSERT_EQ(blocks.size(), 2U);
    EXPECT_EQ(blocks[0].text.Text(), "night");
    EXPECT_EQ(blocks[1].y, 159);
}

TEST_F(ListPrintTest, a_frequency_list_prints_as_text) {
    consolidator().nameField.edit("night");
    consolidator().freqdisplayfield.edit("110, 100");
    const Page& page = print();
    const auto blocks = blocks_of(page);
    ASSERT_EQ(page.size(), 3U);
    ASSERT_EQ(blocks.size(), 3U);
    EXPECT_EQ(blocks[0].text.Text(), "night");
    EXPECT_EQ(blocks[1].text.Text(), "110, 100");
    EXPECT_EQ(blocks[1].y, 86);
    EXPECT_EQ(blocks[2].y, 136);
}

class QcTest : public ::testing::Test {
protected:
    Program program;
    App& app = program.app;
    ScriptedDesktop& desktop = program.desktop;
    QcWindow& qc() { return app.qcsetupwindow.get(); }

    void SetUp() override {
        desktop.expect_message("No Serial Port Selected");
        app.choose_menu("ZephonReadZephon");
        set_up_level_table(app.ReadZPWindow->displaybox); // which it leaves undone without a port
        set_up_report_columns(app);
        app.ReadZPWindow->bankfield.SetText("Bank_7");
        app.ReadZPWindow->BankFreqField.SetText("3");
        app.ReadZPWindow->BankTimeField.SetText("00:09:00");
        app.choose_menu("FilePrint");
    }
};

TEST_F(QcTest, prompts_are_the_fields_contents_and_come_again_with_their_answers) {
    EXPECT_TRUE(qc().Visible());
    EXPECT_FALSE(app.pgsetupwindow.exists());
    EXPECT_EQ(qc().serialfield.Text(), "Zephon Serial#: ");
    EXPECT_EQ(qc().assignfield.Text(), "Assigned to: ");
    EXPECT_EQ(qc().qcfield.Text(), "Qc'd by: ");
    EXPECT_EQ(qc().protocolfield.Text(), "untitled");
    EXPECT_EQ(qc().datefield.Text(), "2026-03-09");
    EXPECT_EQ(qc().bankfield.Text(), "Bank_7");
    qc().serialfield.type("4711");
    qc().assignfield.edit("");
    qc().qcfield.type("N.N.");
    desktop.dismiss_print_dialog(); // all the same
    qc().PushButton1.click();
    EXPECT_FALSE(app.qcsetupwindow.exists());
    app.choose_menu("FilePrint");
    EXPECT_EQ(qc().serialfield.Text(), "Zephon Serial#: 4711");
    EXPECT_EQ(qc().assignfield.Text(), "Assigned to: ");
    EXPECT_EQ(qc().qcfield.Text(), "Qc'd by: N.N.");
}

TEST_F(QcTest, without_a_table_so_far_the_fault_says_what_to_do) {
    app.cwidth = {}; // as when no document window has opened its table
    desktop.accept_printing();
    desktop.expect_fault("qcsetupwindow.PushButton1_Action");
    qc().PushButton1.click();
    EXPECT_NE(desktop.faults.back().what.find("read a bank first"), std::string::npos);
    EXPECT_TRUE(desktop.pages.empty());
}

TEST_F(QcTest, the_line_is_printed_as_it_stands_in_its_own_sizes) {
    qc().datefield.edit("yesterday");
    desktop.accept_printing();
    qc().PushButton1.click();
    struct Case {
        const char* text;
        int x, y;
        TextStyle style;
    };
    const Case cases[] = {
        {"Zephon Serial#: ", 35, 20, {.size = 9}},
        {"Assigned to: ", 200, 20, {.size = 9}},
        {"Qc'd by: ", 375, 20, {.size = 9}},
        {"yesterday", 450, 20, {.size = 9}},
        {"Bank_7", 35, 36, {.size = 12, .bold = true}},
        {"untitled", 100, 36, {.size = 10}},
        {"", 35, 139, {}}, // the footer of a page setup that nobody saw
    };
    const auto blocks = blocks_of(desktop.pages.at(0));
    ASSERT_EQ(blocks.size(), std::size(cases));
    for (std::size_t i = 0; i < blocks.size(); ++i) {
        EXPECT_EQ(blocks[i].text.Text(), cases[i].text);
        EXPECT_EQ(blocks[i].x, cases[i].x) << cases[i].text;
        EXPECT_EQ(blocks[i].y, cases[i].y) << cases[i].text;
        for (const StyledRun& run : blocks[i].text.runs()) {
            EXPECT_EQ(run.style, cases[i].style) << cases[i].text;
        }
    }
    EXPECT_EQ(text_at(desktop.pages[0], 200, 99), "Total frequencies used:  3     Total time:  00:09:00");
    EXPECT_EQ(app.ReadZPWindow->bankfield.StyledText().style_at(5), (TextStyle{.size = 12, .bold = true})); // it stays
    EXPECT_FALSE(app.qcsetupwindow.exists());
    EXPECT_FALSE(app.pgsetupwindow.exists());
}

} // namespace
} // namespace tessit::testing
