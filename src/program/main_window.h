// SPDX-License-Identifier: MIT
// Window1: a splash-like panel with title and version. Every task is reached from the menu bar. It reads the
// settings file when the program starts, owns the serial line, and ends the program when it is closed.
#pragma once

#include "core/app.h"
#include "mail/smtp_secure_socket.h"
#include "platform/edit_field.h"
#include "platform/serial.h"
#include "platform/static_controls.h"

namespace tessit {

class MainWindow : public Window {
public:
    explicit MainWindow(App& owner)
        : Window(owner, {.name = "Window1",
                         .title = "Tessit Control",
                         .width = 574,
                         .height = 274,
                         .color = {0xF7F7F7},
                         .frame = WindowFrame::document,
                         .lifetime = Lifetime::program}),
          serial_port(owner.desktop().serial_ports()), app(owner) {
        SMTSecureSocket1.Secure = true;
    }

    static constexpr auto where_to_begin = "To begin, choose Create New File in the menu File and type a frequency, "
                                           "or choose Open and a protocol.";

    ImageWell ImageWell1{
        *this,
        {.name = "ImageWell1", .place = {237, 20, 100, 76}, .label = "Tessit Control", .help_tag = where_to_begin},
        "logo"};
    StaticText StaticText2{*this,
                           {.name = "StaticText2", .place = {20, 104, 534, 44}, .help_tag = where_to_begin},
                           {.text = "Zephon Tessit", .align = Align::center, .text_size = 30, .bold = true}};
    StaticText StaticText3{*this,
                           {.name = "StaticText3", .place = {20, 152, 534, 22}, .help_tag = where_to_begin},
                           {.text = "Protocols for the Zephon II frequency generator", .align = Align::center}};
    StaticText versiontext{*this, {.name = "versiontext", .place = {20, 180, 534, 22}}, {.align = Align::center}};
    EditField StatusField{*this,
                          {.name = "StatusField", .place = {137, 222, 300, 24}, .label = "Status", .visible = false},
                          {.align = Align::center, .read_only = true}};

    Serial serial_port;

    // Nothing connects these two.
    TCPSocket TCPSocket1{*this,
                         {.name = "TCPSocket1",
                          .on_connected = [this] { app.MsgBox("secure Socket connected", DialogIcon::note); },
                          .on_data_available = [this] { app.MsgBox("data available", DialogIcon::note); },
                          .on_send_complete = [this](bool) { TCPSocket1_SendComplete(); },
                          .on_error = [this] { app.MsgBox("error sending e-mail"); }}};
    SMTPSecureSocket SMTSecureSocket1{*this, {.name = "SMTSecureSocket1"}};

    void Event_Open() override;
    void Event_Close() override;
    void Event_EnableMenuItems() override;

private:
    void TCPSocket1_SendComplete();
    void complete_credentials();
    void show_version();
    std::string read_settings_file();
    void take_settings(const std::string& text);
    void take_setting(const Array<std::string>& items);
    void restore_serial_port();

    App& app;
};

} // namespace tessit
