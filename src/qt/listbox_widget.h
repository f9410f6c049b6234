// SPDX-License-Identifier: MIT
// A Listbox as a table view: one selected row, headings, columns that share the width. A double-click, or Return,
// Enter or F2 on the selected row, is the model's double-click. A click on a cell, or the space bar on the current one,
// is the model's click; Return and Enter too where the table has no double-click. A right click, the menu key or
// Shift+F10 on a row shows its commands; a right click selects the row first, as the arrow keys would.
#pragma once

#include "platform/listbox.h"
#include "qt/cell_painting.h"
#include "qt/control_widget.h"
#include "qt/listbox_model.h"

#include <QTableView>
#include <vector>

namespace tessit::qt {

class ListboxWidget : public ControlWidget {
public:
    ListboxWidget(Listbox& listbox, QWidget& parent);
    void detach() override;
    QSize needed_size() const override { return {}; }
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Changes : ListboxView { // what the Listbox tells of single changes
        explicit Changes(ListboxWidget& owner) : table(owner) {}
        void refresh() override { table.refresh(); }
        void repaint_now() override { table.repaint_now(); }
        void take_focus() override { table.take_focus(); }
        void row_inserted(int row) override;
        void row_removed(int row) override;
        void cell_changed(int row, int column) override;
        void selection_changed() override { table.show_selection(); }
        void scrolled() override { table.show_scroll_position(); }
        ListboxWidget& table;
    };

    void show_values() override;
    void show_selection();
    void show_scroll_position();
    void share_width();
    void measure(int row, int column);
    void measure_headings();
    void connect_user_input();
    bool is_double_click_key(int key) const;
    bool is_cell_click_key(int key) const;
    void click_cell(const QModelIndex& cell);
    QModelIndex asked_about(const QObject* watched, const QEvent& event) const;
    void show_row_commands(const QModelIndex& cell, const QEvent& event);

    Listbox& listbox_;
    Window* window_; // null once the Listbox is going
    QTableView& view_;
    ListboxModel model_;
    CellPainting* painting_ = nullptr; // belongs to the view
    Changes changes_{*this};
    std::vector<int> needed_;          // width of each column's heading and widest cell
    std::vector<std::size_t> longest_; // text that was measured, in bytes
    std::vector<bool> dragged_;        // by the user: keeps its width
    bool sharing_ = false;
};

} // namespace tessit::qt
