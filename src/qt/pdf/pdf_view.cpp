// SPDX-License-Identifier: MIT
#include "qt/pdf/pdf_view.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPdfBookmarkModel>
#include <QPdfPageNavigator>
#include <QScreen>
#include <QScrollBar>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>

namespace tessit::qt {

PdfView::PdfView(QWidget& parent) : QPdfView(&parent) {
    setPageMode(PageMode::MultiPage);
    setZoomMode(ZoomMode::FitToWidth);
    setDocument(&document_);
    search_.setDocument(&document_);
    setFocusPolicy(Qt::StrongFocus);
    verticalScrollBar()->setSingleStep(40);
    counting_.setSingleShot(true);
    connect(&counting_, &QTimer::timeout, this, [this] { count_places(); });
}

// The document goes before the view does, and tells the view of its closing.
PdfView::~PdfView() {
    on_scrolled = nullptr;
    setDocument(nullptr);
}

bool PdfView::open(const QString& path) {
    close();
    if (document_.load(path) != QPdfDocument::Error::None) {
        return false;
    }
    setZoomMode(ZoomMode::FitToWidth);
    verticalScrollBar()->setValue(0);
    return true;
}

void PdfView::close() {
    clear_find();
    search_.setSearchString({}); // what it found was the old document's
    selections_.clear();
    press_.reset();
    document_.close();
}

// The rules of Qt's own layout: margins around, a space between, each page in the middle.
std::vector<QRect> PdfView::page_places() const {
    const double resolution = QGuiApplication::primaryScreen()->logicalDotsPerInch() / 72.0;
    const QMargins margins = documentMargins();
    const int room = viewport()->width() - margins.left() - margins.right();
    std::vector<QRect> places;
    int widest = 0;
    for (int page = 0; page < document_.pageCount(); ++page) {
        QSize size;
        if (zoomMode() == ZoomMode::Custom) {
            size = QSizeF(document_.pagePointSize(page) * resolution * zoomFactor()).toSize();
        } else {
            size = QSizeF(document_.pagePointSize(page) * resolution).toSize();
            size *= static_cast<double>(room) / size.width();
        }
        widest = std::max(widest, size.width());
        places.emplace_back(QPoint(0, 0), size);
    }
    const int width = std::max(widest + margins.left() + margins.right(), viewport()->width());
    int top = margins.top();
    for (QRect& place : places) {
        place.moveTopLeft({(width - place.width()) / 2, top});
        top += place.height() + pageSpacing();
    }
    return places;
}

double PdfView::pixels_per_point(int page, const QRect& place) const {
    return place.width() / document_.pagePointSize(page).width();
}

QRectF PdfView::on_screen(int page, const QRectF& in_points) const {
    const QRect place = page_places()[static_cast<std::size_t>(page)];
    const double scale = pixels_per_point(page, place);
    const QPointF scrolled(horizontalScrollBar()->value(), verticalScrollBar()->value());
    return {in_points.topLeft() * scale + place.topLeft() - scrolled, in_points.size() * scale};
}

std::optional<PdfView::Spot> PdfView::spot_at(const QPoint& in_viewport) const {
    const QPoint point = in_viewport + QPoint(horizontalScrollBar()->value(), verticalScrollBar()->value());
    const auto places = page_places();
    for (std::size_t page = 0; page < places.size(); ++page) {
        if (places[page].contains(point)) {
            const int number = static_cast<int>(page);
            return Spot{number, QPointF(point - places[page].topLeft()) / pixels_per_point(number, places[page])};
        }
    }
    return std::nullopt;
}

int PdfView::current_page() const {
    const auto places = page_places();
    const int upper_edge = verticalScrollBar()->value() + viewport()->height() / 3;
    const auto below =
        std::find_if(places.begin(), places.end(), [&](const QRect& place) { return place.bottom() >= upper_edge; });
    return static_cast<int>(std::min(below, places.end() - (places.empty() ? 0 : 1)) - places.begin());
}

std::vector<PdfHeading> PdfView::headings() const {
    QPdfBookmarkModel model;
    model.setDocument(const_cast<QPdfDocument*>(&document_)); // which it only reads
    std::vector<PdfHeading> found;
    const std::function<void(const QModelIndex&)> take = [&](const QModelIndex& parent) {
        for (int row = 0; row < model.rowCount(parent); ++row) {
            const QModelIndex entry = model.index(row, 0, parent);
            const auto value = [&](QPdfBookmarkModel::Role role) { return entry.data(static_cast<int>(role)); };
            found.push_back({.title = value(QPdfBookmarkModel::Role::Title).toString(),
                             .level = value(QPdfBookmarkModel::Role::Level).toInt(),
                             .page = value(QPdfBookmarkModel::Role::Page).toInt(),
                             .place = value(QPdfBookmarkModel::Role::Location).toPointF()});
            take(entry);
        }
    };
    take({});
    return found;
}

void PdfView::go_to(const PdfHeading& heading) {
    constexpr int gap = 8; // above the heading, in pixels
    if (heading.page < 0 || heading.page >= document_.pageCount()) {
        return;
    }
    const double top = on_screen(heading.page, QRectF(heading.place, QSizeF(1, 1))).top();
    verticalScrollBar()->setValue(verticalScrollBar()->value() + static_cast<int>(std::lround(top)) - gap);
}

bool PdfView::find(const QString& text, bool backward, bool from_present_place) {
    counting_.stop();
    if (search_.searchString() != text) {
        search_.setSearchString(text);
        pages_counted_ = 0;
    }
    const int pages = document_.pageCount();
    if (text.isEmpty() || pages == 0) {
        clear_find();
        return false;
    }
    const int begin = found_ ? found_->page() : current_page();
    const int step = backward ? -1 : 1;
    int index = found_ ? found_index_ + (from_present_place ? 0 : step) : (backward ? -2 : 0);
    for (int turn = 0; turn <= pages; ++turn) {
        const int page = ((begin + turn * step) % pages + pages) % pages;
        const QList<QPdfLink> places = search_.resultsOnPage(page);
        if (turn > 0 || index == -2) {
            index = backward ? static_cast<int>(places.size()) - 1 : 0;
        }
        if (index >= 0 && index < places.size()) {
            found_index_ = index;
            show_place(places[index]);
            count_places();
            return true;
        }
    }
    clear_find();
    return false;
}

void PdfView::count_places() {
    if (pages_counted_ < document_.pageCount()) {
        search_.resultsOnPage(pages_counted_);
        ++pages_counted_;
        return counting_.start();
    }
    counting_.stop();
    if (on_counted) {
        on_counted(found_place());
    }
}

FoundPlace PdfView::found_place() {
    FoundPlace place;
    for (int page = 0; page < document_.pageCount(); ++page) {
        if (page == found_->page()) {
            place.number = place.count + found_index_ + 1;
        }
        place.count += static_cast<int>(search_.resultsOnPage(page).size());
    }
    return place;
}

void PdfView::clear_find() {
    counting_.stop();
    found_.reset();
    found_index_ = 0;
    viewport()->update();
}

void PdfView::show_place(const QPdfLink& place) {
    found_ = place;
    const QRectF shown = on_screen(place.page(), place.rectangles().isEmpty() ? QRectF(place.location(), QSizeF(1, 1))
                                                                              : place.rectangles().front());
    if (!QRectF(viewport()->rect()).contains(shown)) {
        const auto to_middle = [](QScrollBar& bar, double from, double room) {
            bar.setValue(bar.value() + static_cast<int>(std::lround(from - room / 2)));
        };
        to_middle(*verticalScrollBar(), shown.center().y(), viewport()->height());
        to_middle(*horizontalScrollBar(), shown.center().x(), viewport()->width());
    }
    viewport()->update();
}

void PdfView::copy() {
    QStringList texts;
    for (const Selection& selection : selections_) {
        texts << selection.text.text();
    }
    if (!texts.isEmpty()) {
        QGuiApplication::clipboard()->setText(texts.join('\n'));
    }
}

void PdfView::select_all() {
    std::vector<Selection> all;
    for (int page = 0; page < document_.pageCount(); ++page) {
        all.push_back({page, document_.getAllText(page)});
    }
    select(std::move(all));
}

void PdfView::select(std::vector<Selection> selections) {
    selections_ = std::move(selections);
    viewport()->update();
}

void PdfView::zoom(int steps) {
    constexpr double step = 1.2;
    if (steps == 0) {
        return setZoomMode(ZoomMode::FitToWidth);
    }
    const auto places = page_places();
    if (places.empty()) {
        return;
    }
    const double resolution = QGuiApplication::primaryScreen()->logicalDotsPerInch() / 72.0;
    const double present = pixels_per_point(0, places.front()) / resolution;
    const double part = static_cast<double>(verticalScrollBar()->value()) / std::max(1, verticalScrollBar()->maximum());
    setZoomMode(ZoomMode::Custom);
    setZoomFactor(std::clamp(present * std::pow(step, steps), 0.25, 5.0));
    verticalScrollBar()->setValue(static_cast<int>(std::lround(part * verticalScrollBar()->maximum())));
}

void PdfView::paintEvent(QPaintEvent* event) {
    QPdfView::paintEvent(event);
    QPainter painter(viewport());
    painter.setCompositionMode(QPainter::CompositionMode_Multiply); // pages are white, and their text stays legible
    const auto mark = [&](int page, const QRectF& rect, const QColor& color) {
        painter.fillRect(on_screen(page, rect).adjusted(-1, -1, 1, 1), color);
    };
    for (const Selection& selection : selections_) {
        for (const QPolygonF& line : selection.text.bounds()) {
            mark(selection.page, line.boundingRect(), QColor(0xA8D0FF));
        }
    }
    if (found_) {
        for (const QRectF& rect : found_->rectangles()) {
            mark(found_->page(), rect, QColor(0xFFD84A));
        }
    }
}

void PdfView::keyPressEvent(QKeyEvent* event) {
    QScrollBar& bar = *verticalScrollBar();
    if (event->matches(QKeySequence::Copy)) {
        copy();
    } else if (event->matches(QKeySequence::SelectAll)) {
        select_all();
    } else if (event->key() == Qt::Key_Home) {
        bar.setValue(bar.minimum());
    } else if (event->key() == Qt::Key_End) {
        bar.setValue(bar.maximum());
    } else if (event->key() == Qt::Key_Space) {
        const bool back = (event->modifiers() & Qt::ShiftModifier) != 0;
        bar.triggerAction(back ? QScrollBar::SliderPageStepSub : QScrollBar::SliderPageStepAdd);
    } else {
        QPdfView::keyPressEvent(event);
    }
}

void PdfView::wheelEvent(QWheelEvent* event) {
    if ((event->modifiers() & Qt::ControlModifier) != 0 && event->angleDelta().y() != 0) {
        return zoom(event->angleDelta().y() > 0 ? 1 : -1);
    }
    QPdfView::wheelEvent(event);
}

void PdfView::mousePressEvent(QMouseEvent* event) {
    press_ = event->button() == Qt::LeftButton ? spot_at(event->pos()) : std::nullopt;
    select({});
}

void PdfView::mouseMoveEvent(QMouseEvent* event) {
    const auto here = spot_at(event->pos());
    if (press_ && here && here->page == press_->page) {
        select({{here->page, document_.getSelection(here->page, press_->place, here->place)}});
    }
}

void PdfView::scrollContentsBy(int dx, int dy) {
    QPdfView::scrollContentsBy(dx, dy);
    if (on_scrolled) {
        on_scrolled();
    }
}

} // namespace tessit::qt
