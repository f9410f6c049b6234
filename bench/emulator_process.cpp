// SPDX-License-Identifier: MIT
#include "bench/emulator_process.h"

#include <stdexcept>

namespace tessit::bench {

namespace {
constexpr int patience = 10'000; // milliseconds
}

EmulatorProcess::EmulatorProcess(const QString& program) {
    qputenv("XDG_RUNTIME_DIR", QFile::encodeName(runtime_folder_.path()));
    process_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process_.start(program, {QStringLiteral("--receive"), QStringLiteral("--exit-on-eof")});
    while (next_line() != QLatin1String("ready")) {
    }
}

EmulatorProcess::~EmulatorProcess() {
    process_.closeWriteChannel();
    process_.waitForFinished(patience);
}

QStringList EmulatorProcess::ask(const QString& command) {
    process_.write(command.toUtf8() + '\n');
    QStringList lines;
    for (QString line = next_line(); line != QLatin1String("ok"); line = next_line()) {
        if (line.startsWith(QLatin1String("error"))) {
            throw std::runtime_error(line.toStdString());
        }
        lines << line;
    }
    return lines;
}

QString EmulatorProcess::next_line() {
    while (!process_.canReadLine()) {
        if (!process_.waitForReadyRead(patience)) {
            throw std::runtime_error("the emulator does not answer");
        }
    }
    return QString::fromUtf8(process_.readLine()).trimmed();
}

} // namespace tessit::bench
