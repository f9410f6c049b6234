// SPDX-License-Identifier: MIT
// The progress notice that files, encoder and transfers share.
#pragma once

#include "core/app.h"
#include "platform/edit_field.h"
#include "platform/static_controls.h"

namespace tessit {

class PopupWindow : public Window {
public:
    explicit PopupWindow(App& app)
        : Window(app, {.name = "popupwindow",
                       .title = "Please wait",
                       .width = 340,
                       .height = 96,
                       .frame = WindowFrame::notice,
                       .has_menu_bar = false}) {}

    EditField statusField{
        *this, {.name = "statusField", .place = {20, 18, 300, 24}, .label = "Status"}, {.read_only = true}};
    ProgressBar ProgressBar1{*this, {.name = "ProgressBar1", .place = {20, 56, 300, 20}, .label = "Progress"}, 100};
};

} // namespace tessit
