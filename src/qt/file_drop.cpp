// SPDX-License-Identifier: MIT
#include "qt/file_drop.h"

#include "platform/application.h"
#include "qt/window_widget.h"

#include <QDropEvent>
#include <QFile>
#include <QMimeData>
#include <QPointer>
#include <QUrl>
#include <algorithm>
#include <vector>

namespace tessit::qt {

namespace {

// What the drag holds, if that is files of this machine alone.
std::vector<FolderItem> files_of(const QMimeData& data) {
    std::vector<FolderItem> files;
    for (const QUrl& url : data.urls()) {
        if (!url.isLocalFile()) {
            return {};
        }
        files.emplace_back(QFile::encodeName(url.toLocalFile()).toStdString());
    }
    return files;
}

bool can_be_opened(Window* window, const std::vector<FolderItem>& files) {
    return window != nullptr && !files.empty() && std::all_of(files.begin(), files.end(), [&](const FolderItem& file) {
               return window->application().takes(*window, file);
           });
}

void open_all(Window& window, const std::vector<FolderItem>& files) {
    Application& application = window.application();
    window.activate();
    for (const FolderItem& file : files) { // an opened file may have closed the window, or forbid the next one
        application.choose_menu(application.opening_entry(file), file);
    }
}

} // namespace

FileDrop::FileDrop(WindowWidget& window) : QObject(&window), window_(window) {
    window.setAcceptDrops(true);
    window.installEventFilter(this);
    for (QWidget* widget : window.findChildren<QWidget*>()) { // a text field would take the file's name as text
        widget->installEventFilter(this);
    }
}

bool FileDrop::eventFilter(QObject*, QEvent* event) {
    const bool dropped = event->type() == QEvent::Drop;
    if (!dropped && event->type() != QEvent::DragEnter && event->type() != QEvent::DragMove) {
        return false;
    }
    auto& drag = static_cast<QDropEvent&>(*event);
    if (!drag.mimeData()->hasUrls()) {
        return false;
    }
    const auto files = files_of(*drag.mimeData());
    drag.setDropAction(Qt::CopyAction); // the file stays where it is
    drag.setAccepted(can_be_opened(window_.model(), files));
    if (dropped && drag.isAccepted()) { // the file manager is not kept waiting for dialogs
        window_.model()->application().desktop().call_soon([window = QPointer(&window_), files] {
            if (window != nullptr && can_be_opened(window->model(), files)) {
                open_all(*window->model(), files);
            }
        });
    }
    return true;
}

} // namespace tessit::qt
