// SPDX-License-Identifier: MIT
// Finds and loads modules: parts of the program in files of their own, since Qt's libraries for them would slow down
// every start and few starts need them. A module stays, once loaded, until the program's end. What it gives has an
// interface (Q_DECLARE_INTERFACE with the program's version), for both sides of it are made by one build.
#pragma once

#include <QObject>
#include <QStringList>

namespace tessit::qt {

struct Module {
    QString purpose;     // what the program does by it, such as "shows PDF documents"
    QString file;        // its name
    QStringList folders; // where it is looked for, one after the other
};

Module module_of_program(const QString& purpose, const QString& file); // beside the executable, or installed with it

// In the first of the folders that has the module; faults say what is missing, or why it can't be used.
QObject& load(const Module& module);
[[noreturn]] void refuse_version_of(const Module& module);

template <class Interface> Interface& load_as(const Module& module) {
    auto* const loaded = qobject_cast<Interface*>(&load(module));
    if (loaded == nullptr) {
        refuse_version_of(module);
    }
    return *loaded;
}

} // namespace tessit::qt
