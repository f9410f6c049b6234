// SPDX-License-Identifier: MIT
// Messages and faults as modal dialogs: values go in and answers come out. Texts are shown as they are, never as
// markup.
#pragma once

#include "platform/dialogs.h"
#include "platform/fault.h"

#include <QWidget>

namespace tessit::qt {

DialogAnswer show_dialog(QWidget* parent, const MessageDialog& dialog); // ended without a button: cancel
void show_fault(QWidget* parent, const FaultReport& report);

// How many dialogs have been shown; tells whether some code showed one. Who shows one elsewhere counts it.
int dialogs_shown();
void count_dialog();

} // namespace tessit::qt
