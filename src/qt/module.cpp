// SPDX-License-Identifier: MIT
#include "qt/module.h"

#include "platform/fault.h"

#include <QCoreApplication>
#include <QDir>
#include <QPluginLoader>
#include <algorithm>

namespace tessit::qt {

namespace {

[[noreturn]] void refuse(const Module& module, const QString& reason) {
    const QString what =
        QStringLiteral("The program %1 by the file \"%2\". %3").arg(module.purpose, module.file, reason);
    throw Fault(FaultKind::read_failed, what.toStdString());
}

} // namespace

Module module_of_program(const QString& purpose, const QString& file) {
    const QDir beside_program(QCoreApplication::applicationDirPath());
    const QString installed = beside_program.absoluteFilePath(QStringLiteral(TESSIT_MODULE_FOLDER));
    return {purpose, file, {beside_program.path(), QDir::cleanPath(installed)}};
}

QObject& load(const Module& module) {
    const auto folder = std::find_if(module.folders.begin(), module.folders.end(),
                                     [&](const QString& place) { return QDir(place).exists(module.file); });
    if (folder == module.folders.end()) {
        refuse(module, QStringLiteral("It was not found here: %1").arg(module.folders.join(QLatin1String(", "))));
    }
    QPluginLoader loader(QDir(*folder).filePath(module.file));
    QObject* const loaded = loader.instance();
    if (loaded == nullptr) {
        refuse(module, QStringLiteral("It can't be used: %1").arg(loader.errorString()));
    }
    return *loaded;
}

void refuse_version_of(const Module& module) {
    refuse(module, QStringLiteral("It belongs to another version of the program."));
}

} // namespace tessit::qt
