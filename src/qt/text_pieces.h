// SPDX-License-Identifier: MIT
// A long paragraph in pieces: Qt lays out a paragraph as a whole, so a text edit shows a long one as several and lays
// out those that are to be seen. Between two pieces stands a border, a line end that is no part of the text. A place in
// the text is counted without the borders, a place in the document with them.
#pragma once

#include <QString>
#include <vector>

namespace tessit::qt {

using Borders = std::vector<int>; // places in the document, rising

struct PiecedText {
    QString shown; // with a line end at each border
    Borders borders{};
};

// Cuts behind blanks, where pieces have got `length` characters. A text of no more than two pieces is not cut, nor is
// one with characters beyond ASCII, whose direction goes by the paragraph.
PiecedText in_pieces(const QString& text, int length);
QString without_borders(const QString& shown, const Borders& borders);

int place_in_text(const Borders& borders, int place);
int place_in_document(const Borders& borders, int place); // behind the border where one is there

bool is_ascii(QStringView text);

} // namespace tessit::qt
