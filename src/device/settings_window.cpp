// SPDX-License-Identifier: MIT
#include "device/settings_window.h"

#include "core/enable_rules.h"
#include "platform/text.h"

namespace tessit {

namespace {

constexpr int choosable_ports = 4; // the others are listed, and choosing them leaves the port as it was

std::string words_on(const PortHolder& holder) {
    return "in use by " + (holder.program.empty() ? "another program" : holder.program) + ", process " +
           Str(holder.process);
}

} // namespace

std::string in_use_text(const Serial& line) {
    const auto holder = line.other_holder();
    return holder ? "The port is " + words_on(*holder) + "." : "";
}

void tell_of_port(Serial& line, EditField& field) {
    if (line.Open()) {
        field.SetText(connected_text(line));
    } else if (const auto holder = line.other_holder()) {
        field.SetText("Port " + words_on(*holder)); // short: the number must be seen
    }
}

void SettingsWindow::Event_Open() {
    list_ports();
}

void SettingsWindow::Event_Activate() {
    list_ports();
}

void SettingsWindow::list_ports() {
    ports = app.System.serial_ports();
    std::vector<std::string> rows{Serial_box.List(0)};
    for (const SerialPort& port : ports) {
        rows.push_back(port.Name);
    }
    Serial_box.ReplaceRows(rows);
}

void SettingsWindow::Serial_box_Change() {
    const int port = Serial_box.ListIndex() - 1;
    if (port == -1) {
        return app.MsgBox("No Port Selected");
    }
    Serial& line = app.serial_line();
    if (port >= 0 && port < choosable_ports) {
        line.SetSerialPort(ports[static_cast<std::size_t>(port)]);
        app.portnum = port;
    }
    if (!line.Open()) {
        app.ShowModal({.Message = "The Serial Port Could Not Be Opened",
                       .Explanation = in_use_text(line),
                       .Icon = DialogIcon::caution});
        return;
    }
    set_up(line);
    connectField.SetText(connected_text(line));
    app.serialselected = true;
}

void SettingsWindow::set_up(Serial& line) {
    line.SetDataTerminalReady(false);
    line.SetDTR(false);
    line.SetCTS(false);
    line.SetBaud(19200);
    line.SetBits(8);
    line.SetParity(SerialParity::none);
    line.SetStop(1);
    line.SetXON(false);
    line.SetRequestToSend(true);
    line.Poll();
}

void SettingsWindow::Event_EnableMenuItems() {
    settings_window_rules.apply(app.MenuBar1);
}

bool App::_SettingsSetSerialPort_Action() {
    settings_window->Show();
    return true;
}

} // namespace tessit
