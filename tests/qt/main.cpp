// SPDX-License-Identifier: MIT
// Runs the front end's tests in one application object, on the platform that draws into memory unless told otherwise.
#include "qt/qt_desktop.h"

#include <QStandardPaths>
#include <gtest/gtest.h>

int main(int argc, char* argv[]) {
    testing::InitGoogleTest(&argc, argv);
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    QStandardPaths::setTestModeEnabled(true);
    tessit::qt::GuiApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
