// SPDX-License-Identifier: MIT
// The Qt desktop for tests of the whole program: a program folder of its own, the same fonts everywhere, and message
// boxes that answer themselves.
#pragma once

#include "qt/qt_desktop.h"

#include <QTemporaryDir>

namespace tessit::qt {

class FolderDesktop : public QtDesktop {
public:
    FolderItem program_folder() override { return FolderItem(folder.path().toStdString()); }
    DialogAnswer show_dialog(const MessageDialog&) override { return DialogAnswer::action; }

    const std::vector<std::string>& fonts() override { return font_names; }

    QTemporaryDir folder;
    std::vector<std::string> font_names{"Arial", "Liberation Sans Narrow", "Noto Sans Mono CJK SC"};
};

} // namespace tessit::qt
