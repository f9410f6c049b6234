// SPDX-License-Identifier: MIT
// A PDF document page below page, with text that can be searched, selected with the mouse and copied. What shows it is
// a module of its own (qt/pdf).
#pragma once

#include "qt/found_place.h"

#include <QAbstractScrollArea>
#include <QPointF>
#include <QString>
#include <QtPlugin>
#include <functional>
#include <vector>

namespace tessit::qt {

// A heading of the document, as its makers list it.
struct PdfHeading {
    QString title;
    int level = 0; // 0 for a chapter
    int page = 0;
    QPointF place; // in points from the page's upper left corner
};

// Lives and dies with its widget.
class PdfPage {
public:
    virtual QAbstractScrollArea& widget() = 0;

    virtual bool open(const QString& path) = 0; // from its beginning; false where it can't be shown
    virtual void close() = 0;
    virtual int current_page() const = 0; // the one at the upper edge, from 0
    virtual int page_count() const = 0;
    virtual std::vector<PdfHeading> headings() const = 0; // in the document's order; none where it lists none
    virtual void go_to(const PdfHeading& heading) = 0;    // to the upper edge

    // Goes to the next place, or to the present one again while it still fits; around the end. False: nowhere. Which of
    // how many it is is told when the last page has been searched, which takes its time.
    virtual bool find(const QString& text, bool backward, bool from_present_place) = 0;
    virtual void clear_find() = 0;
    virtual void copy() = 0;
    virtual void select_all() = 0;
    virtual void zoom(int steps) = 0; // each a fifth; 0 fits the width again

    std::function<void()> on_scrolled{};
    std::function<void(const FoundPlace&)> on_counted{};

protected:
    ~PdfPage() = default;
};

// What the module gives: pages, each shown in its parent.
class PdfPages {
public:
    virtual ~PdfPages() = default;
    virtual PdfPage& make_page(QWidget& parent) = 0;
};

} // namespace tessit::qt

// Both sides of it are made by one build: a module of another version is refused.
Q_DECLARE_INTERFACE(tessit::qt::PdfPages, "example.tessit.Control.PdfPages/" TESSIT_VERSION)
