// SPDX-License-Identifier: MIT
#include "qt/styled_field_widget.h"

#include "qt/focus_frame.h"
#include "qt/look.h"
#include "qt/styled_document.h"

#include <QTextCursor>
#include <algorithm>

namespace tessit::qt {

StyledFieldWidget::StyledFieldWidget(EditField& field, QWidget& parent)
    : FieldWidget(field, *new FocusFrame<QTextEdit>(&parent)), edit_(static_cast<QTextEdit&>(widget())) {
    edit_.setAcceptRichText(false);
    edit_.setTabChangesFocus(true);
    edit_.setReadOnly(field.own().read_only);
    const auto selected = [this] {
        const QTextCursor cursor = edit_.textCursor();
        tell_selection(edit_.toPlainText(), cursor.selectionStart(), cursor.selectionEnd());
    };
    connect(&edit_, &QTextEdit::textChanged, this, [this, selected] {
        tell([this] { this->field().edit(styled_text_of(*edit_.document())); });
        selected(); // the cursor moved before the text was told
    });
    connect(&edit_, &QTextEdit::selectionChanged, this, selected);
    connect(&edit_, &QTextEdit::cursorPositionChanged, this, selected);
}

void StyledFieldWidget::show_values() {
    const QFont font = with_size(edit_.font(), scaled(field().TextSize(), text_scale(edit_)));
    if (edit_.document()->defaultFont() != font) {
        edit_.document()->setDefaultFont(font);
    }
    show_document();
    if (field().chosen_style()) {
        edit_.setCurrentCharFormat(format_of(*field().chosen_style()));
    }
}

void StyledFieldWidget::show_document() {
    const StyledText& wanted = field().StyledText();
    const StyledText shown = styled_text_of(*edit_.document());
    if (shown.Text() != wanted.Text()) {
        QTextCursor cursor = edit_.textCursor();
        const int start = cursor.selectionStart();
        fill(*edit_.document(), wanted);
        cursor.setPosition(std::min(start, edit_.document()->characterCount() - 1));
        edit_.setTextCursor(cursor);
        edit_.setCurrentCharFormat(cursor.charFormat()); // else an empty field keeps the style of its old text
    } else if (shown != wanted) {
        restyle(*edit_.document(), wanted);
    }
}

} // namespace tessit::qt
