// SPDX-License-Identifier: MIT
// An HTMLViewer: a row of buttons, the document (HTML in a text browser, PDF in a page view, made for the first one), a
// line for what there is to be told, and the find bar. Only files beside the document are opened by its links; a link
// that leads anywhere else is told and not followed.
#pragma once

#include "platform/html_viewer.h"
#include "qt/control_widget.h"
#include "qt/document_browser.h"
#include "qt/find_bar.h"
#include "qt/pdf_page.h"

#include <QLabel>
#include <QStackedWidget>
#include <QToolButton>

namespace tessit::qt {

class HTMLViewerWidget : public ControlWidget {
public:
    HTMLViewerWidget(HTMLViewer& viewer, QWidget& parent);
    QSize needed_size() const override { return {}; }
    void detach() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void show_values() override;
    void make_buttons();
    void make_shortcuts();
    QToolButton& add_button(const char* name, const char* text, const char* what, const std::function<void()>& action);

    void show_file(const QString& path, const QString& anchor);
    void show_pdf(const QString& path);
    void make_pdf_page();
    void close_pdf();
    void show_missing();
    void show_message(const QString& html);
    void bring_up(QWidget& page);
    void follow(const QUrl& link);
    void tell(const QString& text);
    void go_back();
    void go_forward();
    void find(bool backward, bool from_present_place);
    FoundPlace place_in_html(const QString& text) const; // of the selected one
    void end_find();
    void shut_something(); // the find bar, what was told, or else the window
    void zoom(int steps);  // 0: as it was at first
    void edit(EditCommand command);
    void refresh_buttons();
    void list_headings(); // of the PDF, a chapter with its sections each
    bool shows_pdf() const { return pdf_ != nullptr && pages_.currentWidget() == &pdf_->widget(); }

    HTMLViewer& viewer_;
    QWidget& row_;
    QStackedWidget& pages_;
    DocumentBrowser& html_;
    QLabel& notice_;
    FindBar& find_bar_;
    PdfPage* pdf_ = nullptr; // since the first PDF
    QToolButton* back_ = nullptr;
    QToolButton* forward_ = nullptr;
    QToolButton* contents_ = nullptr; // of the PDF, whose own links Qt does not tell of
    QLabel* page_number_ = nullptr;
    QString folder_;           // whose files the links may open
    bool html_behind_ = false; // a link led from it to the PDF
    int html_zoom_ = 0;        // steps away from the first size
    int loads_shown_ = 0;
};

} // namespace tessit::qt
