// SPDX-License-Identifier: MIT
// A PDF document page below page, with text that can be searched, selected with the mouse and copied. Qt's view shows
// pages only and keeps to itself where they lie, so that is computed here by the same rules.
#pragma once

#include "qt/find_bar.h"

#include <QPdfDocument>
#include <QPdfLink>
#include <QPdfSearchModel>
#include <QPdfSelection>
#include <QPdfView>
#include <QTimer>
#include <functional>
#include <optional>
#include <vector>

namespace tessit::qt {

// A heading of the document, as its makers list it.
struct PdfHeading {
    QString title;
    int level = 0; // 0 for a chapter
    int page = 0;
    QPointF place; // in points from the page's upper left corner
};

class PdfPage : public QPdfView {
public:
    explicit PdfPage(QWidget& parent);
    ~PdfPage() override;

    bool open(const QString& path); // from its beginning; false where it can't be shown
    void close();
    int current_page() const; // the one at the upper edge, from 0
    int page_count() const { return document_.pageCount(); }
    std::vector<PdfHeading> headings() const; // in the document's order; none where it lists none
    void go_to(const PdfHeading& heading);    // to the upper edge

    // Goes to the next place, or to the present one again while it still fits; around the end. False: nowhere. Which of
    // how many it is is told when the last page has been searched, which takes its time.
    bool find(const QString& text, bool backward, bool from_present_place);
    void clear_find();
    void copy();
    void select_all();
    void zoom(int steps); // each a fifth; 0 fits the width again

    std::function<void()> on_scrolled{};
    std::function<void(const FoundPlace&)> on_counted{};

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
