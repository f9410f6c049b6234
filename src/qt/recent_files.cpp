// SPDX-License-Identifier: MIT
#include "qt/recent_files.h"

#include "platform/file_replacement.h"
#include "platform/folder_item.h"

#include <QFile>
#include <QLockFile>
#include <QMimeDatabase>
#include <QStandardPaths>
#include <QUrl>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>
#include <chrono>

namespace tessit::qt {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t most_list_bytes_read = 5'000'000;
constexpr std::chrono::milliseconds lock_patience{2000};
constexpr auto bookmark_names = "http://www.freedesktop.org/standards/desktop-bookmarks";
constexpr auto type_names = "http://www.freedesktop.org/standards/shared-mime-info";
constexpr auto owner = "http://freedesktop.org";
constexpr auto program = "Tessit Control";
constexpr auto command = "'tessit-control %f'";
constexpr auto empty_list = R"(<?xml version="1.0" encoding="UTF-8"?>
<xbel version="1.0" xmlns:bookmark="http://www.freedesktop.org/standards/desktop-bookmarks" )"
                            R"(xmlns:mime="http://www.freedesktop.org/standards/shared-mime-info"></xbel>)";

// Copies a list piece by piece, and puts in what is new where its place comes.
class ListCopy {
public:
    ListCopy(const QByteArray& list, const RecentFile& recent)
        : reader_(list), writer_(&copy_), recent_(recent),
          address_(QString::fromLatin1(QUrl::fromLocalFile(recent.file).toEncoded())),
          time_(recent.used.toUTC().toString(Qt::ISODate)) {}

    std::optional<QByteArray> made() {
        while (!reader_.atEnd()) {
            reader_.readNext();
            copy_piece();
        }
        return reader_.hasError() || !is_list_ ? std::nullopt : std::optional(copy_);
    }

private:
    void copy_piece() {
        if (reader_.isStartElement()) {
            is_list_ = is_list_ || reader_.name() == QLatin1String("xbel");
            begin_element();
        } else if (reader_.isEndElement()) {
            end_element();
        } else if (reader_.tokenType() != QXmlStreamReader::Invalid) {
            writer_.writeCurrentToken(reader_);
        }
    }

    void begin_element() {
        if (reader_.name() == QLatin1String("bookmark") && reader_.namespaceUri().isEmpty()) {
            in_own_ = !is_there_ && reader_.attributes().value(QLatin1String("href")) == address_;
            is_there_ = is_there_ || in_own_;
            if (in_own_) {
                return begin_renewed({{QStringLiteral("modified"), time_}, {QStringLiteral("visited"), time_}});
            }
        } else if (in_own_ && is_bookmark_name("application") &&
                   reader_.attributes().value(QLatin1String("name")) == QLatin1String(program)) {
            const int uses = reader_.attributes().value(QLatin1String("count")).toInt();
            is_used_ = true;
            return begin_renewed(
                {{QStringLiteral("modified"), time_}, {QStringLiteral("count"), QString::number(uses + 1)}});
        }
        writer_.writeCurrentToken(reader_);
    }

    void end_element() {
        if (in_own_ && is_bookmark_name("applications") && !is_used_) {
            write_application();
        } else if (reader_.name() == QLatin1String("bookmark") && reader_.namespaceUri().isEmpty()) {
            in_own_ = false;
        } else if (reader_.name() == QLatin1String("xbel") && !is_there_) {
            write_bookmark();
        }
        writer_.writeCurrentToken(reader_);
    }

    bool is_bookmark_name(const char* name) const {
        return reader_.name() == QLatin1String(name) && reader_.namespaceUri() == QLatin1String(bookmark_names);
    }

    void begin_renewed(const QList<std::pair<QString, QString>>& renewed) {
        writer_.writeStartElement(reader_.namespaceUri().toString(), reader_.name().toString());
        for (const auto& declared : reader_.namespaceDeclarations()) {
            writer_.writeNamespace(declared.namespaceUri().toString(), declared.prefix().toString());
        }
        QXmlStreamAttributes attributes = reader_.attributes();
        for (const auto& [name, value] : renewed) {
            attributes.removeIf([&, &key = name](const auto& old) { return old.qualifiedName() == key; });
            attributes.append(name, value);
        }
        writer_.writeAttributes(attributes);
    }

