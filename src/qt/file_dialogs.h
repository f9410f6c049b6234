// SPDX-License-Identifier: MIT
// The dialogs that ask for a file: the desktop's own where its platform theme or its portal offers them, else Qt's. A
// name without the type's extension gets it, so that what the dialog says of a file is about the one that will be
// opened or written.
#pragma once

#include "platform/dialogs.h"

#include <QString>
#include <QWidget>
#include <optional>
#include <string>

namespace tessit::qt {

std::optional<FolderItem> choose_open_file(QWidget* parent, const FileRequest& request);
// Refuses a name under which no file can be created itself, with the reason, and stays, or is there again.
std::optional<FolderItem> choose_save_file(QWidget* parent, const FileRequest& request);

// The bare name that a dialog proposes: "a/b" becomes "a-b", and what is too long for the file system is cut in front
// of the extension.
QString proposed_name(const std::string& name, const std::string& extension);

} // namespace tessit::qt
