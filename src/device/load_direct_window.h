// SPDX-License-Identifier: MIT
// Loads the table of the document window in front into a bank of the generator.
#pragma once

#include "core/app.h"
#include "device/bank_boxes.h"
#include "platform/buttons.h"
#include "platform/choice.h"
#include "platform/edit_field.h"
#include "platform/static_controls.h"

namespace tessit {

class LoadDirectWindow : public Window {
public:
    // Closing only hides it: the bank last chosen stays.
    explicit LoadDirectWindow(App& owner)
        : Window(owner, {.name = "load_direct_window",
                         .title = "Load Direct",
                         .width = 440,
                         .height = 190,
                         .lifetime = Lifetime::program}),
          app(owner) {}

    StaticText StaticText1{*this, {.name = "StaticText1", .place = {24, 26, 150, 22}}, {.text = "Set Bank # to Load"}};
    ComboBox bank_bt1{*this,
                      {.name = "bank_bt1", .place = {180, 24, 56, 24}, .label = "Bank, tens digit", .enabled = false},
                      {.items = bank_tens(), .list_index = 0, .on_change = [this] { bank_bt1_Change(); }}};
    ComboBox bank_bt0{*this,
                      {.name = "bank_bt0", .place = {240, 24, 56, 24}, .label = "Bank, units digit", .enabled = false},
                      {.items = bank_units(), .list_index = 0, .on_change = [this] { bank_bt0_Change(); }}};
    PushButton LoadButton{*this,
                          {.name = "LoadButton",
                           .place = {320, 23, 96, 26},
                           .help_tag = "Commence loading current data into Zephon",
                           .enabled = false},
                          {.caption = "Load", .on_action = [this] { LoadButton_Action(); }, .key = ButtonKey::enter}};
    StaticText loadcompleted{*this,
                             {.name = "loadcompleted", .place = {24, 76, 392, 22}, .visible = false},
                             {.text = "Load Completed", .align = Align::center}};
    EditField connectField{*this,
                           {.name = "connectField", .place = {24, 130, 392, 24}, .label = "Status"},
                           {.text = "No port selected", .read_only = true}};

    std::int32_t bank_bt_lo = 0; // the digits last chosen
    std::int32_t bank_bt_hi = 0;
    std::int32_t portnumber = 0;
    bool cts = false;

    void Event_Close() override { Hide(); }

    void bank_bt1_Change();
    void bank_bt0_Change();
    void LoadButton_Action();

private:
    App& app;
};

} // namespace tessit
