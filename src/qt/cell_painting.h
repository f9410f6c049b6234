// SPDX-License-Identifier: MIT
// Cells of a Listbox that has paint handlers: their background, then the text in their colour.
#pragma once

#include "platform/listbox.h"

#include <QStyledItemDelegate>

namespace tessit::qt {

class CellPainting : public QStyledItemDelegate {
public:
    CellPainting(Listbox& listbox, QObject* parent) : QStyledItemDelegate(parent), listbox_(&listbox) {}

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    void detach() { listbox_ = nullptr; } // the Listbox is going

private:
    void paint_background(QPainter& painter, const QStyleOptionViewItem& option, const QModelIndex& index) const;

    Listbox* listbox_;
};

} // namespace tessit::qt
