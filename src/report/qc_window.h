// SPDX-License-Identifier: MIT
// The step before the print of device data: the quality-control line above its table. The fields themselves are
// printed, with the prompts behind which the user types.
#pragma once

#include "core/app.h"
#include "platform/buttons.h"
#include "platform/edit_field.h"
#include "platform/static_controls.h"

namespace tessit {

class QcWindow : public Window {
public:
    explicit QcWindow(App& owner)
        : Window(owner, {.name = "qcsetupwindow", .title = "Zephon Data", .width = 520, .height = 208}), app(owner) {}

    EditField serialfield{
        *this, {.name = "serialfield", .place = {20, 20, 235, 24}, .label = "Device"}, {.typed_behind = true}};
    StaticText StaticText3{
        *this, {.name = "StaticText3", .place = {20, 46, 235, 18}}, {.text = "(Device#, Client etc.)"}};
    EditField assignfield{
        *this,
        {.name = "assignfield", .place = {265, 20, 235, 24}, .label = "Assigned to", .grow = Grow::width},
        {.typed_behind = true}};
    EditField qcfield{
        *this, {.name = "qcfield", .place = {20, 76, 235, 24}, .label = "Checked by"}, {.typed_behind = true}};
    StaticText StaticText6{*this, {.name = "StaticText6", .place = {265, 78, 50, 20}}, {.text = "Date:"}};
    EditField datefield{*this, {.name = "datefield", .place = {315, 76, 100, 24}, .label = "Date"}};
    StaticText StaticText4{*this, {.name = "StaticText4", .place = {20, 118, 100, 20}}, {.text = "Bank Protocol:"}};
    EditField bankfield{*this, {.name = "bankfield", .place = {125, 116, 130, 24}, .label = "Bank"}};
    EditField protocolfield{
        *this, {.name = "protocolfield", .place = {265, 116, 235, 24}, .label = "Protocol", .grow = Grow::width}};
    PushButton PushButton1{
        *this,
        {.name = "PushButton1", .place = {400, 162, 100, 28}},
        {.caption = "Print", .on_action = [this] { PushButton1_Action(); }, .key = ButtonKey::enter}};

    void Event_Open() override;

    void PushButton1_Action();

private:
    App& app;
};

} // namespace tessit
