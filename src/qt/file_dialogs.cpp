// SPDX-License-Identifier: MIT
#include "qt/file_dialogs.h"

#include "platform/fault.h"
#include "platform/file_replacement.h"
#include "qt/dialogs.h"
#include "qt/look.h"
#include "qt/widget_text.h"

#include <QDialogButtonBox>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QLineEdit>
#include <QPushButton>

namespace tessit::qt {

namespace {

namespace fs = std::filesystem;

constexpr qsizetype longest_name = 255; // in bytes

fs::path to_path(const QString& file) {
    return QFile::encodeName(file).toStdString();
}

QString from_path(const fs::path& path) {
    return QFile::decodeName(path.c_str());
}

class FileDialog : public QFileDialog {
public:
    FileDialog(QWidget* parent, const QString& title, const FileRequest& request)
        : QFileDialog(parent, title), extension_(to_widget(request.type.Extensions)) {
        setFont(desktop_font());
        setOption(DontUseNativeDialog); // alike everywhere, and its rules are known
        setDirectory(from_path(request.start_folder.path()));
        setNameFilter(to_widget(request.type.Name) + QLatin1String(" (*") + extension_ + QLatin1Char(')'));
        // Qt takes the button away from names that it thinks are none, without a word on the reason.
        QObject::connect(&name_edit(), &QLineEdit::textChanged, this, [this](const QString& text) {
            if (!text.isEmpty()) {
                accept_button().setEnabled(true);
            }
        });
    }

    std::optional<FolderItem> ask() {
        count_dialog();
        if (exec() != QDialog::Accepted || selectedFiles().isEmpty()) {
            return std::nullopt;
        }
        return FolderItem(to_path(selected()));
    }

protected:
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
    QLineEdit& name_edit() { return *findChild<QLineEdit*>(QStringLiteral("fileNameEdit")); }
    QPushButton& accept_button() {
        const auto* box = findChild<QDialogButtonBox*>(QStringLiteral("buttonBox"));
        return *box->button(acceptMode() == AcceptSave ? QDialogButtonBox::Save : QDialogButtonBox::Open);
    }

    const QString extension_;
};

class OpenDialog : public FileDialog {
public:
    OpenDialog(QWidget* parent, const FileRequest& request) : FileDialog(parent, tr("Open"), request) {
        setObjectName(QStringLiteral("open_dialog"));
        setFileMode(ExistingFile);
    }

protected:
    void accept() override {
        const QString file = with_extension(selected());
        if (!QFileInfo::exists(selected()) && QFileInfo::exists(file)) {
            select_instead(file);
        }
        QFileDialog::accept();
    }
};

class SaveDialog : public FileDialog {
public:
    SaveDialog(QWidget* parent, const FileRequest& request) : FileDialog(parent, tr("Save"), request) {
        setObjectName(QStringLiteral("save_dialog"));
        setAcceptMode(AcceptSave);
        setFileMode(AnyFile);
        propose(request);
    }

protected:
    void accept() override {
        if (QFileInfo(selected()).isDir()) {
            return QFileDialog::accept(); // goes into it
        }
        const QString file = with_extension(selected());
        if (can_be_created(file)) {
            select_instead(file);
            QFileDialog::accept(); // asks before it replaces a file
        }
    }

private:
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
    return OpenDialog(parent, request).ask();
}

std::optional<FolderItem> choose_save_file(QWidget* parent, const FileRequest& request) {
    return SaveDialog(parent, request).ask();
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
