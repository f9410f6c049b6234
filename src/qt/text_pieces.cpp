// SPDX-License-Identifier: MIT
#include "qt/text_pieces.h"

#include <algorithm>

namespace tessit::qt {

bool is_ascii(QStringView text) {
    return std::all_of(text.begin(), text.end(), [](QChar character) { return character.unicode() < 0x80; });
}

PiecedText in_pieces(const QString& text, int length) {
    PiecedText result{.shown = text};
    if (text.size() <= 2 * length || !is_ascii(text)) {
        return result;
    }
    result.shown.clear();
    result.shown.reserve(text.size() + text.size() / length);
    const auto size = static_cast<int>(text.size());
    int start = 0;  // of the piece
    int copied = 0; // so many characters
    for (int place = 0; place < size; ++place) {
        if (text[place] == QLatin1Char('\n')) {
            start = place + 1;
        } else if (place - start >= length && text[place - 1] == QLatin1Char(' ') && !text[place].isSpace()) {
            result.shown += QStringView(text).mid(copied, place - copied);
            result.borders.push_back(static_cast<int>(result.shown.size()));
            result.shown += QLatin1Char('\n');
            start = copied = place;
        }
    }
    result.shown += QStringView(text).mid(copied);
    return result;
}

QString without_borders(const QString& shown, const Borders& borders) {
    if (borders.empty()) {
        return shown;
    }
    QString text;
    text.reserve(shown.size());
    int copied = 0;
    for (const int border : borders) {
        text += QStringView(shown).mid(copied, border - copied);
        copied = border + 1;
    }
    return text += QStringView(shown).mid(copied);
}

int place_in_text(const Borders& borders, int place) {
    return place - static_cast<int>(std::lower_bound(borders.begin(), borders.end(), place) - borders.begin());
}

int place_in_document(const Borders& borders, int place) {
    for (const int border : borders) {
        if (border > place) {
            break;
        }
        ++place;
    }
    return place;
}

} // namespace tessit::qt
