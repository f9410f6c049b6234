// SPDX-License-Identifier: MIT
// The choice of the serial port on which the generator hangs.
#pragma once

#include "core/app.h"
#include "platform/choice.h"
#include "platform/edit_field.h"
#include "platform/serial.h"
#include "platform/static_controls.h"

#include <vector>

namespace tessit {

// What the windows say of a port that is usable.
inline std::string connected_text(const Serial& line) {
    return "Serial Port:  " + line.SerialPort().Name + "  Connected";
}

// "The port is in use by minicom, process 708."; empty where no other program is known to have the port.
std::string in_use_text(const Serial& line);

// Opens the line and says in the field that it is usable, or who has it. What the field says else stays.
void tell_of_port(Serial& line, EditField& field);

class SettingsWindow : public Window {
public:
    explicit SettingsWindow(App& owner)
        : Window(owner, {.name = "settings_window", .title = "Serial Port", .width = 440, .height = 150}), app(owner) {}

    StaticText StaticText1{*this, {.name = "StaticText1", .place = {24, 30, 130, 22}}, {.text = "Use Serial Port:"}};
    ComboBox Serial_box{*this,
                        {.name = "Serial_box", .place = {160, 28, 250, 24}, .label = "Use Serial Port"},
                        {.items = {"Select"}, .list_index = 0, .on_change = [this] { Serial_box_Change(); }}};
    EditField connectField{*this,
                           {.name = "connectField", .place = {24, 84, 386, 24}, .label = "Status"},
                           {.text = "No Port Selected", .read_only = true}};
    EditField outputfield{*this, {.name = "outputfield", .place = {24, 118, 386, 22}, .visible = false}};

    void Event_Open() override;
    void Event_Activate() override; // a port plugged in since is listed
    void Event_EnableMenuItems() override;

    void Serial_box_Change();

private:
    void list_ports();
    void set_up(Serial& line);

    App& app;
    std::vector<SerialPort> ports; // as listed behind "Select"
};

} // namespace tessit
