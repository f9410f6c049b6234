// SPDX-License-Identifier: MIT
// editor_start FILE: the program as its entry makes it, whose first user chooses File > Open and FILE before anything
// else happens. So the time from its start to the painted editor is the program's alone, with no hand in between.
#include "core/app.h"
#include "qt/qt_desktop.h"

#include <QFile>

namespace {

class OpeningDesktop : public tessit::qt::QtDesktop {
public:
    explicit OpeningDesktop(const QString& file) : file_(QFile::encodeName(file).toStdString()) {}
    std::optional<tessit::FolderItem> choose_open_file(const tessit::FileRequest&) override { return file_; }

private:
    const tessit::FolderItem file_;
};

} // namespace

int main(int argc, char* argv[]) {
    QCoreApplication::setApplicationName("tessit-control");
    tessit::qt::GuiApplication application(argc, argv);
    OpeningDesktop desktop(application.arguments().value(1));
    tessit::App app(desktop, {.StageCode = tessit::Stage::beta});
    app.start();
    app.choose_menu("FileOpen");
    return desktop.run();
}
