// SPDX-License-Identifier: MIT
// Printing from the document windows: the windows in which a page is set up, and the page that comes of it.
#include "device/read_window.h"
#include "report/page_setup_window.h"
#include "report/qc_window.h"
#include "support/list_program.h"

namespace tessit::testing {
namespace {

// Each block of text as "x,y size text"; a style stands before what bears it, such as "{9b}".
std::vector<std::string> blocks_of(const Page& page) {
    std::vector<std::string> blocks;
    for (const auto& operation : page) {
        if (const auto* block = std::get_if<DrawBlock>(&operation)) {
            std::string& text = blocks.emplace_back(Str(block->x) + "," + Str(block->y) + " ");
            text += Str(block->font.TextSize) + " ";
            for (const StyledRun& run : block->text.runs()) {
                text += run.style == TextStyle{} ? "" : "{" + (run.style.size > 0 ? Str(run.style.size) : "");
                text += std::string(run.style.bold ? "b" : "") + (run.style.italic ? "i" : "");
                text += std::string(run.style.underline ? "u" : "") + (run.style == TextStyle{} ? "" : "}") + run.text;
            }
        }
    }
    return blocks;
}
using Blocks = std::vector<std::string>;

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
    EXPECT_EQ(joined(text_at(last_page(), 65, 76), text_at(last_page(), 65, 89)), "Waveform|Single Frequency");
    EXPECT_EQ(text_at(last_page(), 160, 89), "7.83"); // 155 + (40 - 20) - 15
    EXPECT_EQ(text_at(last_page(), 200, 109), "Total frequencies used:  1     Total time:  00:03:00");
    EXPECT_EQ(blocks_of(last_page()), (Blocks{"35,36 12 Sleep", "35,149 12 Page 1"}));
    EXPECT_EQ(app.heading + app.footer, "SleepPage 1");
    EXPECT_FALSE(setup().Visible());
}

TEST_F(PageSetupTest, a_dismissed_dialog_prints_nothing_and_the_footer_waits_for_the_next_print) {
    setup().footerfield.edit("Page 1");
    desktop.on_print_dialog = [this] { EXPECT_FALSE(setup().Visible()); };
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
    const std::tuple<const char*, int, int> cases[] = {
        {"14", 14, 14},    {"13.5", 13, 13}, {"13,5", 135, 135},
        {"999", 999, 999}, {"0", 0, 12},     {"99999999999", 2147483647, 2147483647},
        {"large", 0, 12},  {"6", 6, 6},      {"", 0, 12},
    };
    for (const auto& [typed, size, printed] : cases) {
        setup().headfontBox.edit(typed);
        setup().footfontBox.edit(typed);
        EXPECT_EQ(app.headerfont, size) << typed;
        EXPECT_EQ(setup().headingfield.TextSize(), size) << typed;
        print();
        EXPECT_EQ(blocks_of(last_page())[0], "35,36 " + Str(printed) + " Sleep");
        EXPECT_EQ(blocks_of(last_page())[1], "35,139 " + Str(printed) + " ");
    }
    setup().footfontBox.choose(10);
    setup().Close();
    EXPECT_EQ(setup().footerfield.TextSize(), 20); // sizes last as long as the program runs
    EXPECT_EQ(setup().headingfield.TextSize(), 0);
}

TEST_F(PageSetupTest, each_style_button_serves_the_selection_of_its_own_field) {
    PageSetupWindow& w = setup();
    w.footerfield.edit("Foot");
    const std::tuple<BevelButton&, EditField&, const char*> cases[] = {
        {w.Boldbutton1, w.headingfield, "35,36 12 S{b}leep"},
        {w.Italicbutton1, w.headingfield, "35,36 12 S{i}leep"},
        {w.underlinebutton1, w.headingfield, "35,36 12 S{u}leep"},
        {w.Boldbutton, w.footerfield, "35,139 12 F{b}oot"},
        {w.Italicbutton, w.footerfield, "35,139 12 F{i}oot"},
        {w.underlinebutton, w.footerfield, "35,139 12 F{u}oot"},
    };
    for (const auto& [button, field, printed] : cases) {
        field.select({.start = 1, .length = 4});
        button.click();
        print();
        EXPECT_EQ(blocks_of(last_page())[&field == &w.footerfield ? 1 : 0], printed);
        button.click();
        EXPECT_FALSE(field.StyledText().is_styled()) << button.name();
    }
}

TEST_F(PageSetupTest, the_systems_fonts_are_listed_without_the_first) {
    EXPECT_EQ(joined(setup().HeadstyleBox.ListCount(), setup().footstyleBox.List(1)), "2|Courier");
    setup().HeadstyleBox.choose(1); // and chosen in vain
    print();
    EXPECT_EQ(std::get<DrawBlock>(last_page().at(last_page().size() - 2)).font.TextFont, "arial");
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
        desktop.accept_printing();
        app.pgsetupwindow->DoneButton.click();
        return desktop.pages.back();
    }
};

