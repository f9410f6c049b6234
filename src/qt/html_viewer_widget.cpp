// SPDX-License-Identifier: MIT
#include "qt/html_viewer_widget.h"

#include "qt/look.h"
#include "qt/module.h"
#include "qt/pdf_page.h"
#include "qt/widget_text.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QMenu>
#include <QShortcut>
#include <QVBoxLayout>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>

namespace tessit::qt {

namespace {

constexpr std::size_t most_pdf_bytes = 50'000'000;

bool is_pdf(const QString& path) {
    return path.endsWith(QLatin1String(".pdf"), Qt::CaseInsensitive);
}

QString file_name_of(const FolderItem& item) {
    return QFile::decodeName(item.path().c_str());
}

} // namespace

HTMLViewerWidget::HTMLViewerWidget(HTMLViewer& viewer, QWidget& parent)
    : ControlWidget(viewer, *new QWidget(&parent)), viewer_(viewer), row_(*new QWidget(&widget())),
      pages_(*new QStackedWidget(&widget())), html_(*new DocumentBrowser(&pages_)), notice_(*new QLabel(&widget())),
      find_bar_(*new FindBar(widget())) {
    widget().setFont(in_pixels(desktop_font()));
    auto* column = new QVBoxLayout(&widget());
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    for (QWidget* part : std::initializer_list<QWidget*>{&row_, &pages_, &notice_, &find_bar_}) {
        column->addWidget(part, part == &pages_ ? 1 : 0);
    }
    html_.setObjectName("HTMLV_html");
    html_.setAccessibleName(widget().accessibleName());
    html_.setOpenLinks(false);
    html_.setFrameShape(QFrame::NoFrame);
    html_.document()->setDocumentMargin(12);
    html_.viewport()->installEventFilter(this);
    pages_.addWidget(&html_);
    notice_.setObjectName("HTMLV_notice");
    notice_.setTextFormat(Qt::PlainText);
    notice_.setWordWrap(true);
    notice_.setTextInteractionFlags(Qt::TextSelectableByMouse);
    notice_.setMargin(6);
    notice_.hide();
    widget().setFocusPolicy(Qt::StrongFocus);
    make_buttons();
    make_shortcuts();
    bring_up(html_);
    connect(&html_, &QTextBrowser::anchorClicked, this, [this](const QUrl& link) { follow(link); });
    connect(&html_, &QTextBrowser::historyChanged, this, [this] { refresh_buttons(); });
    find_bar_.on_typed = [this] { find(false, true); };
    find_bar_.on_find = [this](bool backward) { find(backward, false); };
    find_bar_.on_shut = [this] { end_find(); };
    viewer.on_edit = [this](EditCommand command) { edit(command); };
}

void HTMLViewerWidget::detach() {
    if (attached()) {
        viewer_.on_edit = nullptr;
    }
    ControlWidget::detach();
}

QToolButton& HTMLViewerWidget::add_button(const char* name, const char* text, const char* what,
                                          const std::function<void()>& action) {
    auto* button = new QToolButton(&row_);
    button->setObjectName(QLatin1String(name));
    button->setText(QString::fromUtf8(text));
    button->setAccessibleName(QLatin1String(what));
    button->setToolTip(QLatin1String(what));
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::TabFocus);
    connect(button, &QToolButton::clicked, this, action);
    row_.layout()->addWidget(button);
    return *button;
}

void HTMLViewerWidget::make_buttons() {
    auto* row = new QHBoxLayout(&row_);
    row->setContentsMargins(6, 3, 6, 3);
    back_ = &add_button("go_back", "Back", "Back (Alt+Left)", [this] { go_back(); });
    forward_ = &add_button("go_forward", "Forward", "Forward (Alt+Right)", [this] { go_forward(); });
    add_button("zoom_out", "Smaller", "Smaller (Ctrl+-)", [this] { zoom(-1); });
    add_button("zoom_in", "Larger", "Larger (Ctrl++)", [this] { zoom(1); });
    add_button("find", "Find", "Find (Ctrl+F)", [this] { find_bar_.open(); });
    contents_ = &add_button("contents", "Contents", "Contents (Ctrl+T)", [] {});
    contents_->setPopupMode(QToolButton::InstantPopup);
    contents_->setMenu(new QMenu(contents_));
    row->addStretch(1);
    page_number_ = new QLabel(&row_);
    page_number_->setObjectName("page_number");
    row->addWidget(page_number_);
}

