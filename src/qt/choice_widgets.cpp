// SPDX-License-Identifier: MIT
#include "qt/choice_widgets.h"

#include "qt/widget_text.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QKeyEvent>
#include <QLineEdit>
#include <QStyle>
#include <QStyleOptionComboBox>
#include <algorithm>

namespace tessit::qt {

namespace {

bool moves_in_list(const QKeyEvent& event, const QComboBox& box) {
    switch (event.key()) {
    case Qt::Key_Home:
    case Qt::Key_End:
        return !box.isEditable(); // else they move in the text
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
        return (event.modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
    default:
        return false;
    }
}

} // namespace

PopupMenuWidget::PopupMenuWidget(PopupMenu& menu, QWidget& parent)
    : ControlWidget(menu, *new QComboBox(&parent)), menu_(menu), box_(static_cast<QComboBox&>(widget())) {
    box_.setInsertPolicy(QComboBox::NoInsert);
    box_.setFocusPolicy(Qt::StrongFocus);
    box_.setMaxVisibleItems(20);
    box_.installEventFilter(this);
    connect(&box_, &QComboBox::currentIndexChanged, this, [this](int index) { tell([&] { menu_.choose(index); }); });
}

// The style's own hint asks for more than the texts need.
QSize PopupMenuWidget::needed_size() const {
    QStyleOptionComboBox option;
    option.initFrom(&box_);
    option.editable = box_.isEditable();
    option.rect = QRect(0, 0, 200, 40);
    const QRect room = box_.style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, &box_);
    int widest = 0;
    for (int index = 0; index < box_.count(); ++index) {
        widest = std::max(widest, box_.fontMetrics().horizontalAdvance(box_.itemText(index)));
    }
    constexpr int inner_margin = 3;
    return {widest + 200 - room.width() + 2 * inner_margin, box_.fontMetrics().height() + 40 - room.height()};
}

// Turning the wheel to scroll the window must not change a value on the way. The keys that move in the list open it:
// entries can be passed, and only the one that is chosen does what choosing does.
bool PopupMenuWidget::eventFilter(QObject*, QEvent* event) {
    if (event->type() == QEvent::KeyPress && moves_in_list(static_cast<QKeyEvent&>(*event), box_)) {
        box_.showPopup();
        return true;
    }
    if (event->type() == QEvent::Wheel && !box_.hasFocus()) {
        event->ignore();
        return true;
    }
    return false;
}

void PopupMenuWidget::show_values() {
    show_items();
    if (box_.currentIndex() != menu_.ListIndex()) {
        box_.setCurrentIndex(menu_.ListIndex());
    }
}

void PopupMenuWidget::show_items() {
    QStringList items;
    for (int index = 0; index < menu_.ListCount(); ++index) {
        items.append(to_widget(menu_.List(index)));
    }
    bool same = items.size() == box_.count();
    for (int index = 0; same && index < box_.count(); ++index) {
        same = box_.itemText(index) == items[index];
    }
    if (!same) {
        box_.clear();
        box_.addItems(items);
        constexpr int scroll_bar = 20; // the list may be wider than the box, so that no name is cut
        box_.view()->setMinimumWidth(box_.view()->sizeHintForColumn(0) + scroll_bar);
    }
}

ComboBoxWidget::ComboBoxWidget(ComboBox& combo, QWidget& parent) : PopupMenuWidget(combo, parent), combo_(combo) {
    auto* edit = new QLineEdit(&box());
    auto* completer = new QCompleter(edit); // else the box would make one of its own, which chooses items by itself
    edit->setCompleter(completer);
    box().setLineEdit(edit);
    edit->setObjectName(box().objectName() + QLatin1String("_text"));
    edit->setAccessibleName(box().accessibleName());
    edit->installEventFilter(this);
    if (combo.completes()) {
        completer->setModel(box().model());
        completer->setCompletionMode(QCompleter::InlineCompletion);
        completer->setCaseSensitivity(Qt::CaseInsensitive);
    } else {
        edit->setCompleter(nullptr);
    }
    // Qt would replace the typed text by an item that differs in case alone.
    disconnect(edit, SIGNAL(editingFinished()), &box(), nullptr);
    disconnect(edit, SIGNAL(returnPressed()), &box(), nullptr);
    connect(&box(), &QComboBox::editTextChanged, this, [this](const QString& text) { text_changed(text); });
}

void ComboBoxWidget::text_changed(const QString& text) {
    if (is_quiet()) {
        return;
    }
    const int current = box().currentIndex();
    if (current >= 0 && box().itemText(current) == text) {
        const bool typing = typing_; // what was proposed may be the chosen item
        tell([&] { combo_.choose(current); });
        typing_ = typing;
    } else if (box().lineEdit()->hasFocus()) {
        typing_ = true;
    } else {
        tell([&] { combo_.edit(to_model(text)); });
    }
}

// As the item has it, where its end is still what the box proposed.
QString ComboBoxWidget::typed_text() const {
    const QLineEdit& edit = *box().lineEdit();
    const bool proposed =
        edit.hasSelectedText() && edit.selectionEnd() == edit.text().size() && edit.selectionStart() > 0;
    const QString item = edit.completer() != nullptr && proposed ? edit.completer()->currentCompletion() : QString();
    return item.compare(edit.text(), Qt::CaseInsensitive) == 0 ? item : edit.text();
}

void ComboBoxWidget::finish_typing() {
    if (typing_) {
        typing_ = false;
        tell([text = to_model(typed_text()), this] { combo_.edit(text); });
    }
}

// Before Tab looks where to go: what was typed may enable the next control, or send the focus elsewhere.
bool ComboBoxWidget::finishing_key_used_up(int key) {
    switch (key) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        finish_typing();
        return true;
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
        finish_typing();
        return box().window()->focusWidget() != &box();
    default:
        return false;
    }
}

bool ComboBoxWidget::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress && typing_ && finishing_key_used_up(static_cast<QKeyEvent*>(event)->key())) {
        return true;
    }
    if (event->type() == QEvent::FocusOut || event->type() == QEvent::Hide) {
        finish_typing();
    }
    return PopupMenuWidget::eventFilter(watched, event);
}

void ComboBoxWidget::show_values() {
    typing_ = false;
    PopupMenuWidget::show_values();
    const QString text = to_widget(combo_.Text());
    if (box().currentText() != text) {
        box().setEditText(text);
    }
}

} // namespace tessit::qt
