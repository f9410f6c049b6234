// SPDX-License-Identifier: MIT
#include "platform/html_viewer.h"

#include "platform/application.h"

#include <algorithm>
#include <utility>

namespace tessit {

void HTMLViewer::LoadPage(const FolderItem& file, std::string_view chapter) {
    chapter_ = chapter;
    looked_for_ = {file};
    for (const FolderItem& folder : window().application().desktop().document_folders()) {
        const FolderItem installed = folder.Child(file.DisplayName());
        if (installed.path() != file.path()) {
            looked_for_.push_back(installed);
        }
    }
    const auto found =
        std::find_if(looked_for_.begin(), looked_for_.end(), [](const FolderItem& item) { return item.Exists(); });
    page_ = found == looked_for_.end() ? std::nullopt : std::optional(*found);
    ++loads_;
    show_change();
}

bool HTMLViewer::handle_command(std::string_view entry) {
    static constexpr std::pair<std::string_view, EditCommand> commands[] = {{"EditCut", EditCommand::cut},
                                                                            {"EditCopy", EditCommand::copy},
                                                                            {"EditPaste", EditCommand::paste},
                                                                            {"EditSelectAll", EditCommand::select_all}};
    for (const auto& [name, command] : commands) {
        if (name == entry) {
            if (on_edit) {
                on_edit(command);
            }
            return true;
        }
    }
    return false;
}

} // namespace tessit
