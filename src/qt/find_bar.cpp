// SPDX-License-Identifier: MIT
#include "qt/find_bar.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPushButton>

namespace tessit::qt {

FindBar::FindBar(QWidget& parent) : QWidget(&parent), edit_(*new QLineEdit(this)), result_(*new QLabel(this)) {
    setObjectName("find_bar");
    edit_.setObjectName("find_text");
    edit_.setAccessibleName("Find");
    edit_.setPlaceholderText("Find in this document");
    edit_.setMaximumWidth(320);
    result_.setObjectName("find_result");
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(8, 4, 8, 4);
    row->addWidget(&edit_, 1);
    const auto add_button = [&](const char* name, const char* caption, const std::function<void()>& action) {
        auto* button = new QPushButton(QLatin1String(caption), this);
        button->setObjectName(QLatin1String(name));
        button->setAutoDefault(true);
        connect(button, &QPushButton::clicked, this, action);
        row->addWidget(button);
    };
    add_button("find_next", "Next", [this] { on_find(false); });
    add_button("find_previous", "Previous", [this] { on_find(true); });
    row->addWidget(&result_);
    row->addStretch(1);
    add_button("find_close", "Close", [this] { shut(); });
    connect(&edit_, &QLineEdit::textChanged, this, [this] { on_typed(); });
    hide();
}

void FindBar::open() {
    show();
    edit_.setFocus(Qt::ShortcutFocusReason);
    edit_.selectAll();
}

void FindBar::shut() {
    hide();
    on_shut();
}

void FindBar::tell(const FoundPlace& place) {
    result_.setText(place.count == 0 ? QStringLiteral("Not found")
                                     : QStringLiteral("%1 of %2").arg(place.number).arg(place.count));
}

void FindBar::tell_nothing() {
    result_.clear();
}

void FindBar::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        on_find((event->modifiers() & Qt::ShiftModifier) != 0);
    } else if (event->key() == Qt::Key_Escape) {
        shut();
    } else {
        QWidget::keyPressEvent(event);
    }
}

} // namespace tessit::qt
