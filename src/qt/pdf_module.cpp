// SPDX-License-Identifier: MIT
#include "qt/pdf_module.h"

#include "platform/fault.h"
#include "qt/pdf_page.h"

#include <QCoreApplication>
#include <QDir>
#include <QPluginLoader>
#include <algorithm>

namespace tessit::qt {

namespace {

constexpr QLatin1String module_file(TESSIT_PDF_MODULE);

QString path_in(const QString& folder) {
    return folder + '/' + module_file;
}

Fault without_module(const QString& reason) {
    const QString what =
        QStringLiteral("The program shows PDF documents by the file \"%1\". %2").arg(module_file, reason);
    return {FaultKind::read_failed, what.toStdString()};
}

} // namespace

QStringList pdf_module_folders() {
    const QDir beside_program(QCoreApplication::applicationDirPath());
    return {beside_program.path(),
            QDir::cleanPath(beside_program.absoluteFilePath(QStringLiteral(TESSIT_MODULE_FOLDER)))};
}

PdfPage& make_pdf_page(QWidget& parent, const QStringList& folders) {
    const auto folder = std::find_if(folders.begin(), folders.end(),
                                     [](const QString& place) { return QFile::exists(path_in(place)); });
    if (folder == folders.end()) {
        throw without_module(QStringLiteral("It was not found here: %1").arg(folders.join(QLatin1String(", "))));
    }
    QPluginLoader loader(path_in(*folder));
    auto* pages = qobject_cast<PdfPages*>(loader.instance());
    if (pages == nullptr && loader.isLoaded()) {
        throw without_module(QStringLiteral("It belongs to another version of the program."));
    }
    if (pages == nullptr) {
        throw without_module(QStringLiteral("It can't be used: %1").arg(loader.errorString()));
    }
    return pages->make_page(parent);
}

} // namespace tessit::qt
