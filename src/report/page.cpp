// SPDX-License-Identifier: MIT
#include "report/page.h"

#include "platform/text.h"

namespace tessit {

namespace {

constexpr int left_margin = 35;
constexpr int top = 36;
constexpr int table_below_top = 40;
constexpr int gap_below_headings = 3;
constexpr int row_pitch = 10;
constexpr int right_inset = 15;
constexpr int totals_x = 200;
constexpr int gap_above_totals = 10;
constexpr int gap_above_footer = 50;
constexpr int block_width = 540;
constexpr int block_height = 720;
constexpr int table_size = 9;
constexpr int usual_size = 12;
constexpr const char* bold_column = "Time each";

DrawBlock block(const BlockText& text, int x, int y) {
    return {.text = text.text,
            .x = x,
            .y = y,
            .width = block_width,
            .height = block_height,
            .font = {.TextSize = text.size > 0 ? text.size : usual_size}};
}

// Draws a table from top to bottom. Place and font stay as each step leaves them.
class TablePen {
public:
    TablePen(const ReportTable& table, const StringWidth& width_of) : table_(table), width_of_(width_of) {}

    void draw_headings() {
        for (const ReportColumn& column : table_.columns) {
            draw(column.heading, x_);
            x_ += column.width;
        }
        y_ += gap_below_headings; // x stays: the first row is drawn to the right of the table
    }

    void draw_row(const std::vector<std::string>& cells) {
        for (std::size_t at = 0; at < table_.columns.size(); ++at) {
            draw_cell(table_.columns[at], cells[at]);
            x_ += table_.columns[at].width;
        }
        x_ = left_margin;
        y_ += row_pitch;
    }

    // In bold where the last cell was: the font is left as it is.
    void draw_totals() {
        page.push_back(DrawString{.text = "Total frequencies used:  " + table_.total_frequencies +
                                          "     Total time:  " + table_.total_time,
                                  .x = totals_x,
                                  .y = y_ + gap_above_totals,
                                  .font = font_});
    }

    void draw_footer(const BlockText& footer) { page.push_back(block(footer, x_, y_ + gap_above_footer)); }

    Page page;

private:
    void draw(const std::string& text, int x) {
        page.push_back(DrawString{.text = text, .x = x, .y = y_, .font = font_});
    }

    void draw_cell(const ReportColumn& column, const std::string& cell) {
        font_.Bold = same_text(column.heading, bold_column);
        const int room = column.width - truncate(width_of_(cell, font_)); // less than nothing for a long text
        if (same_text(column.alignment, "Right")) {
            draw(cell, x_ + room - right_inset);
        } else if (same_text(column.alignment, "Left")) {
            draw(cell, x_);
        } else if (same_text(column.alignment, "Center")) {
            draw(cell, truncate(x_ + room / 2.0));
        }
    }

    const ReportTable& table_;
    const StringWidth& width_of_;
    int x_ = left_margin;
    int y_ = top + table_below_top;
    PageFont font_{.TextSize = table_size};
};

} // namespace

DrawBlock heading_block(const BlockText& heading) {
    return block(heading, left_margin, top);
}

std::vector<DrawBlock> qc_blocks(const QcLine& line) {
    constexpr int upper_y = 20;
    return {block(line.serial, left_margin, upper_y), block(line.assigned, 200, upper_y),
            block(line.checked, 375, upper_y),        block(line.date, 450, upper_y),
            block(line.bank, left_margin, top),       block(line.protocol, 100, top)};
}

Page table_page(const ReportTable& table, const std::vector<DrawBlock>& above, const BlockText& footer,
                const StringWidth& width_of) {
    TablePen pen(table, width_of);
    pen.draw_headings();
    for (const auto& row : table.rows) {
        pen.draw_row(row);
    }
    pen.draw_totals();
    pen.page.insert(pen.page.end(), above.begin(), above.end());
    pen.draw_footer(footer);
    return pen.page;
}

Page list_page(const BlockText& heading, const BlockText& list, const BlockText& footer) {
    constexpr int list_y = top + gap_above_footer;
    constexpr int footer_y = list_y + gap_above_footer; // a longer list runs into the footer
    return {heading_block(heading), block({.text = list.text, .size = usual_size}, left_margin, list_y),
            block(footer, left_margin, footer_y)};
}

} // namespace tessit
