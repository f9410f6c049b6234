// SPDX-License-Identifier: MIT
// The page of a PDF document (qt/pdf_page.h) on Qt's view, which shows pages only and keeps to itself where they lie,
// so that is computed here by the same rules.
#pragma once

#include "qt/pdf_page.h"

#include <QPdfDocument>
#include <QPdfLink>
#include <QPdfSearchModel>
#include <QPdfSelection>
#include <QPdfView>
#include <QTimer>
#include <optional>
#include <vector>

namespace tessit::qt {

class PdfView : public QPdfView, public PdfPage {
public:
    explicit PdfView(QWidget& parent);
    ~PdfView() override;

    QAbstractScrollArea& widget() override { return *this; }
    bool open(const QString& path) override;
    void close() override;
    int current_page() const override;
    int page_count() const override { return document_.pageCount(); }
    std::vector<PdfHeading> headings() const override;
    void go_to(const PdfHeading& heading) override;
    bool find(const QString& text, bool backward, bool from_present_place) override;
    void clear_find() override;
    void copy() override;
    void select_all() override;
    void zoom(int steps) override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;

private:
    struct Spot { // in points from the page's upper left corner
        int page;
        QPointF place;
    };
    struct Selection {
        int page;
        QPdfSelection text;
    };

    std::vector<QRect> page_places() const; // in the whole document, in pixels
    double pixels_per_point(int page, const QRect& place) const;
    QRectF on_screen(int page, const QRectF& in_points) const;
    std::optional<Spot> spot_at(const QPoint& in_viewport) const;
    void show_place(const QPdfLink& place);
    void count_places(); // on one page more
    FoundPlace found_place();
    void select(std::vector<Selection> selections);

    QPdfDocument document_;
    QPdfSearchModel search_;
    std::optional<QPdfLink> found_;
    int found_index_ = 0;   // on its page
    int pages_counted_ = 0; // with the text that is looked for
    QTimer counting_;
    std::optional<Spot> press_;
    std::vector<Selection> selections_;
};

} // namespace tessit::qt
