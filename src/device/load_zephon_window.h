// SPDX-License-Identifier: MIT
// Loads a protocol file into a bank of the generator.
#pragma once

#include "core/app.h"
#include "device/bank_boxes.h"
#include "platform/buttons.h"
#include "platform/choice.h"
#include "platform/edit_field.h"
#include "platform/static_controls.h"

namespace tessit {

class LoadZephonWindow : public Window {
public:
    explicit LoadZephonWindow(App& owner)
        : Window(owner, {.name = "loadzephonWindow", .title = "Load From File", .width = 460, .height = 250}),
          app(owner) {}

    StaticText file_caption{*this, {.name = "file_caption", .place = {24, 26, 70, 22}}, {.text = "File:"}};
    EditField fn1{*this, {.name = "fn1", .place = {100, 24, 220, 24}, .label = "File"}, {.read_only = true}};
    PushButton cb1{*this,
                   {.name = "cb1", .place = {330, 23, 106, 26}},
                   {.caption = "Choose File", .on_mouse_down = [this] { return cb1_MouseDown(); }}};
    StaticText StaticText1{
        *this, {.name = "StaticText1", .place = {24, 70, 150, 22}, .enabled = false}, {.text = "Select Bank to load"}};
    ComboBox bankbox1{*this,
                      {.name = "bankbox1", .place = {180, 68, 56, 24}, .label = "Bank, tens digit", .enabled = false},
                      {.items = bank_tens(), .list_index = 0, .on_change = [this] { bank_Change(); }}};
    ComboBox bankbox0{*this,
                      {.name = "bankbox0", .place = {240, 68, 56, 24}, .label = "Bank, units digit", .enabled = false},
                      {.items = bank_units(), .list_index = 0, .on_change = [this] { bank_Change(); }}};
    PushButton loadbutton{*this,
                          {.name = "loadbutton", .place = {110, 112, 240, 26}, .enabled = false},
                          {.caption = "Click Here to Commence Loading",
                           .on_action = [this] { loadbutton_Action(); },
                           .key = ButtonKey::enter}};
    StaticText zephonloadcomplete{*this,
                                  {.name = "zephonloadcomplete", .place = {24, 154, 412, 22}, .visible = false},
                                  {.text = "Zephon Loading Completed", .align = Align::center}};
    EditField connectfield{
        *this, {.name = "connectfield", .place = {24, 200, 412, 24}, .label = "Status"}, {.read_only = true}};

    std::string Fname; // absolute path of the chosen file

    void Event_Open() override;

    bool cb1_MouseDown();
    void bank_Change();
    void loadbutton_Action();

private:
    App& app;
};

} // namespace tessit
