// SPDX-License-Identifier: MIT
// The printed page: where each text stands, in which font.
#include "report/page.h"

#include "level/level_table.h"
#include "platform/text.h"

#include <gtest/gtest.h>

namespace tessit::testing {
namespace {

double five_a_character(const std::string& text, const PageFont&) {
    return 5.0 * Len(text);
}

ReportTable full_table(int levels) {
    constexpr int widths[] = {30, 90, 40, 30, 40, 50, 50, 25, 25, 55, 50, 50};
    const Array<std::string> headings = Split(level_table_headings, "\t");
    ReportTable table{.columns = {}, .rows = {}, .total_frequencies = "50", .total_time = "02:30:00"};
    for (int i = 0; i < column::count; ++i) {
        table.columns.push_back({.heading = headings[i],
                                 .width = widths[i],
                                 .alignment = report_column_alignments[static_cast<std::size_t>(i)]});
    }
    table.rows.emplace_back(12, "");
    for (int level = 1; level <= levels; ++level) {
        table.rows.push_back({Str(level), "Single Frequency", "007.830", "", "1", "3:00", "00:03:00", "ON", "1",
                              "Square", "70%", "Positive"});
    }
    return table;
}

BlockText plain(const char* text, int size = 0) {
    return {.text = StyledText(text), .size = size};
}

Page page_of(const ReportTable& table) {
    return table_page(table, {heading_block(plain("Name"))}, plain("Foot"), five_a_character);
}

DrawString string_at(const Page& page, std::size_t at) {
    return std::get<DrawString>(page.at(at));
}

DrawBlock block(const char* text, int x, int y, int size = 12) {
    return {.text = StyledText(text), .x = x, .y = y, .width = 540, .height = 720, .font = {"arial", size, false}};
}

std::size_t cell(int row, int column) {
    return 12 * static_cast<std::size_t>(row + 1) + static_cast<std::size_t>(column);
}

TEST(TablePage, stands_where_it_is_told) {
    const Page page = page_of(full_table(50));
    const PageFont plain_9{"arial", 9, false};
    const PageFont bold_9{"arial", 9, true};
    ASSERT_EQ(page.size(), 12U * 52 + 3);

    const int heading_x[] = {35, 65, 155, 195, 225, 265, 315, 365, 390, 415, 470, 520}; // all flush left
    for (std::size_t i = 0; i < 12; ++i) {
        EXPECT_EQ(string_at(page, i).x, heading_x[i]);
        EXPECT_EQ(string_at(page, i).y, 76);
        EXPECT_EQ(string_at(page, i).font, plain_9);
    }
    const DrawString first_level[] = {
        {"1", 47, 89, plain_9}, // centred: 35 + (30 - 5) / 2, cut
        {"Single Frequency", 65, 89, plain_9},
        {"007.830", 145, 89, plain_9}, // right: 155 + (40 - 35) - 15
        {"", 210, 89, plain_9},
        {"1", 242, 89, plain_9},
        {"3:00", 280, 89, bold_9},
        {"00:03:00", 310, 89, plain_9}, // wider than the column leaves room for
        {"ON", 372, 89, plain_9},
        {"1", 400, 89, plain_9},
        {"Square", 415, 89, plain_9},
        {"70%", 487, 89, plain_9},
        {"Positive", 520, 89, plain_9},
    };
    for (int i = 0; i < 12; ++i) {
        EXPECT_EQ(string_at(page, cell(1, i)), first_level[i]) << i;
    }
    for (const int level : {2, 25, 50}) {
        EXPECT_EQ(string_at(page, cell(level, 1)), (DrawString{"Single Frequency", 65, 79 + 10 * level, plain_9}));
    }
    EXPECT_EQ(string_at(page, cell(51, 0)),
              (DrawString{"Total frequencies used:  50     Total time:  02:30:00", 200, 599, plain_9}));
    EXPECT_EQ(std::get<DrawBlock>(page[cell(51, 1)]), block("Name", 35, 36)); // over the table, as it were
    EXPECT_EQ(std::get<DrawBlock>(page[cell(51, 2)]), block("Foot", 35, 639));
}

TEST(TablePage, without_levels_has_the_text_of_row_0_beside_the_table) {
    ReportTable table = full_table(0);
    table.rows[0][0] = "x";
    table.rows[0][1] = "y";
    const Page page = page_of(table);
    EXPECT_EQ(string_at(page, cell(0, 0)).x, 582); // 570 + (30 - 5) / 2
    EXPECT_EQ(string_at(page, cell(0, 1)).x, 600);
    EXPECT_EQ(string_at(page, cell(0, 1)).y, 79);
    EXPECT_EQ(string_at(page, cell(1, 0)).y, 99);
    EXPECT_EQ(std::get<DrawBlock>(page.back()), block("Foot", 35, 139));
}

TEST(TablePage, aligns_long_texts_to_the_left_and_draws_no_cell_of_an_unknown_alignment) {
    const std::tuple<const char*, const char*, std::vector<int>> cases[] = {
        {"Right", "abcd", {35 + 20 - 15}},
        {"right", "0123456789", {35 - 10 - 15}},
        {"Center", "abc", {47}},         // 35 + 12.5
        {"Center", "0123456789x", {27}}, // 35 - 7.5
        {"Center", "0123456789-123456789", {5}},
        {"Left", "0123456789", {35}},
        {"", "abc", {}},
    };
    for (const auto& [alignment, text, places] : cases) {
        ReportTable table{
            .columns = {{"a", 40, alignment}}, .rows = {{""}, {text}}, .total_frequencies = "", .total_time = ""};
        std::vector<int> x;
        for (const auto& operation : page_of(table)) {
            const auto* string = std::get_if<DrawString>(&operation);
            if (string != nullptr && string->text == text) {
                x.push_back(string->x);
            }
        }
        EXPECT_EQ(x, places) << alignment << " " << text;
    }
}

TEST(TablePage, is_bold_in_the_time_column_and_in_totals_behind_it) {
    ReportTable table{.columns = {{"a", 40, "Left"}, {"TIME EACH", 40, "Left"}},
                      .rows = {{"", ""}},
                      .total_frequencies = "1",
                      .total_time = "2"};
    const Page page = page_of(table);
    const bool bold[] = {false, false, false, true, true}; // two headings, two cells, totals
    for (std::size_t at = 0; at < std::size(bold); ++at) {
        EXPECT_EQ(string_at(page, at).font.Bold, bold[at]) << at;
    }
}

TEST(TablePage, measures_cells_in_the_font_in_which_they_are_drawn) {
    const auto wide_in_bold = [](const std::string&, const PageFont& font) { return font.Bold ? 20.9 : 10.0; };
    ReportTable table{
        .columns = {{"Time each", 50, "Right"}}, .rows = {{""}, {"3:00"}}, .total_frequencies = "", .total_time = ""};
    EXPECT_EQ(string_at(table_page(table, {}, {}, wide_in_bold), 2).x, 35 + (50 - 20) - 15);
}

TEST(QcLine, has_two_lines_of_blocks_above_the_table) {
    const std::vector<DrawBlock> blocks = qc_blocks(
        {plain("serial"), plain("assigned"), plain("checked"), plain("date"), plain("bank", 18), plain("protocol")});
    const std::vector<DrawBlock> expected = {block("serial", 35, 20),   block("assigned", 200, 20),
                                             block("checked", 375, 20), block("date", 450, 20),
                                             block("bank", 35, 36, 18), block("protocol", 100, 36)};
    EXPECT_EQ(blocks, expected);
}

TEST(ListPage, draws_the_footer_over_a_list_that_is_long) {
    const Page expected = {block("Name", 35, 36, 20), block("7.83, 10", 35, 86), block("Foot", 35, 136)};
    EXPECT_EQ(list_page(plain("Name", 20), plain("7.83, 10", 18), plain("Foot")), expected); // the list's size is fixed
}

} // namespace
} // namespace tessit::testing