TEST_F(ListPrintTest, a_composed_protocol_prints_from_the_composer) {
    consolidator().nameField.edit("night");
    compose("110, 100");
    composer().allbutton.click();
    const Page& page = print();
    EXPECT_EQ(joined(text_at(page, 65, 76), text_at(page, 65, 99)), "Waveform|Single Frequency");
    EXPECT_EQ(text_at(page, 200, 119), "Total frequencies used:  " + composer().totalfreqfield.Text() +
                                           "     Total time:  " + composer().totaltimefield.Text());
    EXPECT_EQ(blocks_of(page), (Blocks{"35,36 12 night", "35,159 12 "}));
}

TEST_F(ListPrintTest, a_frequency_list_prints_as_text) {
    consolidator().nameField.edit("night");
    consolidator().freqdisplayfield.edit("110, 100");
    EXPECT_EQ(print().size(), 3U);
    EXPECT_EQ(blocks_of(desktop.pages.back()), (Blocks{"35,36 12 night", "35,86 12 110, 100", "35,136 12 "}));
}

class QcTest : public ProgramTest {
protected:
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
    EXPECT_TRUE(qc().Visible() && !app.pgsetupwindow.exists());
    EXPECT_EQ(joined(qc().serialfield, qc().assignfield, qc().qcfield, qc().protocolfield, qc().datefield),
              "Zephon Serial#: |Assigned to: |Qc'd by: |untitled|2026-03-09");
    EXPECT_EQ(qc().bankfield.Text(), "Bank_7");
    qc().serialfield.type("4711");
    qc().assignfield.edit("");
    qc().qcfield.type("N.N.");
    desktop.dismiss_print_dialog(); // all the same
    qc().PushButton1.click();
    EXPECT_FALSE(app.qcsetupwindow.exists());
    app.choose_menu("FilePrint");
    EXPECT_EQ(joined(qc().serialfield, qc().assignfield, qc().qcfield),
              "Zephon Serial#: 4711|Assigned to: |Qc'd by: N.N.");
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
    EXPECT_EQ(blocks_of(desktop.pages.at(0)),
              (Blocks{"35,20 12 {9}Zephon Serial#: ", "200,20 12 {9}Assigned to: ", "375,20 12 {9}Qc'd by: ",
                      "450,20 12 {9}yesterday", "35,36 12 {12b}Bank_7", "100,36 12 {10}untitled",
                      "35,139 12 "})); // the footer of a page setup that nobody saw
    EXPECT_EQ(text_at(desktop.pages[0], 200, 99), "Total frequencies used:  3     Total time:  00:09:00");
    EXPECT_EQ(app.ReadZPWindow->bankfield.StyledText().style_at(5), (TextStyle{.size = 12, .bold = true})); // it stays
    EXPECT_FALSE(app.qcsetupwindow.exists() || app.pgsetupwindow.exists());
}

} // namespace
} // namespace tessit::testing
