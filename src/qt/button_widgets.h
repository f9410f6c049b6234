// SPDX-License-Identifier: MIT
// Push buttons and radio buttons.
#pragma once

#include "platform/buttons.h"
#include "qt/control_widget.h"

#include <QButtonGroup>
#include <QPushButton>
#include <QRadioButton>

namespace tessit::qt {

class PushButtonWidget : public ControlWidget {
public:
    PushButtonWidget(PushButton& button, QWidget& parent);
    QSize needed_size() const override;
    int halves_to_the_left() const override { return 1; }
    bool answers_to(ButtonKey key) const; // and can be pressed
    void press() { widget_.click(); }     // by such a key, as by a click on it

private:
    void click();
    void show_values() override;

    PushButton& button_;
    QPushButton& widget_;
};

class RadioButtonWidget : public ControlWidget {
public:
    RadioButtonWidget(RadioButton& button, QWidget& parent);
    QSize needed_size() const override { return widget_.sizeHint(); }

private:
    void show_values() override;
    void show_circle();

    RadioButton& button_;
    QRadioButton& widget_;
    QButtonGroup& group_;
};

} // namespace tessit::qt
