// SPDX-License-Identifier: MIT
// The entry: a desktop, the application object, the event loop.
#include "core/app.h"
#include "qt/qt_desktop.h"

int main(int argc, char* argv[]) {
    QCoreApplication::setApplicationName("tessit-control");
    tessit::qt::GuiApplication application(argc, argv);
    tessit::qt::QtDesktop desktop;
    tessit::App app(desktop, {.StageCode = tessit::Stage::TESSIT_STAGE,
                              .MajorVersion = TESSIT_MAJOR,
                              .MinorVersion = TESSIT_MINOR,
                              .BugVersion = TESSIT_BUG});
    app.start();
    return desktop.run();
}
