// SPDX-License-Identifier: MIT
// What the front end remembers from one start to the next and nobody has set: "desktop.ini" in a folder of the user's
// state, with a group for each subject, such as "folders/...". It is a convenience: where the file is missing, damaged,
// no ordinary file or can't be written, all goes on without it, and nothing is told.
#pragma once

#include <QSettings>
#include <filesystem>
#include <optional>

namespace tessit::qt {

class DesktopState {
public:
    explicit DesktopState(const std::filesystem::path& folder); // made when something is set; empty: nothing is kept

    QVariant value(const QString& key) const;            // invalid where none is kept
    void set(const QString& key, const QVariant& value); // on the disk when the event loop runs again

private:
    std::optional<QSettings> file_;
};

} // namespace tessit::qt
