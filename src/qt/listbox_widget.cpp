// SPDX-License-Identifier: MIT
#include "qt/listbox_widget.h"

#include "qt/column_widths.h"
#include "qt/focus_frame.h"
#include "qt/look.h"
#include "qt/menu_bar.h"
#include "qt/widget_text.h"

#include <QContextMenuEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <QTimer>
#include <algorithm>

namespace tessit::qt {

namespace {

constexpr int cell_margins = 10;
constexpr int widest_need = 260; // a longer text is shown with dots at its end

} // namespace

ListboxWidget::ListboxWidget(Listbox& listbox, QWidget& parent)
    : ControlWidget(listbox, *new FocusFrame<QTableView>(&parent)), listbox_(listbox), window_(&listbox.window()),
      view_(static_cast<QTableView&>(widget())), model_(listbox),
      needed_(static_cast<std::size_t>(listbox.ColumnCount())), longest_(needed_.size()), dragged_(needed_.size()) {
    listbox.attach_table(&changes_);
    view_.setModel(&model_);
    view_.setSelectionBehavior(QAbstractItemView::SelectRows);
    view_.setSelectionMode(QAbstractItemView::SingleSelection);
    view_.setEditTriggers(QAbstractItemView::NoEditTriggers);
    view_.setTabKeyNavigation(false);
    view_.setWordWrap(false);
    view_.setCornerButtonEnabled(false);
    view_.setVerticalScrollMode(QAbstractItemView::ScrollPerItem);
    view_.setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    view_.verticalHeader()->hide();
    view_.verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    view_.verticalHeader()->setDefaultSectionSize(
        std::max(scaled(Listbox::row_height, text_scale(parent)), view_.fontMetrics().height() + 4));
    view_.horizontalHeader()->setVisible(listbox.own().has_heading);
    view_.horizontalHeader()->setHighlightSections(false);
    view_.horizontalHeader()->setMinimumSectionSize(scaled(20, text_scale(parent)));
    view_.installEventFilter(this);
    view_.viewport()->installEventFilter(this);
    if (listbox.own().on_cell_background_paint || listbox.own().on_cell_text_paint) {
        painting_ = new CellPainting(listbox, &view_);
        view_.setItemDelegate(painting_);
    }
    connect_user_input();
    for (int row = 0; row < listbox.ListCount(); ++row) {
        for (int column = 0; column < listbox.ColumnCount(); ++column) {
            measure(row, column);
        }
    }
}

void ListboxWidget::connect_user_input() {
    connect(view_.selectionModel(), &QItemSelectionModel::selectionChanged, this, [this] {
        const QModelIndexList rows = view_.selectionModel()->selectedRows();
        const int row = rows.isEmpty() ? -1 : rows.front().row();
        tell([&] { listbox_.choose(row); });
    });
    connect(&view_, &QAbstractItemView::doubleClicked, this,
            [this](const QModelIndex& cell) { tell([&] { listbox_.double_click(cell.row()); }); });
    connect(view_.verticalScrollBar(), &QScrollBar::valueChanged, this,
            [this](int row) { tell([&] { listbox_.scroll_to(row); }); });
    connect(view_.horizontalHeader(), &QHeaderView::sectionResized, this, [this](int column, int, int) {
        if (!sharing_) {
            dragged_[static_cast<std::size_t>(column)] = true;
        }
    });
}

void ListboxWidget::detach() {
    if (attached()) {
        listbox_.attach_table(nullptr);
        window_ = nullptr;
        quietly([this] { model_.detach(); });
        if (painting_ != nullptr) {
            painting_->detach();
        }
    }
    ControlWidget::detach();
}

bool ListboxWidget::is_double_click_key(int key) const {
    return listbox_.own().on_double_click && (key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_F2) &&
           view_.currentIndex().isValid() && view_.selectionModel()->isRowSelected(view_.currentIndex().row());
}

bool ListboxWidget::is_cell_click_key(int key) const {
    return listbox_.own().on_cell_click && view_.currentIndex().isValid() &&
           (key == Qt::Key_Space || key == Qt::Key_Return || key == Qt::Key_Enter);
}

void ListboxWidget::click_cell(const QModelIndex& cell) {
    if (cell.isValid() && listbox_.own().on_cell_click) {
        tell([&] { listbox_.click_cell(cell.row(), cell.column()); });
    }
}

// The row that a right click or the keyboard's menu key asks about; none beside the rows.
QModelIndex ListboxWidget::asked_about(const QObject* watched, const QEvent& event) const {
    if (listbox_.own().row_commands.empty()) {
        return {};
    }
    if (event.type() == QEvent::ContextMenu && watched == view_.viewport()) {
        return view_.indexAt(static_cast<const QContextMenuEvent&>(event).pos());
    }
    const auto is_shift_f10 = [&] {
        const auto& key = static_cast<const QKeyEvent&>(event);
        return key.key() == Qt::Key_F10 && key.modifiers() == Qt::ShiftModifier;
    };
    const bool by_key = watched == &view_ &&
                        (event.type() == QEvent::ContextMenu || (event.type() == QEvent::KeyPress && is_shift_f10()));
    return by_key ? view_.currentIndex() : QModelIndex();
}

void ListboxWidget::show_row_commands(const QModelIndex& cell, const QEvent& event) {
    const bool by_mouse = event.type() == QEvent::ContextMenu &&
                          static_cast<const QContextMenuEvent&>(event).reason() == QContextMenuEvent::Mouse;
    const QPoint place = by_mouse ? static_cast<const QContextMenuEvent&>(event).globalPos()
                                  : view_.viewport()->mapToGlobal(view_.visualRect(cell).bottomLeft());
    show_entries(listbox_.own().row_commands, place, view_, window_);
}

bool ListboxWidget::eventFilter(QObject* watched, QEvent* event) {
    if (!attached()) {
        return false;
    }
    if (const QModelIndex cell = asked_about(watched, *event); cell.isValid()) {
        show_row_commands(cell, *event);
        return true;
    }
    if (event->type() == QEvent::MouseButtonPress && watched == view_.viewport()) {
        const auto* press = static_cast<QMouseEvent*>(event);
        if (press->button() == Qt::LeftButton) {
            click_cell(view_.indexAt(press->position().toPoint()));
        }
    }
    if (event->type() == QEvent::KeyPress && watched == &view_ &&
        is_double_click_key(static_cast<QKeyEvent*>(event)->key())) {
        const int row = view_.currentIndex().row();
        tell([&] { listbox_.double_click(row); });
        return true;
    }
    if (event->type() == QEvent::KeyPress && watched == &view_ &&
        is_cell_click_key(static_cast<QKeyEvent*>(event)->key())) {
        click_cell(view_.currentIndex());
        return true;
    }
    if (event->type() == QEvent::Resize && watched == view_.viewport()) {
        share_width();
    }
    if (event->type() == QEvent::Show && watched == &view_) { // a hidden view can't scroll
        QTimer::singleShot(0, this, [this] { show_scroll_position(); });
    }
    return false;
}

void ListboxWidget::show_values() {
    measure_headings();
    model_.read_anew();
    share_width();
    show_selection();
}

void ListboxWidget::show_selection() {
    quietly([this] {
        const int row = listbox_.ListIndex();
        if (row < 0) {
            view_.clearSelection();
        } else if (!view_.selectionModel()->isRowSelected(row)) {
            view_.selectionModel()->setCurrentIndex(model_.index(row, 0),
                                                    QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
        }
    });
}

void ListboxWidget::show_scroll_position() {
    if (attached() && view_.isVisible() && listbox_.ListCount() > 0) {
        quietly([this] {
            view_.doItemsLayout(); // rows added just now count only after it
            const int sideways = view_.horizontalScrollBar()->value();
            view_.scrollTo(model_.index(listbox_.ScrollPosition(), 0), QAbstractItemView::PositionAtTop);
            view_.horizontalScrollBar()->setValue(sideways);
        });
    }
}

void ListboxWidget::share_width() {
    const auto widths = column_widths(listbox_.ColumnWidths(), text_scale(view_), needed_, view_.viewport()->width());
    sharing_ = true;
    for (std::size_t column = 0; column < widths.size(); ++column) {
        if (!dragged_[column]) {
            view_.setColumnWidth(static_cast<int>(column), widths[column]);
        }
    }
    sharing_ = false;
}

void ListboxWidget::measure_headings() {
    const QHeaderView& header = *view_.horizontalHeader();
    for (std::size_t column = 0; column < needed_.size(); ++column) {
        const QString heading = to_widget(listbox_.Heading(static_cast<int>(column)));
        const int width = header.fontMetrics().horizontalAdvance(heading) + cell_margins;
        needed_[column] = std::max(needed_[column], width);
    }
}

// Shorter texts than the longest so far are not measured: with ten thousand rows that is nearly all of them.
void ListboxWidget::measure(int row, int column) {
    const auto at = static_cast<std::size_t>(column);
    const std::string& text = listbox_.Cell(row, column);
    if (text.size() <= longest_[at]) {
        return;
    }
    longest_[at] = text.size();
    const int width = view_.fontMetrics().horizontalAdvance(to_widget(text)) + cell_margins;
    if (width > needed_[at]) {
        needed_[at] = std::min(width, std::max(scaled(widest_need, text_scale(view_)), needed_[at]));
        share_width();
    }
}

void ListboxWidget::Changes::row_inserted(int row) {
    table.quietly([&] { table.model_.row_inserted(row); });
    table.measure(row, 0);
}

void ListboxWidget::Changes::row_removed(int row) {
    table.quietly([&] { table.model_.row_removed(row); });
}

void ListboxWidget::Changes::cell_changed(int row, int column) {
    table.model_.cell_changed(row, column);
    table.measure(row, column);
}

} // namespace tessit::qt
