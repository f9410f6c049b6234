// SPDX-License-Identifier: MIT
#include "qt/document_browser.h"

#include "platform/folder_item.h"
#include "qt/page_bounds.h"
#include "qt/widget_text.h"

#include <QBuffer>
#include <QFile>
#include <QImage>
#include <QImageReader>

namespace tessit::qt {

namespace {

QByteArray content_of(const QString& path, std::size_t most) {
    return QByteArray::fromStdString(FolderItem(QFile::encodeName(path).toStdString()).OpenAsTextFile(most)->ReadAll());
}

QImage picture_not_shown() {
    QImage grey(16, 16, QImage::Format_RGB32);
    grey.fill(Qt::lightGray);
    return grey;
}

} // namespace

QString unreadable_page(const QString& reason) {
    return QStringLiteral("<h2>This document can't be shown</h2><p>%1</p>").arg(reason.toHtmlEscaped());
}

QVariant DocumentBrowser::loadResource(int type, const QUrl& name) {
    const QString path = source().resolved(name).toLocalFile();
    if (type == QTextDocument::ImageResource) {
        return picture(path);
    }
    if (type == QTextDocument::StyleSheetResource) { // the documents have none of their own
        return {};
    }
    pixels_left_ = most_pixels;
    return page(path);
}

QVariant DocumentBrowser::page(const QString& path) {
    try {
        const QByteArray text = content_of(path, most_page_bytes);
        if (is_within_bounds({text.data(), static_cast<std::size_t>(text.size())})) {
            return text; // in its own encoding
        }
        return unreadable_page(
            QStringLiteral("The file \"%1\" is too deeply nested, or its tables are too large.").arg(path));
    } catch (const Fault& fault) {
        return unreadable_page(to_widget(fault.what()));
    }
}

// Never null: for a null one the text's layout would open the file itself.
QImage DocumentBrowser::picture(const QString& path) {
    try {
        QByteArray bytes = content_of(path, most_picture_bytes);
        QBuffer buffer(&bytes);
        QImageReader reader(&buffer);
        const QSize size = reader.size();
        const qint64 pixels = qint64{size.width()} * size.height();
        if (size.isValid() && pixels <= pixels_left_) {
            pixels_left_ -= pixels;
            const QImage image = reader.read();
            return image.isNull() ? picture_not_shown() : image;
        }
    } catch (const Fault&) { // not there, or no file
    }
    return picture_not_shown();
}

} // namespace tessit::qt
