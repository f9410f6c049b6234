// SPDX-License-Identifier: MIT
#include "qt/pieced_text_edit.h"

#include <QAbstractTextDocumentLayout>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMimeData>
#include <QSignalBlocker>
#include <QTextLayout>
#include <algorithm>
#include <cmath>

namespace tessit::qt {

namespace {

bool matches(const QKeyEvent& event, std::initializer_list<QKeySequence::StandardKey> keys) {
    return std::any_of(keys.begin(), keys.end(), [&](auto key) { return event.matches(key); });
}

bool deletes_backwards(const QKeyEvent& event) {
    const bool plain = event.key() == Qt::Key_Backspace && !(event.modifiers() & ~Qt::ShiftModifier);
    return plain || matches(event, {QKeySequence::Backspace, QKeySequence::DeleteStartOfWord});
}

bool moves_backwards(const QKeyEvent& event) {
    return matches(event, {QKeySequence::MoveToPreviousChar, QKeySequence::SelectPreviousChar,
                           QKeySequence::MoveToPreviousWord, QKeySequence::SelectPreviousWord});
}

bool moves_over_lines(const QKeyEvent& event) {
    const auto keys = {Qt::Key_End, Qt::Key_Up, Qt::Key_Down, Qt::Key_PageUp, Qt::Key_PageDown};
    return std::find(keys.begin(), keys.end(), event.key()) != keys.end();
}

int end_of(const QTextBlock& block) {
    return block.position() + block.length() - 1;
}

bool stands(const QTextCursor& border) {
    return border.position() == border.anchor() + 1;
}

} // namespace

PiecedTextEdit::PiecedTextEdit(QWidget* parent) : QPlainTextEdit(parent) {
    connect(this, &QPlainTextEdit::textChanged, this, &PiecedTextEdit::drop_misplaced_borders);
    connect(this, &QPlainTextEdit::cursorPositionChanged, this, &PiecedTextEdit::settle_cursor);
}

Borders PiecedTextEdit::borders() const {
    Borders places;
    for (const QTextCursor& border : borders_) {
        if (stands(border)) {
            places.push_back(border.anchor());
        }
    }
    return places;
}

bool PiecedTextEdit::is_border(int place) const {
    return std::any_of(borders_.begin(), borders_.end(),
                       [place](const QTextCursor& border) { return stands(border) && border.anchor() == place; });
}

void PiecedTextEdit::hold_borders(const Borders& places) {
    QTextCursor edit(document());
    edit.beginEditBlock(); // where a cursor that moves lays nothing out
    for (const int place : places) {
        QTextCursor border(document());
        border.setPosition(place);
        border.setPosition(place + 1, QTextCursor::KeepAnchor);
        border.setKeepPositionOnInsert(true); // what is typed behind it belongs to the piece
        borders_.push_back(border);
    }
    edit.endEditBlock();
    std::sort(borders_.begin(), borders_.end());
}

QString PiecedTextEdit::text() const {
    return without_borders(toPlainText(), borders());
}

void PiecedTextEdit::set_text(const QString& text) {
    const PiecedText pieced = piece_length_ > 0 ? in_pieces(text, piece_length_) : PiecedText{.shown = text};
    borders_.clear();
    setPlainText(pieced.shown);
    if (!pieced.borders.empty()) {
        hold_borders(pieced.borders);
        estimate_lines();
    }
}

int PiecedTextEdit::selection_start() const {
    return place_in_text(borders(), textCursor().selectionStart());
}

int PiecedTextEdit::selection_end() const {
    return place_in_text(borders(), textCursor().selectionEnd());
}

void PiecedTextEdit::select(int start, int end) {
    const Borders places = borders();
    QTextCursor cursor = textCursor();
    cursor.setPosition(place_in_document(places, start));
    cursor.setPosition(place_in_document(places, end), QTextCursor::KeepAnchor);
    setTextCursor(cursor);
}

// Words would end at a border that does not follow a blank, and an empty piece would look like a line.
bool PiecedTextEdit::is_misplaced(const QTextCursor& border) const {
    return document()->characterAt(border.anchor() - 1) != QLatin1Char(' ') ||
           document()->characterAt(border.position()).isSpace();
}

void PiecedTextEdit::drop_misplaced_borders() { // after an edit
    const QSignalBlocker same_text(this);
    for (QTextCursor& border : borders_) {
        if (stands(border) && is_misplaced(border)) {
            border.removeSelectedText();
        }
    }
    std::erase_if(borders_, [](const QTextCursor& border) { return !stands(border); });
}

// In front of a border and behind it are the same place in the text. The cursor stands behind it; what looks for the
// end of a line finds the place in front of the blank, as it does where a line ends in a paragraph.
void PiecedTextEdit::settle_cursor() {
    QTextCursor cursor = textCursor();
    if (is_border(cursor.position())) {
        const auto mode = cursor.hasSelection() ? QTextCursor::KeepAnchor : QTextCursor::MoveAnchor;
        cursor.setPosition(cursor.position() + (piece_end_ == PieceEnd::goes_on ? 1 : -1), mode);
        setTextCursor(cursor);
    }
}

// So that the key meets the character in front of the border.
void PiecedTextEdit::go_back_over_border(const QKeyEvent& event) {
    QTextCursor cursor = textCursor();
    const bool deletes = deletes_backwards(event) && !cursor.hasSelection() && !isReadOnly();
    if ((deletes || moves_backwards(event)) && is_border(cursor.position() - 1)) {
        const QSignalBlocker same_place(this);
        const auto mode = cursor.hasSelection() ? QTextCursor::KeepAnchor : QTextCursor::MoveAnchor;
        cursor.setPosition(cursor.position() - 1, mode);
        setTextCursor(cursor);
    }
}

void PiecedTextEdit::keyPressEvent(QKeyEvent* event) {
    if (borders_.empty()) {
        return QPlainTextEdit::keyPressEvent(event);
    }
    go_back_over_border(*event);
    if (deletes_paragraph_end(*event)) {
        return event->accept();
    }
    piece_end_ = moves_over_lines(*event) ? PieceEnd::ends_line : PieceEnd::goes_on;
    QPlainTextEdit::keyPressEvent(event);
    settle_cursor();
    piece_end_ = PieceEnd::goes_on;
}

QTextBlock PiecedTextEdit::last_piece(QTextBlock block) const {
    while (is_border(end_of(block))) {
        block = block.next();
    }
    return block;
}

bool PiecedTextEdit::deletes_paragraph_end(const QKeyEvent& event) {
    QTextCursor cursor = textCursor();
    if (isReadOnly() || !event.matches(QKeySequence::DeleteEndOfLine) || !is_border(end_of(cursor.block()))) {
        return false;
    }
    cursor.setPosition(end_of(last_piece(cursor.block())), QTextCursor::KeepAnchor);
    cursor.removeSelectedText();
    return true;
}

QMimeData* PiecedTextEdit::createMimeDataFromSelection() const {
    if (borders_.empty()) {
        return QPlainTextEdit::createMimeDataFromSelection();
    }
    auto* selected = new QMimeData;
    selected->setText(text().mid(selection_start(), selection_end() - selection_start()));
    return selected;
}

void PiecedTextEdit::insertFromMimeData(const QMimeData* source) {
    const QString text = source->text();
    if (piece_length_ > 0 && !isReadOnly() && !text.contains(QLatin1Char('\r'))) {
        const PiecedText pieced = in_pieces(text, piece_length_);
        if (!pieced.borders.empty()) {
            return insert_in_pieces(pieced);
        }
    }
    QPlainTextEdit::insertFromMimeData(source);
}

void PiecedTextEdit::insert_in_pieces(const PiecedText& text) {
    QTextCursor cursor = textCursor();
    cursor.beginEditBlock(); // the text is changed when the borders are known
    cursor.removeSelectedText();
    Borders places = text.borders;
    for (int& place : places) {
        place += cursor.position();
    }
    cursor.insertText(text.shown);
    hold_borders(places);
    cursor.endEditBlock();
    ensureCursorVisible();
    estimate_lines();
}

bool PiecedTextEdit::viewportEvent(QEvent* event) {
    const bool pressed = event->type() == QEvent::MouseButtonPress;
    if (borders_.empty() || (!pressed && event->type() != QEvent::MouseMove)) {
        return QPlainTextEdit::viewportEvent(event);
    }
    const QTextCursor before = textCursor();
    piece_end_ = PieceEnd::ends_line;
    const bool done = QPlainTextEdit::viewportEvent(event);
    piece_end_ = PieceEnd::goes_on;
    const auto selected = [](const QTextCursor& cursor) {
        return std::pair(cursor.selectionStart(), cursor.selectionEnd());
    };
    const bool extended = (QGuiApplication::keyboardModifiers() & Qt::ShiftModifier) != 0;
    if (pressed && !extended && textCursor().hasSelection() && selected(textCursor()) != selected(before)) {
        select_paragraph();
    }
    return done;
}

// A third click has selected the piece.
void PiecedTextEdit::select_paragraph() {
    QTextCursor cursor = textCursor();
    QTextBlock first = document()->findBlock(cursor.selectionStart());
    const QTextBlock last = last_piece(first);
    while (is_border(first.position() - 1)) {
        first = first.previous();
    }
    cursor.setPosition(first.position());
    cursor.setPosition(end_of(last), QTextCursor::KeepAnchor);
    cursor.movePosition(QTextCursor::NextCharacter, QTextCursor::KeepAnchor);
    setTextCursor(cursor);
}

void PiecedTextEdit::resizeEvent(QResizeEvent* event) {
    QPlainTextEdit::resizeEvent(event);
    estimate_lines();
}

// The scroll bar counts a piece that has not been laid out yet as one line; it is taken to have as many for its length
// as those that have been.
void PiecedTextEdit::estimate_lines() {
    if (borders_.empty()) {
        return;
    }
    blockBoundingRect(document()->findBlock(borders_.front().anchor())); // lays it out; the last one always is
    double lines = 0;
    double length = 0;
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
        lines += block.layout()->lineCount();
        length += block.layout()->lineCount() > 0 ? block.length() : 0;
    }
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
        if (block.layout()->lineCount() == 0) {
            block.setLineCount(std::max(1, static_cast<int>(std::lround(lines / length * block.length()))));
        }
    }
    auto* layout = document()->documentLayout();
    Q_EMIT layout->documentSizeChanged(layout->documentSize());
}

} // namespace tessit::qt
