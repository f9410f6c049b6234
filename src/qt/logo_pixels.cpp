// SPDX-License-Identifier: MIT
// A tool of the build: writes the pixels of a picture as the front end paints them. Usage: logo_pixels PICTURE FILE
#include <QFile>
#include <QImage>

int main(int count, char** words) {
    if (count != 3) {
        return 2;
    }
    const QImage pixels = QImage(words[1]).convertToFormat(QImage::Format_ARGB32_Premultiplied);
    QFile file(words[2]);
    const bool written =
        !pixels.isNull() && file.open(QIODevice::WriteOnly) &&
        file.write(reinterpret_cast<const char*>(pixels.constBits()), pixels.sizeInBytes()) == pixels.sizeInBytes();
    return written ? 0 : 1;
}
