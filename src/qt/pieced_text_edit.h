// SPDX-License-Identifier: MIT
// A text edit that shows a long paragraph in pieces (text_pieces.h). What goes in and out, also by the clipboard, is
// the text without borders, and keys do what they would do in one paragraph. Undo by Qt would make line ends of
// borders, so it stays off where there are pieces.
#pragma once

#include "qt/text_pieces.h"

#include <QPlainTextEdit>
#include <QTextBlock>
#include <QTextCursor>
#include <vector>

namespace tessit::qt {

class PiecedTextEdit : public QPlainTextEdit {
public:
    explicit PiecedTextEdit(QWidget* parent);

    void set_piece_length(int characters) { piece_length_ = characters; } // of texts set from now on; 0: no pieces

    // Places are those in the text.
    QString text() const;
    void set_text(const QString& text); // the cursor goes to its start
    int selection_start() const;
    int selection_end() const;
    void select(int start, int end);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    QMimeData* createMimeDataFromSelection() const override;
    void insertFromMimeData(const QMimeData* source) override;

private:
    enum class PieceEnd { goes_on, ends_line }; // what a cursor behind the last character of a piece means

    Borders borders() const;
    bool is_border(int place) const;
    bool is_misplaced(const QTextCursor& border) const;
    void hold_borders(const Borders& places);
    void drop_misplaced_borders();
    void settle_cursor();
    void select_paragraph();
    void go_back_over_border(const QKeyEvent& event);
    QTextBlock last_piece(QTextBlock block) const;
    bool deletes_paragraph_end(const QKeyEvent& event);
    void insert_in_pieces(const PiecedText& text);
    void estimate_lines();

    int piece_length_ = 0;
    PieceEnd piece_end_ = PieceEnd::goes_on;
    std::vector<QTextCursor> borders_; // each selects its line end; none any more when that is gone
};

} // namespace tessit::qt
