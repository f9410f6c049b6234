// SPDX-License-Identifier: MIT
#include "qt/desktop_state.h"

#include <QFile>

namespace tessit::qt {

namespace {

namespace fs = std::filesystem;

constexpr std::uintmax_t most_state_bytes = 1'000'000;

// A pipe in its place would keep the program waiting.
bool can_be_read(const fs::path& file) {
    std::error_code error;
    const fs::file_status status = fs::status(file, error);
    return !fs::exists(status) || (fs::is_regular_file(status) && fs::file_size(file, error) <= most_state_bytes);
}

} // namespace

DesktopState::DesktopState(const fs::path& folder) {
    const fs::path file = folder / "desktop.ini";
    if (!folder.empty() && can_be_read(file)) {
        file_.emplace(QFile::decodeName(file.c_str()), QSettings::IniFormat);
    }
}

QVariant DesktopState::value(const QString& key) const {
    return file_ ? file_->value(key) : QVariant();
}

void DesktopState::set(const QString& key, const QVariant& value) {
    if (file_ && file_->value(key) != value) {
        file_->setValue(key, value);
    }
}

} // namespace tessit::qt
