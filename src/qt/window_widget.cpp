// SPDX-License-Identifier: MIT
#include "qt/window_widget.h"

#include "platform/application.h"
#include "qt/activation.h"
#include "qt/button_widgets.h"
#include "qt/control_factory.h"
#include "qt/control_layout.h"
#include "qt/file_drop.h"
#include "qt/look.h"
#include "qt/menu_bar.h"
#include "qt/screen_place.h"
#include "qt/static_widgets.h"
#include "qt/widget_text.h"

#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QLayout>
#include <QLineEdit>
#include <QMenuBar>
#include <QShortcut>
#include <QWindow>
#include <algorithm>

namespace tessit::qt {

namespace {

// The application's as it is now: a later one would not fit the places.
QFont font_of_its_own() {
    QFont font = QApplication::font();
    font.setFamilies(font.families());
    font.setPixelSize(font.pixelSize());
    return font;
}

Qt::WindowFlags flags_of(WindowFrame frame) {
    return frame == WindowFrame::notice
               ? Qt::Tool | Qt::WindowTitleHint | Qt::WindowCloseButtonHint | Qt::CustomizeWindowHint
               : Qt::Window;
}

bool is_escape(const QKeyEvent& event) {
    return event.key() == Qt::Key_Escape && event.modifiers() == Qt::NoModifier;
}

ButtonKey button_key(const QKeyEvent& event) {
    const bool enters = event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
    return enters ? ButtonKey::enter : is_escape(event) ? ButtonKey::escape : ButtonKey::none;
}

} // namespace

WindowWidget::WindowWidget(Window& model, Activation& activation)
    : QMainWindow(nullptr, flags_of(model.design().frame)), model_(&model), activation_(activation),
      frame_(model.design().frame), designed_size_(model.design().width, model.design().height),
      color_(model.design().color), scroll_(*new QScrollArea(this)), content_(*new QWidget) {
    setObjectName(to_widget(model.name()));
    setWindowTitle(to_widget(model.Title()) + (is_document() ? QLatin1String("[*]") : QLatin1String()));
    setAttribute(Qt::WA_ShowWithoutActivating, is_notice());
    setFont(font_of_its_own());
    scale_ = text_scale(*this);
    content_size_ = scaled(designed_size_, scale_);
    scroll_.setFrameShape(QFrame::NoFrame);
    scroll_.setFocusPolicy(Qt::NoFocus);
    scroll_.setWidget(&content_);
    content_.setAutoFillBackground(true);
    content_.setObjectName(objectName() + QLatin1String("_content"));
    scroll_.viewport()->installEventFilter(this);
    setCentralWidget(&scroll_);
    if (model.design().has_menu_bar) {
        fill_menu_bar(*menuBar(), model_);
    }
    set_colors();
    make_controls();
    set_tab_order();
    set_first_focus();
    new QShortcut(QKeySequence::Close, this, [this] { close(); });
    if (model.design().has_menu_bar) {
        new FileDrop(*this);
    }
}

void WindowWidget::make_controls() {
    for (Control* control : model_->controls()) {
        controls_.push_back(make_control_widget(*control, content_));
        controls_.back()->refresh();
    }
    give_accessible_names(controls_);
    std::vector<Placed> placed;
    for (const auto& control : controls_) {
        const Place& place = control->design().place;
        placed.push_back({.designed = scaled(QRect(place.left, place.top, place.width, place.height), scale_),
                          .needed = control->needed_size(),
                          .halves_to_the_left = control->halves_to_the_left(),
                          .is_frame = control->is_frame()});
    }
    places_ = places_with_room(placed, content_size_);
    lay_out();
}

void WindowWidget::set_tab_order() {
    QWidget* before = nullptr;
    for (const auto& control : controls_) {
        QWidget& widget = control->widget();
        if (!is_reachable(control->design().place, designed_size_)) {
            control->keep_out_of_sight();
        } else if (before != nullptr) {
            setTabOrder(before, &widget);
        }
        before = widget.focusPolicy() == Qt::NoFocus ? before : &widget;
    }
}

void WindowWidget::set_first_focus() {
    if (Control* control = model_->focus_control(); control != nullptr && control->view() != nullptr) {
        return control->view()->take_focus();
    }
    for (const auto& control : controls_) {
        QWidget& widget = control->widget();
        const auto* edit = qobject_cast<QLineEdit*>(&widget);
        const bool only_shows = edit != nullptr && edit->isReadOnly();
        if (widget.focusPolicy() != Qt::NoFocus && widget.isEnabled() && !widget.isHidden() && !only_shows) {
            return widget.setFocus(Qt::OtherFocusReason);
        }
    }
}

void WindowWidget::set_colors() {
    content_.setPalette(window_palette(color_));
    for (QMenu* menu : findChildren<QMenu*>()) {
        menu->setPalette(legible_palette());
    }
}

void WindowWidget::lay_out() {
    const QSize size = scroll_.viewport()->size().expandedTo(content_size_);
    content_.resize(size);
    for (std::size_t at = 0; at < places_.size(); ++at) {
        ControlWidget& control = *controls_[at];
        control.widget().setGeometry(grown(places_[at], control.design().grow, size - content_size_));
    }
}

QSize WindowWidget::natural_size() const {
    QSize size = content_size_;
    if (const auto* bar = qobject_cast<const QMenuBar*>(layout()->menuBar())) {
        size.setWidth(std::max(size.width(), bar->sizeHint().width()));
        size.rheight() += bar->sizeHint().height();
    }
    return size;
}

void WindowWidget::place_on_screen(const OpenWindows& open) {
    ensurePolished();
    const QSize size = natural_size();
    setMinimumSize(scaled(QSize(240, 120), scale_).boundedTo(size));
    setGeometry(place_for_window(size, frame_, open));
    if (is_notice()) {
        setFixedSize(size);
        keep_above(open.active);
    }
}

void WindowWidget::place_on_screen_again(const KeptPlace& kept) {
    setGeometry(place_again(kept, natural_size()));
    if (kept.maximized) {
        setWindowState(windowState() | Qt::WindowMaximized);
    }
}

KeptPlace WindowWidget::kept_place() const {
    return place_to_keep(*this, natural_size());
}

void WindowWidget::show_document(const ShownDocument& document) {
    setWindowFilePath(to_widget(document.path));
    if (isWindowModified() != document.modified) {
        setWindowModified(document.modified);
    }
}

// Above the active window, but not above the dialogs that belong to it.
void WindowWidget::keep_above(const QWidget* active) {
    if (active != nullptr) {
        create();
        windowHandle()->setTransientParent(active->windowHandle());
    }
}

void WindowWidget::show_pending() {
    for (const auto& control : controls_) {
        control->show_pending();
    }
}

void WindowWidget::forget_model() {
    model_ = nullptr;
    for (const auto& control : controls_) {
        control->detach();
    }
    hide();
    deleteLater();
}

bool WindowWidget::event(QEvent* event) {
    switch (event->type()) {
    case QEvent::WindowActivate:
        activation_.window_system_changed();
        break;
    case QEvent::Move:
    case QEvent::Show:
        tell_place();
        break;
    case QEvent::ApplicationPaletteChange:
        set_colors();
        break;
    default:
        break;
    }
    return QMainWindow::event(event);
}

bool WindowWidget::eventFilter(QObject*, QEvent* event) {
    if (event->type() == QEvent::Resize) {
        lay_out();
        tell_place();
    }
    return false;
}

void WindowWidget::keyPressEvent(QKeyEvent* event) {
    if (model_ == nullptr) {
        return QMainWindow::keyPressEvent(event);
    }
    for (const auto& control : controls_) {
        auto* button = dynamic_cast<PushButtonWidget*>(control.get());
        if (button != nullptr && button->answers_to(button_key(*event))) {
            return button->press();
        }
    }
    if (event->matches(QKeySequence::HelpContents)) {
        return model_->application().show_help_on(*model_);
    }
    if (is_escape(*event) && !model_->holds_work()) {
        close();
    }
}

void WindowWidget::tell_place() {
    if (model_ != nullptr) {
        const QPoint corner = scroll_.mapToGlobal(QPoint(0, 0));
        model_->move_to(corner.x(), corner.y());
    }
}

void WindowWidget::closeEvent(QCloseEvent* event) {
    event->ignore();
    if (model_ != nullptr && !model_->application().busy()) {
        model_->close_by_user();
    }
}

} // namespace tessit::qt
