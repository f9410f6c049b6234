// SPDX-License-Identifier: MIT
// Runs the front end's tests in one application object, on the platform that draws into memory unless told otherwise.
#include "qt/qt_desktop.h"

#include <QStandardPaths>
#include <QTemporaryDir>
#include <gtest/gtest.h>

int main(int argc, char* argv[]) {
    testing::InitGoogleTest(&argc, argv);
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    QStandardPaths::setTestModeEnabled(true);
    const QTemporaryDir state; // and not the developer's own
    qputenv("XDG_STATE_HOME", QFile::encodeName(state.path()));
    tessit::qt::GuiApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
