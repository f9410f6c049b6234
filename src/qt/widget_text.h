// SPDX-License-Identifier: MIT
// Text between the program (UTF-8, lines ended by CR) and Qt's widgets (UTF-16, lines ended by LF).
#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace tessit::qt {

inline QString to_widget(std::string_view text) {
    QString result = QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
    return result.replace(QLatin1Char('\r'), QLatin1Char('\n'));
}

inline std::string to_model(QString text) {
    return text.replace(QLatin1Char('\n'), QLatin1Char('\r')).toStdString();
}

// For captions, where Qt takes "&" as the mark of a mnemonic.
inline QString to_caption(std::string_view text) {
    return to_widget(text).replace(QLatin1Char('&'), QLatin1String("&&"));
}

} // namespace tessit::qt
