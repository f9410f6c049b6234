// SPDX-License-Identifier: MIT
// Styled text between the program and Qt's text documents, for fields and for the printed page.
#pragma once

#include "platform/styled_text.h"

#include <QFont>
#include <QTextCharFormat>
#include <QTextDocument>

namespace tessit::qt {

QFont with_size(QFont font, int points); // as it is for 0; sizes beyond all reason are taken as the largest usable one

QTextCharFormat format_of(const TextStyle& style);
TextStyle style_of(const QTextCharFormat& format);

StyledText styled_text_of(const QTextDocument& document);
void fill(QTextDocument& document, const StyledText& text);    // anew; nothing is left to be undone
void restyle(QTextDocument& document, const StyledText& text); // which has the same text; one step to be undone

} // namespace tessit::qt
