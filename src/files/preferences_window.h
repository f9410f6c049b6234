// SPDX-License-Identifier: MIT
// The user's defaults for new levels. "Set Defaults" stores whatever the fields hold, and saves the settings.
#pragma once

#include "core/app.h"
#include "level/waves.h"
#include "platform/buttons.h"
#include "platform/choice.h"
#include "platform/edit_field.h"
#include "platform/static_controls.h"

namespace tessit {

class PreferencesWindow : public Window {
public:
    explicit PreferencesWindow(App& owner)
        : Window(owner, {.name = "SetPreferencesWindow", .title = "Preferences", .width = 470, .height = 440}),
          app(owner) {}

    StaticText wave_caption{
        *this, {.name = "wave_caption", .place = {24, 22, 180, 20}}, {.text = "Default Wave Type:"}};
    ComboBox defaultwavebox{*this,
                            {.name = "defaultwavebox", .place = {216, 20, 200, 23}, .label = "Default Wave Type"},
                            {.items = wave_texts(editor_wave_order)}};
    StaticText width_caption{
        *this, {.name = "width_caption", .place = {24, 52, 180, 20}}, {.text = "Default Packet Width:"}};
    ComboBox defaultwidthbox{*this,
                             {.name = "defaultwidthbox", .place = {216, 50, 80, 23}, .label = "Default Packet Width"},
                             {.items = {"", "1", "2", "3", "4", "5", "6", "7", "8", "9"}}};
    StaticText format_caption{
        *this, {.name = "format_caption", .place = {24, 82, 180, 20}}, {.text = "Default Time Format:"}};
    ComboBox defaultformatbox{*this,
                              {.name = "defaultformatbox", .place = {216, 80, 110, 23}, .label = "Default Time Format"},
                              {.items = {"Seconds", "MM:SS"}, .on_change = [this] { defaultformatbox_Change(); }}};
    StaticText sftime_caption{
        *this, {.name = "sftime_caption", .place = {24, 112, 180, 20}}, {.text = "Single Frequency Time:"}};
    EditField sftimefield{*this,
                          {.name = "sftimefield", .place = {216, 110, 110, 22}, .label = "Single Frequency Time"}};
    StaticText wptime_caption{
        *this, {.name = "wptime_caption", .place = {24, 142, 180, 20}}, {.text = "Wave Packet Time:"}};
    EditField wptimefield{*this, {.name = "wptimefield", .place = {216, 140, 110, 22}, .label = "Wave Packet Time"}};
    StaticText pulse_caption{
        *this, {.name = "pulse_caption", .place = {24, 172, 180, 20}}, {.text = "Default Pulsing:"}};
    ComboBox DEFAULTPULSEBOX{*this,
                             {.name = "DEFAULTPULSEBOX", .place = {216, 170, 80, 23}, .label = "Default Pulsing"},
                             {.items = {"ON", "OFF"}}};
    StaticText rate_caption{
        *this, {.name = "rate_caption", .place = {24, 202, 180, 20}}, {.text = "Default Pulse Rate:"}};
    EditField defaultratefield{
        *this, {.name = "defaultratefield", .place = {216, 200, 110, 22}, .label = "Default Pulse Rate"}};
    StaticText duty_caption{
        *this, {.name = "duty_caption", .place = {24, 232, 180, 20}}, {.text = "Default Duty Cycle:"}};
    ComboBox defaultdutybox{*this,
                            {.name = "defaultdutybox", .place = {216, 230, 80, 23}, .label = "Default Duty Cycle"},
                            {.items = {"", "10", "20", "30", "40", "50", "60", "70", "80", "90"}}};
    StaticText shape_caption{
        *this, {.name = "shape_caption", .place = {24, 262, 180, 20}}, {.text = "Default Waveshape:"}};
    ComboBox defaultshapebox{*this,
                             {.name = "defaultshapebox", .place = {216, 260, 110, 23}, .label = "Default Waveshape"},
                             {.items = {"Square", "Sine", "Triangle"}}};
    StaticText output_caption{
        *this, {.name = "output_caption", .place = {24, 292, 180, 20}}, {.text = "Default Output:"}};
    ComboBox defaultoutputbox{*this,
                              {.name = "defaultoutputbox", .place = {216, 290, 110, 23}, .label = "Default Output"},
                              {.items = {"Positive", "Negative", "Offset"}}};
    RadioButton naDecimal{*this,
                          {.name = "naDecimal", .place = {24, 328, 258, 20}},
                          {.caption = "Use North American Decimal ( . )", .on_action = [this] { naDecimal_Action(); }}};
    RadioButton isoDecimal{*this,
                           {.name = "isoDecimal", .place = {24, 354, 258, 20}},
                           {.caption = "Use ISO Decimal ( , )", .on_action = [this] { isoDecimal_Action(); }}};
    PushButton Cancelbutton{
        *this,
        {.name = "Cancelbutton", .place = {216, 394, 100, 28}},
        {.caption = "Cancel", .on_action = [this] { Cancelbutton_Action(); }, .key = ButtonKey::escape}};
    PushButton setbutton{
        *this,
        {.name = "setbutton", .place = {326, 394, 120, 28}},
        {.caption = "Set Defaults", .on_action = [this] { setbutton_Action(); }, .key = ButtonKey::enter}};

    void Event_Open() override;
    void Event_EnableMenuItems() override;

    void defaultformatbox_Change();
    void naDecimal_Action() { app.use_euro = false; } // at the click: Cancel does not undo it
    void isoDecimal_Action() { app.use_euro = true; }
    void Cancelbutton_Action() { Close(); }
    void setbutton_Action();

private:
    App& app;
};

} // namespace tessit
