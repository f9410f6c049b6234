// SPDX-License-Identifier: MIT
#include "qt/button_widgets.h"

#include "qt/busy_sign.h"
#include "qt/look.h"
#include "qt/widget_text.h"

#include <QGuiApplication>

namespace tessit::qt {

namespace {

// Qt's groups give the arrow keys their meaning; which button is on is the model's to say.
QButtonGroup& group_in(QWidget& parent, int number) {
    const QString name = QStringLiteral("radio_group_%1").arg(number);
    auto* group = parent.findChild<QButtonGroup*>(name, Qt::FindDirectChildrenOnly);
    if (group == nullptr) {
        group = new QButtonGroup(&parent);
        group->setObjectName(name);
    }
    return *group;
}

// Tab goes to the button that is on, or to the first one; the arrow keys go on from there.
void leave_one_tab_stop(const QButtonGroup& group) {
    const QList<QAbstractButton*> buttons = group.buttons();
    const QAbstractButton* on = group.checkedButton();
    const QAbstractButton* stop = on != nullptr ? on : buttons.front();
    for (QAbstractButton* button : buttons) {
        button->setFocusPolicy(button == stop ? Qt::StrongFocus : Qt::ClickFocus);
    }
}

// Return clicks the button that has the focus, else the default one, and the one that it would click looks so. Qt sees
// to that in dialogs alone.
class Button : public QPushButton {
public:
    Button(ButtonKey key, QWidget* parent) : QPushButton(parent), is_default_(key == ButtonKey::enter) {
        setAutoDefault(true);
        setDefault(is_default_);
    }

protected:
    void focusInEvent(QFocusEvent* event) override {
        mark_default(false);
        QPushButton::focusInEvent(event);
    }

    void focusOutEvent(QFocusEvent* event) override {
        QPushButton::focusOutEvent(event);
        mark_default(true);
    }

private:
    void mark_default(bool marked) {
        for (auto* sibling : parent()->findChildren<QPushButton*>(Qt::FindDirectChildrenOnly)) {
            auto* button = dynamic_cast<Button*>(sibling);
            if (button != nullptr && button->is_default_) {
                button->setDefault(marked);
            }
        }
    }

    const bool is_default_;
};

// Assistive technology puts it on without a click, which Qt tells as a change alone; a click on the one that is on is
// none.
class Radio : public QRadioButton {
public:
    using QRadioButton::QRadioButton;
    bool in_click() const { return in_click_; }

protected:
    void nextCheckState() override {
        in_click_ = true;
        QRadioButton::nextCheckState();
        in_click_ = false;
    }

private:
    bool in_click_ = false;
};

} // namespace

PushButtonWidget::PushButtonWidget(PushButton& button, QWidget& parent)
    : ControlWidget(button, *new Button(button.own().key, &parent)), button_(button),
      widget_(static_cast<QPushButton&>(widget())) {
    set_text_size(button.own().text_size);
    connect(&widget_, &QPushButton::clicked, this, [this] { tell([this] { click(); }); });
}

void PushButtonWidget::click() {
    const CommandSign sign(button_.window(), &widget_);
    button_.click();
}

QSize PushButtonWidget::needed_size() const {
    constexpr int side_margins = 16; // the style's own hint asks for far more than a button's text needs
    const QFontMetrics metrics(widget_.font());
    return {metrics.horizontalAdvance(to_widget(button_.Caption())) + side_margins, metrics.height() + 6};
}

bool PushButtonWidget::answers_to(ButtonKey key) const {
    return key != ButtonKey::none && key == button_.own().key && button_.Enabled() && button_.Visible();
}

void PushButtonWidget::show_values() {
    widget_.setText(to_caption(button_.Caption()));
}

RadioButtonWidget::RadioButtonWidget(RadioButton& button, QWidget& parent)
    : ControlWidget(button, *new Radio(&parent)), button_(button), widget_(static_cast<QRadioButton&>(widget())),
      group_(group_in(parent, button.own().group)) {
    group_.addButton(&widget_);
    show_circle();
    connect(&widget_, &QRadioButton::clicked, this, [this] { tell([this] { button_.click(); }); });
    connect(&widget_, &QRadioButton::toggled, this, [this](bool on) {
        if (on && !static_cast<Radio&>(widget_).in_click()) {
            tell([this] { button_.click(); });
        }
    });
}

// On a dark desktop the empty circle would hardly stand out from the window.
void RadioButtonWidget::show_circle() {
    QPalette palette = QGuiApplication::palette();
    if (is_dark(palette)) {
        palette.setColor(QPalette::Base, palette.color(QPalette::WindowText).darker(270));
        widget_.setPalette(palette);
    }
}

void RadioButtonWidget::show_values() {
    widget_.setText(to_caption(button_.own().caption));
    if (widget_.isChecked() != button_.Value()) {
        group_.setExclusive(false); // an exclusive group never lets its last button go off
        widget_.setChecked(button_.Value());
        group_.setExclusive(true);
    }
    leave_one_tab_stop(group_);
}

} // namespace tessit::qt
