// SPDX-License-Identifier: MIT
#include "platform/listbox.h"

#include "platform/application.h"
#include "platform/archive.h"
#include "platform/array.h"
#include "platform/text.h"
#include "platform/window.h"

#include <algorithm>

namespace tessit {

Listbox::Listbox(Window& window, const ControlDesign& design, ListboxDesign own)
    : Control(window, design), own_(std::move(own)), headings_(static_cast<std::size_t>(own_.columns)),
      alignments_(static_cast<std::size_t>(own_.columns), Align::standard) {}

void Listbox::AddRow(std::string_view text) {
    InsertRow(ListCount(), text);
}

void Listbox::InsertRow(int row, std::string_view text) {
    const auto at = static_cast<std::ptrdiff_t>(checked_index(row, rows_.size() + 1));
    std::vector<std::string> cells(static_cast<std::size_t>(own_.columns));
    cells.front() = text;
    rows_.insert(rows_.begin() + at, std::move(cells));
    last_index_ = row;
    if (table_view_ != nullptr) {
        table_view_->row_inserted(row);
    }
    if (list_index_ >= row) {
        ++list_index_;
        if (table_view_ != nullptr) {
            table_view_->selection_changed();
        }
    }
}

void Listbox::RemoveRow(int row) {
    rows_.erase(rows_.begin() + static_cast<std::ptrdiff_t>(checked_index(row, rows_.size())));
    last_index_ = ListCount() - 1;
    list_index_ = -1;
    if (table_view_ != nullptr) {
        table_view_->row_removed(row);
        table_view_->selection_changed();
    }
}

const std::string& Listbox::Cell(int row, int column) const {
    const auto& cells = rows_[checked_index(row, rows_.size())];
    return cells[checked_index(column, cells.size())];
}

void Listbox::SetCell(int row, int column, std::string_view text) {
    auto& cells = rows_[checked_index(row, rows_.size())];
    auto& cell = cells[checked_index(column, cells.size())];
    if (cell != text) {
        cell = text;
        if (table_view_ != nullptr) {
            table_view_->cell_changed(row, column);
        }
    }
}

void Listbox::SetListIndex(int row) {
    if (row == list_index_ || row < -1 || row >= ListCount()) {
        return;
    }
    list_index_ = row;
    if (table_view_ != nullptr) {
        table_view_->selection_changed();
    }
    raise("Change", own_.on_change);
}

void Listbox::SetScrollPosition(int row) {
    scroll_to(row);
    if (table_view_ != nullptr) {
        table_view_->scrolled();
    }
}

void Listbox::scroll_to(int row) {
    scroll_position_ = std::clamp(row, 0, std::max(0, ListCount() - 1));
}

const std::string& Listbox::Heading(int column) const {
    return headings_[checked_index(column, headings_.size())];
}

void Listbox::SetHeadings(std::string_view tab_separated) {
    const Array<std::string> texts = Split(tab_separated, "\t");
    for (int column = 0; column < std::min(texts.count(), ColumnCount()); ++column) {
        headings_[static_cast<std::size_t>(column)] = texts[column];
    }
    show_change();
}

void Listbox::SetColumnWidths(std::string_view widths) {
    column_widths_ = widths;
    show_change();
}

Align Listbox::ColumnAlignment(int column) const {
    return alignments_[checked_index(column, alignments_.size())];
}

void Listbox::SetColumnAlignment(int column, Align align) {
    alignments_[checked_index(column, alignments_.size())] = align;
    show_change();
}

void Listbox::archive_values(Archive& archive) {
    archive.text("widths", column_widths_);
    for (std::size_t column = 0; column < headings_.size(); ++column) {
        auto align = static_cast<std::int32_t>(alignments_[column]);
        archive.text("heading", headings_[column]);
        archive.number("alignment", align);
        check_put_back(align, 0, static_cast<std::int32_t>(Align::right) + 1);
        alignments_[column] = static_cast<Align>(align);
    }
    std::int32_t count = ListCount();
    archive.number("rows", count);
    for (int row = 0; row < count; ++row) {
        if (row == ListCount()) { // grows with what is read, whatever the number promises
            AddRow("");
        }
        for (int column = 0; column < ColumnCount(); ++column) {
            std::string text = Cell(row, column);
            archive.text("cell", text);
            SetCell(row, column, text);
        }
    }
    while (ListCount() > std::max(count, 0)) {
        RemoveRow(ListCount() - 1);
    }
    archive.number("last", last_index_);
    archive.number("selected", list_index_);
    archive.number("topmost", scroll_position_);
    check_put_back(last_index_, -1, ListCount());
    check_put_back(list_index_, -1, ListCount());
    check_put_back(scroll_position_, 0, std::max(1, ListCount()));
}

int Listbox::RowFromXY(int, int y) const {
    const int below_heading = y - heading_height();
    if (below_heading < 0) {
        return -1;
    }
    const int row = below_heading / row_height + scroll_position_;
    return row < ListCount() ? row : -1;
}

void Listbox::attach_table(ListboxView* view) {
    attach(view);
    table_view_ = view;
}

void Listbox::choose(int row) {
    if (usable()) {
        from_user("Change", [&] { SetListIndex(row); });
    }
}

void Listbox::click_cell(int row, int column) {
    if (!usable() || row < 0 || row >= ListCount() || column < 0 || column >= ColumnCount()) {
        return;
    }
    bool used_up = false;
    if (own_.on_cell_click) {
        from_user("CellClick", [&] { used_up = own_.on_cell_click(row, column); });
    }
    if (!used_up) {
        choose(row);
    }
}

void Listbox::paint(const char* event, const std::function<void()>& handler) {
    try {
        raise(event, handler);
    } catch (const Fault& fault) {
        if (!paint_fault_reported_) {
            paint_fault_reported_ = true; // a table is painted again and again
            window().application().report_soon(fault);
        }
    }
}

void Listbox::paint_cell_background(CellGraphics& g, int row, int column) {
    if (own_.on_cell_background_paint) {
        paint("CellBackgroundPaint", [&] { own_.on_cell_background_paint(g, row, column); });
    }
}

bool Listbox::paint_cell_text(CellGraphics& g, int row, int column, int x, int y) {
    bool drawn = false;
    if (own_.on_cell_text_paint) {
        paint("CellTextPaint", [&] { drawn = own_.on_cell_text_paint(g, row, column, x, y); });
    }
    return drawn;
}

void Listbox::double_click(int row) {
    if (!usable() || row < 0 || row >= ListCount() || !own_.on_double_click) {
        return;
    }
    scroll_to(std::min(row, scroll_position_));
    const int y = heading_height() + (row - scroll_position_) * row_height + row_height / 2;
    window().application().set_mouse(window().Left() + Left() + row_height / 2, window().Top() + Top() + y);
    from_user("DoubleClick", own_.on_double_click);
}

} // namespace tessit
