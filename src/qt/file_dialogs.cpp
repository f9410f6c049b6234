// SPDX-License-Identifier: MIT
#include "qt/file_dialogs.h"

#include "platform/fault.h"
#include "platform/file_replacement.h"
#include "qt/dialogs.h"
#include "qt/look.h"
#include "qt/widget_text.h"

#include <QDialogButtonBox>
#include <QElapsedTimer>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QHeaderView>
#include <QLineEdit>
#include <QLocale>
#include <QPushButton>
#include <QScreen>
#include <QSplitter>
#include <QTreeView>

namespace tessit::qt {

namespace {

namespace fs = std::filesystem;

constexpr qsizetype longest_name = 255; // in bytes
constexpr qint64 quickest_user = 300;   // in milliseconds

fs::path to_path(const QString& file) {
    return QFile::encodeName(file).toStdString();
}

QString from_path(const fs::path& path) {
    return QFile::decodeName(path.c_str());
}

enum class Whose { desktops_own, qts_own };

class FileDialog : public QFileDialog {
public:
    FileDialog(QWidget* parent, const QString& title, const FileRequest& request, Whose whose)
        : QFileDialog(parent, title), extension_(to_widget(request.type.Extensions)) {
        setFont(desktop_font());
        setOption(DontUseNativeDialog, whose == Whose::qts_own);
        setSupportedSchemes({QStringLiteral("file")});
        setDirectory(from_path(request.start_folder.path()));
        setNameFilter(to_widget(request.type.Name) + QLatin1String(" (*") + extension_ + QLatin1Char(')'));
        if (!is_native()) {
            leave_button_enabled();
            widen_columns();
        }
    }

    std::optional<FolderItem> ask() {
        for (;;) {
            count_dialog();
            since_begin_.start();
            if (exec() != QDialog::Accepted || selectedFiles().isEmpty()) {
                return std::nullopt;
            }
            if (const auto file = is_native() ? settled(selected()) : selected()) {
                return FolderItem(to_path(*file));
            }
        }
    }

    // A portal that does not answer ends the dialog before anybody can have seen it.
    bool came_up() const { return !is_native() || since_begin_.hasExpired(quickest_user); }

protected:
    // Qt makes its own parts where the desktop has no dialog, and none where it has one.
    bool is_native() const { return findChild<QLineEdit*>(QStringLiteral("fileNameEdit")) == nullptr; }
    // What is meant by the answer of the desktop's own dialog, which knows none of the rules here; none: ask again.
    virtual std::optional<QString> settled(const QString& file) = 0;

    QString selected() const { return selectedFiles().value(0); }
    QString with_extension(const QString& file) const {
        return file.endsWith(extension_, Qt::CaseInsensitive) ? file : file + extension_;
    }
    // As if the user had typed this one.
    void select_instead(const QString& file) {
        if (file != selected()) {
            name_edit().setFocus(); // else what is chosen in the list stays chosen
            name_edit().setText(directory().relativeFilePath(file));
        }
    }

private:
    // Qt takes the button away from names that it thinks are none, without a word on the reason.
    void leave_button_enabled() {
        QObject::connect(&name_edit(), &QLineEdit::textChanged, this, [this](const QString& text) {
            if (!text.isEmpty()) {
                accept_button().setEnabled(true);
            }
        });
    }

    // So that names, sizes and dates can be read; wider ones that the user has made stay. On a small screen the names
    // give way.
    void widen_columns() {
        QHeaderView& header = *findChild<QTreeView*>(QStringLiteral("treeView"))->header();
        const QFontMetrics metrics(font());
        const auto widen = [&](int column, const QString& widest, int most) {
            const int wanted = metrics.horizontalAdvance(widest) + 2 * metrics.averageCharWidth() + 12;
            header.resizeSection(column, std::min(std::max(wanted, header.sectionSize(column)), most));
            return header.sectionSize(column);
        };
        const QDateTime long_date(QDate(2028, 12, 28), QTime(22, 58, 58));
        const QSize room = screen()->availableSize() - QSize(2, 3) * metrics.height(); // within the frame
        const int places = metrics.horizontalAdvance(QString(16, QLatin1Char('n')));
        const int beside_names = places + 60 + widen(1, QStringLiteral("1023.99 MiB"), room.width()) +
                                 widen(2, QString(11, QLatin1Char('n')), room.width()) +
                                 widen(3, QLocale().toString(long_date, QLocale::ShortFormat), room.width());
        const int names = widen(0, QString(38, QLatin1Char('n')), std::max(90, room.width() - beside_names));
        findChild<QSplitter*>(QStringLiteral("splitter"))->setSizes({places, beside_names - places + names});
        resize(QSize(beside_names + names, 30 * metrics.height()).expandedTo(size()).boundedTo(room));
    }

    QLineEdit& name_edit() { return *findChild<QLineEdit*>(QStringLiteral("fileNameEdit")); }
    QPushButton& accept_button() {
        const auto* box = findChild<QDialogButtonBox*>(QStringLiteral("buttonBox"));
        return *box->button(acceptMode() == AcceptSave ? QDialogButtonBox::Save : QDialogButtonBox::Open);
    }

