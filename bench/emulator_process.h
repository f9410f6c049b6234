// SPDX-License-Identifier: MIT
// A running zephon-emulator in receive mode, and its console. It announces its port in a runtime folder that only
// this process looks into.
#pragma once

#include <QProcess>
#include <QTemporaryDir>

namespace tessit::bench {

class EmulatorProcess {
public:
    explicit EmulatorProcess(const QString& program); // returns when it is ready; throws std::runtime_error
    ~EmulatorProcess();

    QStringList ask(const QString& command); // the lines of the answer without "ok"; throws std::runtime_error

private:
    QString next_line();

    QTemporaryDir runtime_folder_;
    QProcess process_;
};

} // namespace tessit::bench
