// SPDX-License-Identifier: MIT
// The desktop's list of files that were used lately, $XDG_DATA_HOME/recently-used.xbel, which file managers and other
// programs' dialogs show. It belongs to all programs: their entries stay as they are, and a list that can't be
// understood, is no ordinary file or is longer than five megabytes is left alone. Nothing is told of that.
#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QString>
#include <QThreadPool>
#include <filesystem>
#include <optional>
#include <vector>

namespace tessit::qt {

struct RecentFile {
    QString file; // its whole path
    QString type; // such as "text/csv"
    QDateTime used;
};

// The list with the file in it, in the form that all desktops know: a new entry at its end, or the old one
// with the time and one more use by this program. An empty list is made anew; none: it could not be understood.
std::optional<QByteArray> with_recent_file(const QByteArray& list, const RecentFile& recent);

// Notes a file in the list while the program goes on. Files that are not there, such as those whose saving failed, are
// left out.
class RecentFiles {
public:
    RecentFiles();
    void chosen(const std::filesystem::path& file) { chosen_.push_back(file); }
    void note(); // those chosen, when their opening or saving is over

private:
    std::vector<std::filesystem::path> chosen_;
    QThreadPool thread_; // one, so that they come into the list one after the other
};

} // namespace tessit::qt
