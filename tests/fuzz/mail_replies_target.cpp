// SPDX-License-Identifier: MIT
// A server says anything, a zero byte between two arrivals. The first byte is who sends: with an account, with one who
// takes refused messages.
#include "mail/smtp_secure_socket.h"
#include "platform/small_application.h"
#include "platform/text.h"
#include "tools/fuzzing/target.h"

namespace tessit::fuzzing {

void try_input(const std::string& input) {
    testing::ScriptedDesktop desktop;
    testing::SmallApplication app{desktop};
    const int settings = input.empty() ? 0 : input[0];
    MailEvents events;
    if ((settings & 1) != 0) {
        events.ServerError = [](int, const std::string&, const EmailMessage*) {};
    }
    SMTPSecureSocket client(app.panel.get(), {.name = "socket"}, events);
    client.Username = (settings & 2) != 0 ? "tessitassistant" : "";
    client.Messages.resize(2);
    client.Messages[0].SetToAddress("a@x.example,b@x.example");
    client.SendMail();
    desktop.scripted_sockets.accept();
    std::size_t left = client.Messages.size();
    for (const std::string& arrival : Split(input.substr(input.empty() ? 0 : 1), std::string_view("\0", 1))) {
        desktop.scripted_sockets.send(arrival);
        const std::string said = desktop.scripted_sockets.taken();
        require(said.size() < 1000 && (said.empty() || said.ends_with("\r\n")), "one command, whole");
        require(said.find("\r\n") + 2 >= said.size() || said.ends_with("\r\n.\r\n"), "of one line, or a mail");
        require(client.Messages.size() <= left, "no message comes back");
        left = client.Messages.size();
    }
}

} // namespace tessit::fuzzing