void HTMLViewerWidget::make_shortcuts() {
    const auto on = [this](const QKeySequence& keys, const std::function<void()>& action) {
        auto* shortcut = new QShortcut(keys, &widget());
        shortcut->setContext(Qt::WidgetWithChildrenShortcut);
        connect(shortcut, &QShortcut::activated, this, action);
    };
    on(Qt::CTRL | Qt::Key_F, [this] { find_bar_.open(); });
    on(Qt::CTRL | Qt::Key_T, [this] {
        if (contents_->isVisible()) {
            contents_->showMenu();
        }
    });
    on(Qt::Key_F3, [this] { find(false, false); });
    on(Qt::SHIFT | Qt::Key_F3, [this] { find(true, false); });
    on(Qt::Key_Escape, [this] { shut_something(); });
    on(Qt::ALT | Qt::Key_Left, [this] { go_back(); });
    on(Qt::ALT | Qt::Key_Right, [this] { go_forward(); });
    on(Qt::CTRL | Qt::Key_Plus, [this] { zoom(1); });
    on(Qt::CTRL | Qt::Key_Equal, [this] { zoom(1); });
    on(Qt::CTRL | Qt::Key_Minus, [this] { zoom(-1); });
    on(Qt::CTRL | Qt::Key_0, [this] { zoom(0); });
}

void HTMLViewerWidget::show_values() {
    if (viewer_.loads() == loads_shown_) {
        return;
    }
    loads_shown_ = viewer_.loads();
    tell("");
    find_bar_.tell_nothing(); // what it told was about the document before
    html_behind_ = false;
    if (!viewer_.page()) {
        return show_missing();
    }
    const QString path = file_name_of(*viewer_.page());
    folder_ = QFileInfo(path).absolutePath();
    html_.clearHistory();
    show_file(path, to_widget(viewer_.chapter()));
}

void HTMLViewerWidget::show_file(const QString& path, const QString& anchor) {
    if (is_pdf(path)) {
        return show_pdf(path);
    }
    close_pdf();
    QUrl url = QUrl::fromLocalFile(path);
    if (!anchor.isEmpty()) {
        url.setFragment(anchor);
    }
    html_.document()->setDefaultStyleSheet(QStringLiteral("a { color: %1 }").arg(link_color(html_.palette()).name()));
    if (html_.source() == url) {
        html_.reload();
    } else {
        html_.setSource(url);
    }
    bring_up(html_);
}

void HTMLViewerWidget::show_pdf(const QString& path) {
    try {
        FolderItem(QFile::encodeName(path).toStdString())
            .OpenAsTextFile(most_pdf_bytes); // an ordinary file, not too long
        make_pdf_page();
    } catch (const Fault& fault) {
        return show_message(unreadable_page(to_widget(fault.what())));
    }
    if (!pdf_->open(path)) {
        return show_message(unreadable_page(QStringLiteral("The file \"%1\" is damaged, or it is no PDF.").arg(path)));
    }
    list_headings();
    bring_up(pdf_->widget());
}

void HTMLViewerWidget::make_pdf_page() {
    if (pdf_ != nullptr) {
        return;
    }
    const Module module = module_of_program(QStringLiteral("shows PDF documents"), QStringLiteral(TESSIT_PDF_MODULE));
    pdf_ = &load_as<PdfPages>(module).make_page(pages_);
    pdf_->on_scrolled = [this] { refresh_buttons(); };
    pdf_->on_counted = [this](const FoundPlace& place) { find_bar_.tell(place); };
    QAbstractScrollArea& page = pdf_->widget();
    page.setObjectName("HTMLV_pdf");
    page.setAccessibleName(html_.accessibleName());
    page.setFrameShape(QFrame::NoFrame);
    pages_.addWidget(&page);
    QWidget::setTabOrder(&html_, &page); // not behind the buttons, though it comes later
}

void HTMLViewerWidget::close_pdf() {
    if (pdf_ != nullptr) {
        pdf_->close();
    }
}

void HTMLViewerWidget::show_missing() {
    const FolderItem& wanted = viewer_.looked_for().front();
    QString places;
    for (const FolderItem& item : viewer_.looked_for()) {
        places += "<li>" + file_name_of(item).toHtmlEscaped() + "</li>";
    }
    show_message(QStringLiteral("<h2>This document is not there</h2><p>The file <b>%1</b> was not found. It was "
                                "looked for here:</p><ul>%2</ul><p>Put it in one of these places, or install the "
                                "program again.</p>")
                     .arg(to_widget(wanted.DisplayName()).toHtmlEscaped(), places));
}

void HTMLViewerWidget::show_message(const QString& html) {
    close_pdf();
    html_.setSource(QUrl());
    html_.clearHistory();
    html_.setHtml(html);
    bring_up(html_);
}

void HTMLViewerWidget::bring_up(QWidget& page) {
    const bool had_focus = widget().hasFocus() || widget().isAncestorOf(widget().window()->focusWidget());
    pages_.setCurrentWidget(&page);
    widget().setFocusProxy(&page);
    if (had_focus && !find_bar_.isVisible()) {
        page.setFocus(Qt::OtherFocusReason);
    }
    refresh_buttons();
}

void HTMLViewerWidget::follow(const QUrl& link) {
    tell("");
    const QUrl target = html_.source().resolved(link);
    const QString path = QDir::cleanPath(target.toLocalFile());
    if (!target.isLocalFile() || !path.startsWith(folder_ + '/')) {
        return tell(QStringLiteral("This link leads out of the document and is not opened: ") +
                    target.toDisplayString());
    }
    if (!QFileInfo(path).isReadable()) {
        return tell(QStringLiteral("The file that this link leads to is not there: ") + path);
    }
    const bool leaves_html = is_pdf(path);
    show_file(path, target.fragment(QUrl::FullyDecoded));
    html_behind_ = leaves_html;
    refresh_buttons();
}

