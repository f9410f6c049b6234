// SPDX-License-Identifier: MIT
// Shows a document, HTML or PDF. The model knows which one; the front end shows it, follows its links and searches it.
#pragma once

#include "platform/control.h"
#include "platform/folder_item.h"

#include <optional>
#include <string_view>
#include <vector>

namespace tessit {

enum class EditCommand { cut, copy, paste, select_all };

class HTMLViewer : public Control {
public:
    using Control::Control;

    // At a chapter, which is an anchor of an HTML page; at its beginning where it has no such one.
    // Looks for the file itself, then for one of its name in the desktop's document folders. A file that is nowhere is
    // no fault: the viewer says so.
    void LoadPage(const FolderItem& file, std::string_view chapter = "");

    const std::optional<FolderItem>& page() const { return page_; } // none before a load, and for a missing file
    const std::string& chapter() const { return chapter_; }
    const std::vector<FolderItem>& looked_for() const { return looked_for_; }
    int loads() const { return loads_; } // how many so far: the same page loaded again is shown from its beginning

    // Takes the commands of the Edit menu while its window is in front.
    bool handle_command(std::string_view entry) override;
    std::function<void(EditCommand)> on_edit{}; // set by what shows the control

private:
    std::optional<FolderItem> page_;
    std::string chapter_;
    std::vector<FolderItem> looked_for_;
    int loads_ = 0;
};

} // namespace tessit
