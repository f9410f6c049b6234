// SPDX-License-Identifier: MIT
// Styles of a text and what becomes of them when the text is edited, alone and in a field.
#include "platform/edit_field.h"
#include "platform/small_application.h"
#include "platform/styled_text.h"

#include <gtest/gtest.h>

namespace tessit::testing {
namespace {

// Bold characters in brackets.
std::string marked(const StyledText& text) {
    std::string result;
    for (const StyledRun& run : text.runs()) {
        result += run.style.bold ? "[" + run.text + "]" : run.text;
    }
    return result;
}

StyledText bold_in(const char* text, int start, int length) {
    StyledText result{std::string(text)};
    result.SetBold(start, length, true);
    return result;
}

TEST(StyledText, paragraphs_are_counted_from_one) {
    const StyledText text("ab\r\rcé");
    EXPECT_EQ(text.Paragraph(1), (TextRange{0, 2}));
    EXPECT_EQ(text.Paragraph(2), (TextRange{3, 0}));
    EXPECT_EQ(text.Paragraph(3), (TextRange{4, 2}));
    EXPECT_THROW(text.Paragraph(4), Fault);
    EXPECT_THROW(text.Paragraph(0), Fault);
    EXPECT_EQ(StyledText().Paragraph(1), (TextRange{0, 0}));
    EXPECT_THROW(StyledText().Paragraph(2), Fault);
}

TEST(StyledText, keeps_styles_within_the_text_and_forgets_plain_ones) {
    StyledText text("é中😀");
    text.SetBold(1, 99, true);
    EXPECT_EQ(marked(text), "é[中😀]");
    text.SetSize(-5, 6, 9);
    ASSERT_EQ(text.runs().size(), 2U);
    EXPECT_EQ(text.runs()[0], (StyledRun{"é", {.size = 9}}));
    text.SetSize(0, 3, 0);
    text.SetBold(0, 3, false);
    EXPECT_EQ(text, StyledText("é中😀"));
}

TEST(StyledText, styles_follow_an_edit) {
    const std::tuple<StyledText, const char*, const char*> cases[] = {
        {bold_in("abcd", 1, 2), "abcXd", "a[bcX]d"}, // from the left neighbour
        {bold_in("abcd", 1, 2), "aXbcd", "aX[bc]d"},
        {bold_in("abcd", 0, 2), "Xabcd", "[Xab]cd"}, // at the beginning from what follows
        {bold_in("abcd", 1, 2), "ad", "ad"},
        {bold_in("abcd", 1, 2), "acd", "a[c]d"},
        {bold_in("abcd", 1, 2), "aXYZd", "aXYZd"},
        {bold_in("aaa", 0, 1), "aaaa", "[a]aaa"},
        {bold_in("é中", 1, 1), "é中文", "é[中文]"},
        {bold_in("abcd", 0, 4), "", ""},
    };
    for (const auto& [before, after, expected] : cases) {
        StyledText text = before;
        text.change_to(after);
        EXPECT_EQ(marked(text), expected) << after;
        EXPECT_EQ(text.Text(), after);
    }
}

class StyledField : public ::testing::Test {
protected:
    ScriptedDesktop desktop;
    SmallApplication app{desktop};
    Panel window{app};
    int changes = 0;
    EditField field{window,
                    {.name = "field"},
                    {.text = "abcd", .multiline = true, .styled = true, .on_text_change = [this] { ++changes; }}};
};

TEST_F(StyledField, toggles_what_is_selected) {
    field.select({.start = 1, .length = 2});
    field.ToggleSelectionBold();
    EXPECT_EQ(marked(field.StyledText()), "a[bc]d");
    field.select({.start = 0, .length = 3}); // not all of it is bold
    field.ToggleSelectionBold();
    EXPECT_EQ(joined(marked(field.StyledText()), field.SelLength()), "[abc]d|3");
    field.ToggleSelectionItalic();
    field.ToggleSelectionUnderline();
    EXPECT_EQ(field.StyledText().style_at(0), (TextStyle{0, true, true, true}));
    field.ToggleSelectionBold();
    EXPECT_EQ(marked(field.StyledText()), "abcd");
    EXPECT_EQ(changes, 0); // the text is the same
}

TEST_F(StyledField, toggles_what_is_typed_next_where_nothing_is_selected) {
    field.select({.start = 4});
    field.ToggleSelectionBold();
    field.type("ef");
    EXPECT_EQ(marked(field.StyledText()), "abcd[ef]");
    field.select({.start = 6});
    field.ToggleSelectionBold();
    field.type("g");
    EXPECT_EQ(marked(field.StyledText()), "abcd[ef]g");
    field.ToggleSelectionBold();
    field.select({.start = 0}); // elsewhere it counts no more
    field.type("h");
    EXPECT_EQ(marked(field.StyledText()), "abcd[ef]gh");
}

TEST_F(StyledField, takes_a_text_from_the_program_in_the_plain_style) {
    field.SetStyledText(bold_in("abcd", 0, 4));
    field.SetText("abcd");
    EXPECT_EQ(joined(marked(field.StyledText()), changes), "abcd|0");
    field.SetStyledText(bold_in("abcd", 0, 2));
    field.select({.start = 2, .length = 2});
    field.SetSelText("x\ny"); // put in as if it were typed
    EXPECT_EQ(joined(marked(field.StyledText()), field.SelStart(), changes), "[abx\ry]|5|1");
}

} // namespace
} // namespace tessit::testing
