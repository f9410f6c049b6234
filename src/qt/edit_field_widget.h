// SPDX-License-Identifier: MIT
// An EditField as a line edit, or as a text edit where it has several lines. Keys are offered to the model before
// the widget gets them.
#pragma once

#include "platform/edit_field.h"
#include "qt/control_widget.h"

#include <QLineEdit>

class QInputMethodEvent;
class QKeyEvent;

namespace tessit::qt {

class PiecedTextEdit;

class FieldWidget : public ControlWidget {
public:
    FieldWidget(EditField& field, QWidget& widget);
    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    EditField& field() const { return field_; }
    void edited(const QString& text);
    void tell_selection(const QString& text, int start, int end); // places in the text
    void show_text_size();
    virtual void entered_by_keyboard() {}

private:
    bool key_used_up(const QKeyEvent& event);
    bool commit_used_up(const QInputMethodEvent& event);
    bool used_up(const std::string& key);
    void left();
    void show_colors();

    EditField& field_;
    int shown_size_ = 0;
};

class LineFieldWidget : public FieldWidget {
public:
    LineFieldWidget(EditField& field, QWidget& parent);
    int halves_to_the_left() const override;
    void select_all() override { edit_.selectAll(); }

private:
    void show_values() override;
    void entered_by_keyboard() override;

    QLineEdit& edit_;
};

class TextFieldWidget : public FieldWidget {
public:
    static constexpr int piece_length = 5000; // of a long text with a history, which is shown in pieces

    TextFieldWidget(EditField& field, QWidget& parent, int pieces_of = piece_length);
    void show_pending() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void show_values() override;
    void show_text();
    void choose_layout(const QString& text);
    void keep_history(int pieces_of);
    void tell_selection();
    bool is_step(const QKeyEvent& key);
    void show_menu(const QPoint& place);
    void go(void (EditField::*step)());

    PiecedTextEdit& edit_;
    bool pending_ = false;
};

} // namespace tessit::qt
