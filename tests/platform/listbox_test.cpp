// SPDX-License-Identifier: MIT
#include "platform/listbox.h"

#include "platform/small_application.h"

#include <gtest/gtest.h>

namespace tessit::testing {
namespace {

class Table : public ::testing::Test {
protected:
    void SetUp() override {
        for (const char* text : {"a", "b", "c", "d"}) {
            table.AddRow(text);
        }
    }
    std::string rows() const {
        std::string text;
        for (int row = 0; row < table.ListCount(); ++row) {
            text += table.Cell(row, 0);
        }
        return text;
    }

    ScriptedDesktop desktop;
    SmallApplication app{desktop};
    Panel window{app};
    int changes = 0;
    int double_clicks = 0;
    Listbox table{window,
                  {.name = "table", .place = {33, 287, 825, 339}},
                  {.columns = 3, .on_double_click = [this] { ++double_clicks; }, .on_change = [this] { ++changes; }}};
};

TEST_F(Table, last_index_is_the_row_last_added) {
    EXPECT_EQ(table.LastIndex(), 3);
    table.InsertRow(1, "x");
    EXPECT_EQ(joined(table.LastIndex(), rows()), "1|axbcd");
    table.RemoveRow(0);
    EXPECT_EQ(table.LastIndex(), 3);
    table.InsertRow(table.ListCount(), "y"); // behind the last
    EXPECT_EQ(joined(table.LastIndex(), rows()), "4|xbcdy");
    while (table.ListCount() > 0) {
        table.RemoveRow(0);
    }
    EXPECT_EQ(table.LastIndex(), -1);
}

TEST_F(Table, the_selection_follows_its_row_and_ends_with_a_removal) {
    table.SetListIndex(2);
    table.SetListIndex(2);
    table.SetListIndex(4); // not there
    table.SetListIndex(-2);
    EXPECT_EQ(changes, 1);
    table.InsertRow(3, "y");
    EXPECT_EQ(table.ListIndex(), 2);
    table.InsertRow(2, "x");
    EXPECT_EQ(table.Cell(table.ListIndex(), 0), "c");
    table.RemoveRow(0);
    EXPECT_EQ(table.ListIndex(), -1);
    table.choose(0);
    EXPECT_EQ(table.ListIndex(), 0);
    table.SetListIndex(-1);
    EXPECT_EQ(changes, 3);
}

TEST_F(Table, a_place_outside_is_a_fault_and_changes_nothing) {
    EXPECT_THROW(table.Cell(4, 0), Fault);
    EXPECT_THROW(table.Cell(-1, 0), Fault);
    EXPECT_THROW(table.Cell(0, 3), Fault);
    EXPECT_THROW(table.SetCell(4, 0, "x"), Fault);
    EXPECT_THROW(table.SetCell(0, -1, "x"), Fault);
    EXPECT_THROW(table.InsertRow(5, "x"), Fault);
    EXPECT_THROW(table.InsertRow(-1, "x"), Fault);
    EXPECT_THROW(table.RemoveRow(4), Fault);
    EXPECT_THROW(table.RemoveRow(-1), Fault);
    EXPECT_THROW(table.Heading(3), Fault);
    EXPECT_THROW(table.SetColumnAlignment(3, Align::right), Fault);
    EXPECT_EQ(joined(rows(), table.LastIndex()), "abcd|3");
}

TEST_F(Table, a_row_is_found_by_y_alone) {
    const std::tuple<int, int, int> cases[] = {
        {0, -1, -1},  {0, 0, -1}, // the heading
        {0, 19, -1},  {0, 20, 0}, {0, 39, 0}, {0, 40, 1},  {0, 99, 3},
        {0, 100, -1}, {2, 20, 2}, {2, 59, 3}, {2, 60, -1}, {9, 20, 3}, // no further than the last row
    };
    for (const auto& [scrolled_to, y, row] : cases) {
        table.SetScrollPosition(scrolled_to);
        EXPECT_EQ(table.RowFromXY(-1000, y), row) << scrolled_to << " " << y;
    }
    Listbox bare(window, {.name = "bare"}, {.has_heading = false});
    EXPECT_EQ(bare.RowFromXY(0, 0), -1);
    bare.AddRow("a");
    EXPECT_EQ(bare.RowFromXY(0, 0), 0);
}

TEST_F(Table, a_double_click_puts_the_mouse_on_its_row_wherever_the_table_is_scrolled) {
    window.move_to(100, 60);
    for (const int scrolled_to : {0, 1, 3}) {
        for (int row = 0; row < table.ListCount(); ++row) {
            table.SetScrollPosition(scrolled_to);
            table.double_click(row);
            EXPECT_EQ(table.RowFromXY(app.System.MouseX() - table.Left() - window.Left(),
                                      app.System.MouseY() - table.Top() - window.Top()),
                      row);
        }
    }
    EXPECT_EQ(double_clicks, 12);
}

} // namespace
} // namespace tessit::testing