    const QString extension_;
    QElapsedTimer since_begin_;
};

class OpenDialog : public FileDialog {
public:
    OpenDialog(QWidget* parent, const FileRequest& request, Whose whose)
        : FileDialog(parent, tr("Open"), request, whose) {
        setObjectName(QStringLiteral("open_dialog"));
        setFileMode(ExistingFile);
    }

protected:
    void accept() override {
        if (!is_native()) {
            select_instead(meant(selected()));
        }
        QFileDialog::accept();
    }
    std::optional<QString> settled(const QString& file) override { return meant(file); }

private:
    QString meant(const QString& file) const {
        const QString with = with_extension(file);
        return !QFileInfo::exists(file) && QFileInfo::exists(with) ? with : file;
    }
};

class SaveDialog : public FileDialog {
public:
    SaveDialog(QWidget* parent, const FileRequest& request, Whose whose)
        : FileDialog(parent, tr("Save"), request, whose) {
        setObjectName(QStringLiteral("save_dialog"));
        setAcceptMode(AcceptSave);
        setFileMode(AnyFile);
        propose(request);
    }

protected:
    void accept() override {
        if (is_native() || QFileInfo(selected()).isDir()) {
            return QFileDialog::accept(); // goes into it
        }
        const QString file = with_extension(selected());
        if (can_be_created(file)) {
            select_instead(file);
            QFileDialog::accept(); // asks before it replaces a file
        }
    }
    std::optional<QString> settled(const QString& chosen) override {
        const QString file = with_extension(chosen);
        const bool asked = file == chosen; // by the dialog
        if (can_be_created(file) && (asked || may_replace(file))) {
            return file;
        }
        selectFile(file);
        return std::nullopt;
    }

private:
    bool may_replace(const QString& file) {
        return !QFileInfo::exists(file) ||
               show_dialog(this, {.Message = to_model(QFileInfo(file).fileName()) + " already exists.",
                                  .Explanation = "Do you want to replace it?",
                                  .Icon = DialogIcon::caution,
                                  .ActionButton = {"Replace", true},
                                  .CancelButton = {"Cancel", true}}) == DialogAnswer::action;
    }

    // What is made of a saved file goes beside it; every other name is a bare one.
    void propose(const FileRequest& request) {
        const std::string& name = request.default_name;
        const std::string& extension = request.type.Extensions;
        const fs::path saved = name.ends_with(extension) ? name.substr(0, name.size() - extension.size()) : name;
        std::error_code error;
        if (saved.is_absolute() && fs::is_regular_file(saved, error)) {
            setDirectory(from_path(saved.parent_path()));
            selectFile(proposed_name(saved.filename().string() + extension, extension));
        } else {
            selectFile(proposed_name(name, extension));
        }
    }

    // Tried as saving itself would; nothing is left behind.
    bool can_be_created(const QString& file) {
        try {
            FileReplacement::create(to_path(file));
            return true;
        } catch (const Fault& fault) {
            show_dialog(this, {.Message = fault.what(), .Icon = DialogIcon::caution});
            return false;
        }
    }
};

template <class Dialog> std::optional<FolderItem> ask(QWidget* parent, const FileRequest& request) {
    static bool desktop_has_one = true;
    if (desktop_has_one) {
        Dialog dialog(parent, request, Whose::desktops_own);
        const auto answer = dialog.ask();
        desktop_has_one = answer || dialog.came_up();
        if (desktop_has_one) {
            return answer;
        }
    }
    return Dialog(parent, request, Whose::qts_own).ask();
}

QString cut_to(const QString& text, qsizetype most_bytes) {
    const QByteArray bytes = text.toUtf8();
    if (bytes.size() <= most_bytes) {
        return text;
    }
    while (most_bytes > 0 && (bytes[most_bytes] & 0xC0) == 0x80) { // inside a character
        --most_bytes;
    }
    return QString::fromUtf8(bytes.left(most_bytes));
}

} // namespace

std::optional<FolderItem> choose_open_file(QWidget* parent, const FileRequest& request) {
    return ask<OpenDialog>(parent, request);
}

std::optional<FolderItem> choose_save_file(QWidget* parent, const FileRequest& request) {
    return ask<SaveDialog>(parent, request);
}

QString proposed_name(const std::string& name, const std::string& extension) {
    static const QString no_name = QStringLiteral("/\\\""); // between quotes stands a list of names
    const QString ending = to_widget(extension);
    QString result = to_widget(name);
    for (QChar& character : result) {
        if (no_name.contains(character) || character.unicode() < 0x20) {
            character = QLatin1Char('-');
        }
    }
    if (result.endsWith(ending)) {
        result.chop(ending.size());
    }
    return cut_to(result, longest_name - ending.toUtf8().size()) + ending;
}

} // namespace tessit::qt
