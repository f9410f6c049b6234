// SPDX-License-Identifier: MIT
// The entry: a desktop, the application object, the event loop.
#include "core/app.h"
#include "program/command_line.h"
#include "qt/qt_desktop.h"

#include <cstdio>

namespace {

void begin_work(tessit::App& app, const std::optional<std::filesystem::path>& file) {
    const bool restored = app.offer_recovery();
    if (file && restored) {
        app.MsgBox(file->filename().string() + " was not opened, because restored work is open.");
    } else if (file) {
        app.open_file(tessit::FolderItem(*file));
    }
}

int run(int argc, char* argv[], const std::optional<std::filesystem::path>& file) {
    QCoreApplication::setApplicationName("tessit-control");
    QGuiApplication::setDesktopFileName("example.tessit.Control"); // by it Wayland finds the windows' icon
    tessit::qt::GuiApplication application(argc, argv);
    tessit::qt::QtDesktop desktop;
    tessit::App app(desktop, {.StageCode = tessit::Stage::TESSIT_STAGE,
                              .MajorVersion = TESSIT_MAJOR,
                              .MinorVersion = TESSIT_MINOR,
                              .BugVersion = TESSIT_BUG});
    app.start();
    desktop.call_soon([&] { begin_work(app, file); }); // with the main window to be seen
    return desktop.run();
}

} // namespace

int main(int argc, char* argv[]) {
    const tessit::CommandLine line = tessit::read_command_line(argc, argv);
    switch (line.wish) {
    case tessit::CommandLine::Wish::start:
        return run(argc, argv, line.file);
    case tessit::CommandLine::Wish::help:
        std::fputs(tessit::usage, stdout);
        return 0;
    case tessit::CommandLine::Wish::version:
        std::printf("tessit-control %d.%d.%d\n", TESSIT_MAJOR, TESSIT_MINOR, TESSIT_BUG);
        return 0;
    case tessit::CommandLine::Wish::none:
        std::fputs(tessit::usage, stderr);
    }
    return 2;
}
