// SPDX-License-Identifier: MIT
// Sends mails, one after another, straight to a server. A state machine that each reply of the server moves on; it
// waits for nothing and knows no time-out. A message that the server refuses stays at the head of the queue and is
// tried again for as long as the server refuses and the socket lives, unless a handler of ServerError takes it.
#pragma once

#include "mail/email_message.h"
#include "platform/socket.h"

#include <deque>
#include <string>
#include <vector>

namespace tessit {

struct MailEvents { // each raised only where there is a handler
    std::function<void(const std::string& greeting)> ConnectionEstablished{};
    std::function<void(const EmailMessage& email)> MessageSent{};
    std::function<void()> MailSent{};
    // `email` is null where no message was under way.
    std::function<void(int code, const std::string& text, const EmailMessage* email)> ServerError{};
};

class SMTPSecureSocket : public SSLSocket {
public:
    SMTPSecureSocket(Window& window, SocketDesign design, MailEvents events = {})
        : SSLSocket(window, std::move(design)), events_(std::move(events)) {}

    std::deque<EmailMessage> Messages; // the first one is under way
    std::string Username;              // not empty: EHLO and authentication
    std::string Password;

    void SendMail();
    void DisconnectFromServer();
    void DeleteAllMessages() { Messages.clear(); }

    Random random = Rnd; // for tests to replace

protected:
    void Event_Connected() override;
    void Event_DataAvailable() override;

private:
    enum Mode : std::int32_t {
        resetting = -100,
        introducing = -1, // EHLO sent, or authentication going on
        ready = 0,        // the next 250 starts a message
        naming_people = 1,
        people_named = 2,
        data_announced = 3,
        text_sent = 4,
    };

    void _SendCommand(const std::string& command);
    void _SendIntroduction(const std::string& command, Mode mode);
    void _ProcessData(const std::string& reply);
    void greeted(const std::string& reply);
    void accepted(const std::string& reply);
    void next_recipient();
    void message_sent();
    void answer_prompt();
    void send_message_data();
    void refused(int code, const std::string& reply);
    void _Reset();
    void _NextMessage();
    void _StartSendingMessage();
    void _BuildRecipientList(const EmailMessage& message);
    std::string _GetAuthenticationKeys(const std::string& reply);
    std::string _GetMessageData(EmailMessage& message);
    EmailMessage take_message();

    const MailEvents events_;
    Mode _mode = ready;
    std::int32_t _nextRecipID = 0;
    std::vector<std::string> _recipients; // each in angle brackets
    std::deque<std::string> _authKeys;
};

// The address alone, in angle brackets: what stands between "<" and ">" where it holds them.
std::string _ConvertAddress(std::string_view address);

} // namespace tessit
