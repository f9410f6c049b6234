// SPDX-License-Identifier: MIT
// A model Listbox as Qt's item views read it: every cell is read from the Listbox when it is shown.
#pragma once

#include "platform/listbox.h"

#include <QAbstractTableModel>

namespace tessit::qt {

class ListboxModel : public QAbstractTableModel {
public:
    explicit ListboxModel(Listbox& listbox) : listbox_(&listbox), rows_(listbox.ListCount()) {}

    int rowCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : rows_; }
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

    void row_inserted(int row);
    void row_removed(int row);
    void cell_changed(int row, int column);
    void read_anew();
    void detach(); // the Listbox is going: an empty table from now on

private:
    Listbox* listbox_;
    int rows_; // as told to the views, which hear of a change after the Listbox has made it
};

} // namespace tessit::qt
