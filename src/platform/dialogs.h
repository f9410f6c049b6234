// SPDX-License-Identifier: MIT
// Modal dialogs as values: what is asked, and what was answered. Texts hold CR as their line end.
#pragma once

#include "platform/folder_item.h"

#include <optional>
#include <string>

namespace tessit {

enum class DialogIcon { none = -1, note = 0, caution = 1, stop = 2, question = 3 };

enum class DialogAnswer { action, cancel, alternate };

struct DialogButton {
    std::string Caption;
    bool Visible = false;
};

struct MessageDialog {
    std::string Message;
    std::string Explanation{};
    DialogIcon Icon = DialogIcon::note;
    DialogButton ActionButton{"OK", true};
    DialogButton CancelButton{"Cancel", false};
    DialogButton AlternateActionButton{};
};

struct FileRequest {
    FileType type;
    std::string default_name{}; // for saving; a bare name
    FolderItem start_folder{};
};

} // namespace tessit
