// SPDX-License-Identifier: MIT
// The printed report: one page, made of texts alone. There is no page break; what runs past the foot of the paper is
// lost. Places are points from the paper's upper left corner.
#pragma once

#include "platform/graphics.h"

#include <functional>
#include <string>
#include <vector>

namespace tessit {

struct ReportColumn {
    std::string heading;
    int width = 0;
    std::string alignment; // "Left", "Center" or "Right"; cells of any other are not drawn
};

struct ReportTable {
    std::vector<ReportColumn> columns;
    std::vector<std::vector<std::string>> rows; // row 0 first, which holds no level
    std::string total_frequencies;
    std::string total_time;
};

struct BlockText {
    StyledText text;
    int size = 0; // of characters whose style has none; 0 for the usual one
};

// What the line above a table of device data says.
struct QcLine {
    BlockText serial, assigned, checked, date; // the upper line
    BlockText bank, protocol;                  // the heading
};

using StringWidth = std::function<double(const std::string& text, const PageFont& font)>;

DrawBlock heading_block(const BlockText& heading);
std::vector<DrawBlock> qc_blocks(const QcLine& line);

// `above` is drawn when the table stands already.
Page table_page(const ReportTable& table, const std::vector<DrawBlock>& above, const BlockText& footer,
                const StringWidth& width_of);
Page list_page(const BlockText& heading, const BlockText& list, const BlockText& footer);

} // namespace tessit
