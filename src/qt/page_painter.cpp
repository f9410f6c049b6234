// SPDX-License-Identifier: MIT
#include "qt/page_painter.h"

#include "qt/styled_document.h"
#include "qt/widget_text.h"

#include <QAbstractTextDocumentLayout>
#include <QFontMetricsF>
#include <QTextBlock>
#include <QTextLayout>

namespace tessit::qt {

namespace {

QFont page_font(const PageFont& font) {
    QFont result = with_size(QFont(to_widget(font.TextFont)), font.TextSize);
    result.setBold(font.Bold);
    result.setHintingPreference(QFont::PreferNoHinting); // which would round widths to whole dots
    return result;
}

QString one_line(const std::string& text) {
    return to_widget(text).replace(QLatin1Char('\n'), QLatin1Char(' '));
}

// To the foot of the last line that fits, the first one in any case.
double height_of_whole_lines(const QTextDocument& document, double room) {
    double height = 0;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        const double top = document.documentLayout()->blockBoundingRect(block).top();
        for (int line = 0; line < block.layout()->lineCount(); ++line) {
            const double foot = top + block.layout()->lineAt(line).rect().bottom();
            if (foot > room && height > 0) {
                return height;
            }
            height = foot;
        }
    }
    return height;
}

void paint(QPainter& painter, const DrawString& string) {
    painter.setFont(page_font(string.font));
    painter.drawText(QPointF(string.x, string.y), one_line(string.text));
}

void paint(QPainter& painter, const DrawBlock& block) {
    QTextDocument document;
    document.documentLayout()->setPaintDevice(painter.device());
    document.setDocumentMargin(0);
    document.setDefaultFont(page_font(block.font));
    document.setUseDesignMetrics(true);
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    document.setDefaultTextOption(option);
    document.setTextWidth(block.width);
    fill(document, block.text);
    QAbstractTextDocumentLayout::PaintContext context;
    context.palette.setColor(QPalette::Text, Qt::black);
    context.clip = QRectF(0, 0, block.width, height_of_whole_lines(document, block.height));
    painter.save();
    painter.translate(block.x, block.y);
    painter.setClipRect(context.clip);
    document.documentLayout()->draw(&painter, context);
    painter.restore();
}

} // namespace

double width_on_page(const std::string& text, const PageFont& font, QPaintDevice& device) {
    return QFontMetricsF(page_font(font), &device).horizontalAdvance(one_line(text));
}

void paint_page(QPainter& painter, const Page& page) {
    painter.setPen(Qt::black);
    for (const auto& operation : page) {
        std::visit([&](const auto& drawing) { paint(painter, drawing); }, operation);
    }
}

} // namespace tessit::qt
