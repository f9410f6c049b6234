// SPDX-License-Identifier: MIT
// PopupMenu and ComboBox as combo boxes. Nothing typed ever becomes an item, and no item takes the place of what was
// typed unless the user chose it. A typed text is handed to the model when its typing is finished: a handler that
// moves the focus away must not scatter the letters over other fields.
#pragma once

#include "platform/choice.h"
#include "qt/control_widget.h"

#include <QComboBox>

namespace tessit::qt {

class PopupMenuWidget : public ControlWidget {
public:
    PopupMenuWidget(PopupMenu& menu, QWidget& parent);
    QSize needed_size() const override;
    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    void show_values() override;
    QComboBox& box() const { return box_; }

private:
    void show_items();

    PopupMenu& menu_;
    QComboBox& box_;
};

class ComboBoxWidget : public PopupMenuWidget {
public:
    ComboBoxWidget(ComboBox& combo, QWidget& parent);
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void show_values() override;
    void text_changed(const QString& text);
    void finish_typing();
    bool finishing_key_used_up(int key);

    ComboBox& combo_;
    bool typing_ = false;
};

} // namespace tessit::qt
