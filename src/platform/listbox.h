// SPDX-License-Identifier: MIT
// A table of text cells with one selected row or none. Rows are counted from 0; a cell outside the table is the
// runtime's out-of-bounds fault.
#pragma once

#include "platform/control.h"

#include <string>
#include <string_view>
#include <vector>

namespace tessit {

// Where a paint handler draws: one cell, its corner at 0, 0.
class CellGraphics {
public:
    CellGraphics(int width, int height) : Width(width), Height(height) {}
    virtual ~CellGraphics() = default;

    Color ForeColor{0x000000};
    const int Width; // in points
    const int Height;
    virtual void FillRect(int x, int y, int width, int height) = 0; // in ForeColor
};

struct ListboxDesign {
    int columns = 1;
    bool has_heading = true;
    std::function<void()> on_double_click{};
    std::function<void()> on_change{};
    std::function<bool(int row, int column)> on_cell_click{}; // before the row is selected; true: it is not
    std::function<void(CellGraphics& g, int row, int column)> on_cell_background_paint{};
    // ForeColor is the text's colour; x and y are where it begins. True: the handler drew the text itself.
    std::function<bool(CellGraphics& g, int row, int column, int x, int y)> on_cell_text_paint{};
    std::vector<std::string_view>
        row_commands{}; // entries of the menu bar that the rows offer too, separators included
};

// A front end that shows single changes of a table; `refresh` reads everything anew.
class ListboxView : public ControlView {
public:
    virtual void row_inserted(int row) = 0;
    virtual void row_removed(int row) = 0;
    virtual void cell_changed(int row, int column) = 0;
    virtual void selection_changed() = 0;
    virtual void scrolled() = 0;
};

class Listbox : public Control {
public:
    static constexpr int row_height = 20; // in points, as the heading's; only RowFromXY and mouse places use it

    Listbox(Window& window, const ControlDesign& design, ListboxDesign own = {});

    int ColumnCount() const { return own_.columns; }
    int ListCount() const { return static_cast<int>(rows_.size()); }
    // The row last added (after an insertion at r, r); after a removal ListCount - 1.
    int LastIndex() const { return last_index_; }

    void AddRow(std::string_view text);             // the text goes to column 0
    void InsertRow(int row, std::string_view text); // before `row`
    void RemoveRow(int row);                        // no row is selected afterwards
    const std::string& Cell(int row, int column) const;
    void SetCell(int row, int column, std::string_view text);

    int ListIndex() const { return list_index_; }           // the selected row, -1 for none
    void SetListIndex(int row);                             // a row that is not there leaves it as it was
    int ScrollPosition() const { return scroll_position_; } // the topmost row in sight
    void SetScrollPosition(int row);                        // kept within the rows

    const std::string& Heading(int column) const;
    void SetHeadings(std::string_view tab_separated); // all at once
    const std::string& ColumnWidths() const { return column_widths_; }
    void SetColumnWidths(std::string_view widths); // "40, ,50": points; empty places share what is left
    Align ColumnAlignment(int column) const;
    void SetColumnAlignment(int column, Align align);

    // The row at a point relative to the table's corner, -1 where no row is. Looks at y alone.
    int RowFromXY(int x, int y) const;

    const ListboxDesign& own() const { return own_; }
    void attach_table(ListboxView* view);

    // User input. A double-click puts the mouse on the row first; where no row is it does nothing.
    void choose(int row);
    void double_click(int row);
    void scroll_to(int row);              // the front end tells what the user scrolled to
    void click_cell(int row, int column); // CellClick, then the row is chosen; where no cell is it does nothing

    // Asked by the front end while it paints a cell. Never throws: the first fault is reported soon, and of a cell
    // whose handler failed the front end draws what it would draw without one.
    void paint_cell_background(CellGraphics& g, int row, int column);
    bool paint_cell_text(CellGraphics& g, int row, int column, int x, int y);

protected:
    void archive_values(Archive& archive) override;

private:
    void paint(const char* event, const std::function<void()>& handler);
    int heading_height() const { return own_.has_heading ? row_height : 0; }

    const ListboxDesign own_;
    std::vector<std::vector<std::string>> rows_;
    std::vector<std::string> headings_;
    std::vector<Align> alignments_;
    std::string column_widths_;
    int list_index_ = -1;
    int last_index_ = -1;
    int scroll_position_ = 0;
    bool paint_fault_reported_ = false;
    ListboxView* table_view_ = nullptr;
};

} // namespace tessit
