// SPDX-License-Identifier: MIT
// A text browser that reads ordinary files alone, and no more of them than it can show in a moment: a pipe or a device
// in the place of a page or a picture does not stop the program, and a page out of bounds (page_bounds.h) is not laid
// out. What is told in its place is a page itself, so that the way back stays.
#pragma once

#include <QTextBrowser>

namespace tessit::qt {

inline constexpr std::size_t most_picture_bytes = 5'000'000;
inline constexpr qint64 most_pixels = 32'000'000; // of all pictures of a page

QString unreadable_page(const QString& reason); // HTML; the reason is plain text

class DocumentBrowser : public QTextBrowser {
public:
    using QTextBrowser::QTextBrowser;
    QVariant loadResource(int type, const QUrl& name) override;

private:
    static QVariant page(const QString& path);
    QImage picture(const QString& path);

    qint64 pixels_left_ = most_pixels;
};

} // namespace tessit::qt
