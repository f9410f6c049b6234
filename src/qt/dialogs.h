// SPDX-License-Identifier: MIT
// Modal dialogs as values go in and answers come out. Texts are shown as they are, never as markup.
#pragma once

#include "platform/dialogs.h"
#include "platform/fault.h"

#include <QString>
#include <QWidget>
#include <optional>

namespace tessit::qt {

DialogAnswer show_dialog(QWidget* parent, const MessageDialog& dialog);
void show_fault(QWidget* parent, const FaultReport& report);
std::optional<FolderItem> choose_open_file(QWidget* parent, const FileRequest& request);
std::optional<FolderItem> choose_save_file(QWidget* parent, const FileRequest& request);

// A proposed name as a bare one: "a/b" becomes "a-b".
QString harmless_file_name(const std::string& name);

// How many dialogs have been shown; tells whether some code showed one. Who shows one elsewhere counts it.
int dialogs_shown();
void count_dialog();

} // namespace tessit::qt
