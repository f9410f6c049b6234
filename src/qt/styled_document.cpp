// SPDX-License-Identifier: MIT
#include "qt/styled_document.h"

#include "qt/widget_text.h"

#include <QTextBlock>
#include <QTextCursor>
#include <algorithm>
#include <vector>

namespace tessit::qt {

QFont with_size(QFont font, int points) {
    constexpr int largest = 1000;
    if (points > 0) {
        font.setPixelSize(std::min(points, largest));
    }
    return font;
}

QTextCharFormat format_of(const TextStyle& style) {
    QTextCharFormat format;
    if (style.size > 0) {
        format.setProperty(QTextFormat::FontPixelSize, with_size({}, style.size).pixelSize());
    }
    if (style.bold) {
        format.setFontWeight(QFont::Bold);
    }
    if (style.italic) {
        format.setFontItalic(true);
    }
    if (style.underline) {
        format.setFontUnderline(true);
    }
    return format;
}

TextStyle style_of(const QTextCharFormat& format) {
    return {.size = format.intProperty(QTextFormat::FontPixelSize),
            .bold = format.fontWeight() >= QFont::Bold,
            .italic = format.fontItalic(),
            .underline = format.fontUnderline()};
}

StyledText styled_text_of(const QTextDocument& document) {
    std::vector<StyledRun> runs;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        if (block != document.begin()) {
            runs.push_back({.text = "\r", .style = runs.empty() ? TextStyle{} : runs.back().style});
        }
        for (auto at = block.begin(); !at.atEnd(); ++at) {
            QString text = at.fragment().text();
            text.replace(QChar::LineSeparator, QLatin1Char('\n'));
            runs.push_back({.text = to_model(text), .style = style_of(at.fragment().charFormat())});
        }
    }
    return StyledText(runs);
}

void fill(QTextDocument& document, const StyledText& text) {
    document.setUndoRedoEnabled(false);
    document.setPlainText(to_widget(text.Text()));
    restyle(document, text);
    document.setUndoRedoEnabled(true);
}

void restyle(QTextDocument& document, const StyledText& text) {
    QTextCursor cursor(&document);
    cursor.beginEditBlock();
    for (const StyledRun& run : text.runs()) {
        const auto length = static_cast<int>(to_widget(run.text).size());
        cursor.setPosition(cursor.position() + length, QTextCursor::KeepAnchor);
        cursor.setCharFormat(format_of(run.style));
        cursor.clearSelection();
    }
    cursor.endEditBlock();
}

} // namespace tessit::qt
