// SPDX-License-Identifier: MIT
#include "qt/listbox_model.h"

#include "qt/widget_text.h"

namespace tessit::qt {

namespace {

QVariant alignment_in_cell(Align align) {
    const Qt::AlignmentFlag across[] = {Qt::AlignLeft, Qt::AlignLeft, Qt::AlignHCenter, Qt::AlignRight};
    return QVariant::fromValue(Qt::Alignment(across[static_cast<int>(align)]) | Qt::AlignVCenter);
}

} // namespace

int ListboxModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() || listbox_ == nullptr ? 0 : listbox_->ColumnCount();
}

QVariant ListboxModel::data(const QModelIndex& index, int role) const {
    if (listbox_ == nullptr || !index.isValid() || index.row() >= listbox_->ListCount()) {
        return {};
    }
    switch (role) {
    case Qt::DisplayRole:
        return to_widget(listbox_->Cell(index.row(), index.column()));
    case Qt::TextAlignmentRole:
        return alignment_in_cell(listbox_->ColumnAlignment(index.column()));
    default:
        return {};
    }
}

QVariant ListboxModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (listbox_ == nullptr || orientation != Qt::Horizontal || section >= listbox_->ColumnCount()) {
        return {};
    }
    switch (role) {
    case Qt::DisplayRole:
        return to_widget(listbox_->Heading(section));
    case Qt::TextAlignmentRole:
        return alignment_in_cell(listbox_->ColumnAlignment(section));
    default:
        return {};
    }
}

Qt::ItemFlags ListboxModel::flags(const QModelIndex& index) const {
    return index.isValid() ? Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemNeverHasChildren : Qt::NoItemFlags;
}

void ListboxModel::row_inserted(int row) {
    beginInsertRows({}, row, row);
    ++rows_;
    endInsertRows();
}

void ListboxModel::row_removed(int row) {
    beginRemoveRows({}, row, row);
    --rows_;
    endRemoveRows();
}

void ListboxModel::cell_changed(int row, int column) {
    const QModelIndex cell = index(row, column);
    Q_EMIT dataChanged(cell, cell, {Qt::DisplayRole});
}

void ListboxModel::read_anew() {
    if (listbox_ == nullptr) {
        return;
    }
    Q_EMIT headerDataChanged(Qt::Horizontal, 0, columnCount() - 1);
    if (rows_ > 0) {
        Q_EMIT dataChanged(index(0, 0), index(rows_ - 1, columnCount() - 1));
    }
}

void ListboxModel::detach() {
    beginResetModel();
    listbox_ = nullptr;
    rows_ = 0;
    endResetModel();
}

} // namespace tessit::qt