    void write_application() {
        writer_.writeEmptyElement(QLatin1String(bookmark_names), QStringLiteral("application"));
        writer_.writeAttribute(QStringLiteral("name"), QLatin1String(program));
        writer_.writeAttribute(QStringLiteral("exec"), QLatin1String(command));
        writer_.writeAttribute(QStringLiteral("modified"), time_);
        writer_.writeAttribute(QStringLiteral("count"), QStringLiteral("1"));
    }

    void write_bookmark() {
        writer_.writeStartElement(QStringLiteral("bookmark"));
        writer_.writeAttribute(QStringLiteral("href"), address_);
        for (const char* time : {"added", "modified", "visited"}) {
            writer_.writeAttribute(QLatin1String(time), time_);
        }
        writer_.writeStartElement(QStringLiteral("info"));
        writer_.writeStartElement(QStringLiteral("metadata"));
        writer_.writeAttribute(QStringLiteral("owner"), QLatin1String(owner));
        writer_.writeEmptyElement(QLatin1String(type_names), QStringLiteral("mime-type"));
        writer_.writeAttribute(QStringLiteral("type"), recent_.type);
        writer_.writeStartElement(QLatin1String(bookmark_names), QStringLiteral("applications"));
        write_application();
        for (int element = 0; element < 4; ++element) {
            writer_.writeEndElement();
        }
        writer_.writeCharacters(QStringLiteral("\n"));
    }

    QXmlStreamReader reader_;
    QByteArray copy_;
    QXmlStreamWriter writer_;
    const RecentFile& recent_;
    const QString address_;
    const QString time_;
    bool is_list_ = false;
    bool is_there_ = false; // an entry of the file
    bool in_own_ = false;   // while it is copied
    bool is_used_ = false;  // by this program, as that entry says
};

QByteArray content_of_list(const fs::path& list) {
    const FolderItem item(list);
    return item.Exists() ? QByteArray::fromStdString(item.OpenAsTextFile(most_list_bytes_read)->ReadAll())
                         : QByteArray();
}

void note_file(const fs::path& file) {
    const QString name = QFile::decodeName(file.c_str());
    const fs::path list = QFile::encodeName(QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
                                            QLatin1String("/recently-used.xbel"))
                              .toStdString();
    std::error_code error;
    fs::create_directories(list.parent_path(), error);
    QLockFile lock(QFile::decodeName(list.c_str()) + QLatin1String(".lock")); // which other programs keep as well
    if (!fs::is_regular_file(file, error) || !lock.tryLock(static_cast<int>(lock_patience.count()))) {
        return;
    }
    try {
        const bool is_new = !fs::exists(list, error);
        const QString type = QMimeDatabase().mimeTypeForFile(name, QMimeDatabase::MatchExtension).name();
        const auto noted =
            with_recent_file(content_of_list(list), {.file = name, .type = type, .used = QDateTime::currentDateTime()});
        if (noted) {
            const auto replacement = FileReplacement::create(list);
            const auto* first = reinterpret_cast<const std::uint8_t*>(noted->data());
            replacement->write({first, static_cast<std::size_t>(noted->size())});
            replacement->commit();
        }
        if (noted && is_new) {
            fs::permissions(list, fs::perms::owner_read | fs::perms::owner_write, error);
        }
    } catch (const Fault&) { // no list, then
    }
}

} // namespace

std::optional<QByteArray> with_recent_file(const QByteArray& list, const RecentFile& recent) {
    return ListCopy(list.isEmpty() ? QByteArray(empty_list) : list, recent).made();
}

RecentFiles::RecentFiles() {
    thread_.setMaxThreadCount(1);
}

void RecentFiles::note() {
    for (const fs::path& file : std::exchange(chosen_, {})) {
        thread_.start([file] { note_file(file); });
    }
}

} // namespace tessit::qt