void HTMLViewerWidget::tell(const QString& text) {
    notice_.setText(text);
    notice_.setVisible(!text.isEmpty());
}

void HTMLViewerWidget::shut_something() {
    if (find_bar_.isVisible()) {
        find_bar_.shut();
    } else if (notice_.isVisible()) {
        notice_.hide();
    } else {
        widget().window()->close();
    }
}

void HTMLViewerWidget::go_back() {
    tell("");
    if (shows_pdf() && html_behind_) {
        html_behind_ = false;
        close_pdf();
        return bring_up(html_);
    }
    if (!shows_pdf()) {
        html_.backward();
    }
}

void HTMLViewerWidget::go_forward() {
    tell("");
    if (!shows_pdf()) {
        html_.forward();
    }
}

void HTMLViewerWidget::find(bool backward, bool from_present_place) {
    const QString text = find_bar_.text();
    if (text.isEmpty()) {
        end_find();
        return find_bar_.open();
    }
    if (shows_pdf()) {
        find_bar_.tell_nothing();
        if (!pdf_->find(text, backward, from_present_place)) {
            find_bar_.tell({});
        }
        return;
    }
    const QTextDocument::FindFlags flags = backward ? QTextDocument::FindBackward : QTextDocument::FindFlags();
    if (from_present_place) {
        QTextCursor cursor = html_.textCursor();
        cursor.setPosition(cursor.selectionStart());
        html_.setTextCursor(cursor);
    }
    bool found = html_.find(text, flags);
    if (!found) { // around the end
        const QTextCursor before = html_.textCursor();
        html_.moveCursor(backward ? QTextCursor::End : QTextCursor::Start);
        found = html_.find(text, flags);
        if (!found) {
            html_.setTextCursor(before);
        }
    }
    find_bar_.tell(found ? place_in_html(text) : FoundPlace());
}

FoundPlace HTMLViewerWidget::place_in_html(const QString& text) const {
    FoundPlace place;
    const int shown = html_.textCursor().selectionStart();
    for (QTextCursor at = html_.document()->find(text); !at.isNull(); at = html_.document()->find(text, at)) {
        place.number += at.selectionStart() <= shown ? 1 : 0;
        ++place.count;
    }
    return place;
}

void HTMLViewerWidget::end_find() {
    find_bar_.tell_nothing();
    if (pdf_ != nullptr) {
        pdf_->clear_find();
    }
    if (!find_bar_.isVisible()) {
        pages_.currentWidget()->setFocus(Qt::OtherFocusReason);
    }
}

void HTMLViewerWidget::zoom(int steps) {
    if (shows_pdf()) {
        return pdf_->zoom(steps);
    }
    const int wanted = steps == 0 ? 0 : std::clamp(html_zoom_ + steps, -4, 20);
    html_zoom_ = wanted;
    QFont font = widget().font(); // sized in pixels, which the browser's own zoom does not take
    font.setPixelSize(static_cast<int>(std::lround(font.pixelSize() * std::pow(1.15, html_zoom_))));
    html_.setFont(font);
}

bool HTMLViewerWidget::eventFilter(QObject*, QEvent* event) {
    const auto* wheel = dynamic_cast<QWheelEvent*>(event);
    if (wheel == nullptr || (wheel->modifiers() & Qt::ControlModifier) == 0 || wheel->angleDelta().y() == 0) {
        return false;
    }
    zoom(wheel->angleDelta().y() > 0 ? 1 : -1);
    return true;
}

// The documents are only read: nothing is cut and nothing pasted.
void HTMLViewerWidget::edit(EditCommand command) {
    if (command == EditCommand::copy) {
        shows_pdf() ? pdf_->copy() : html_.copy();
    } else if (command == EditCommand::select_all) {
        shows_pdf() ? pdf_->select_all() : html_.selectAll();
    }
}

void HTMLViewerWidget::list_headings() {
    contents_->menu()->clear();
    QMenu* chapter = contents_->menu();
    for (const PdfHeading& heading : pdf_->headings()) {
        const QString title = QString(heading.title).replace('&', QLatin1String("&&"));
        if (heading.level == 0) {
            chapter = contents_->menu()->addMenu(title);
        }
        chapter->addAction(title, this, [this, heading] { pdf_->go_to(heading); });
    }
}

void HTMLViewerWidget::refresh_buttons() {
    back_->setEnabled(shows_pdf() ? html_behind_ : html_.isBackwardAvailable());
    forward_->setEnabled(!shows_pdf() && html_.isForwardAvailable());
    contents_->setVisible(shows_pdf() && !contents_->menu()->isEmpty());
    page_number_->setText(shows_pdf()
                              ? QStringLiteral("Page %1 of %2").arg(pdf_->current_page() + 1).arg(pdf_->page_count())
                              : QString());
}

} // namespace tessit::qt
