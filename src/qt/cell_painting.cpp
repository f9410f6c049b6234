// SPDX-License-Identifier: MIT
#include "qt/cell_painting.h"

#include "qt/look.h"

#include <QApplication>
#include <QPainter>

namespace tessit::qt {

namespace {

constexpr int selection_line = 2; // above and below the selected row, whose cells keep their own colours

class PainterGraphics : public CellGraphics {
public:
    PainterGraphics(QPainter& painter, const QRect& cell)
        : CellGraphics(cell.width(), cell.height()), painter_(painter), corner_(cell.topLeft()) {}

    void FillRect(int x, int y, int width, int height) override {
        painter_.fillRect(QRect(corner_ + QPoint(x, y), QSize(width, height)), cell_color(ForeColor));
    }

private:
    QPainter& painter_;
    const QPoint corner_;
};

} // namespace

void CellPainting::paint_background(QPainter& painter, const QStyleOptionViewItem& option,
                                    const QModelIndex& index) const {
    PainterGraphics g(painter, option.rect);
    listbox_->paint_cell_background(g, index.row(), index.column());
    if (option.state.testFlag(QStyle::State_Selected)) {
        const QColor selection = option.palette.color(QPalette::Active, QPalette::Highlight);
        painter.fillRect(option.rect.adjusted(0, 0, 0, selection_line - option.rect.height()), selection);
        painter.fillRect(option.rect.adjusted(0, option.rect.height() - selection_line, 0, 0), selection);
    }
}

void CellPainting::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
    if (listbox_ == nullptr || index.row() >= listbox_->ListCount()) {
        return;
    }
    painter->save();
    painter->setClipRect(option.rect);
    paint_background(*painter, option, index);
    PainterGraphics g(*painter, option.rect);
    if (!listbox_->paint_cell_text(g, index.row(), index.column(), 0, 0)) {
        QStyleOptionViewItem text = option;
        initStyleOption(&text, index);
        text.backgroundBrush = Qt::NoBrush;
        text.state.setFlag(QStyle::State_Selected, false);
        text.palette.setColor(QPalette::Text, cell_color(g.ForeColor));
        text.font.setBold(QColor(g.ForeColor.rgb).saturation() >
                          0); // a colour is not the only sign, and may be pale on white
        text.widget->style()->drawControl(QStyle::CE_ItemViewItem, &text, painter, text.widget);
    }
    painter->restore();
}

} // namespace tessit::qt
