// SPDX-License-Identifier: MIT
#include "mail/smtp_secure_socket.h"

#include "platform/text.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <utility>

namespace tessit {

namespace {

constexpr int base64_line = 76;

// The number at the beginning; 0 where none is. Of "250-first line" it is 250.
int code_of(std::string_view reply) {
    int code = 0;
    std::from_chars(reply.data(), reply.data() + reply.size(), code);
    return code;
}

std::string trimmed(std::string_view text) {
    const std::size_t first = text.find_first_not_of(" \t\r\n");
    return first == std::string_view::npos
               ? ""
               : std::string(text.substr(first, text.find_last_not_of(" \t\r\n") - first + 1));
}

bool holds(const std::string& text, std::string_view upper_case_word) {
    return std::search(text.begin(), text.end(), upper_case_word.begin(), upper_case_word.end(),
                       [](char a, char b) { return std::toupper(static_cast<unsigned char>(a)) == b; }) != text.end();
}

bool ends_a_line(const std::string& text) {
    return text.size() >= 2 && text.compare(text.size() - 2, 2, mail_line_end) == 0;
}

} // namespace

std::string _ConvertAddress(std::string_view address) {
    std::string text = trimmed(address);
    if (const std::size_t open = text.find('<'); open != std::string::npos) {
        text = text.substr(open + 1);
        text = text.substr(0, text.find('>'));
    }
    return "<" + text + ">";
}

void SMTPSecureSocket::SendMail() {
    if (Port == 0) {
        Port = 25;
    }
    Connect();
}

void SMTPSecureSocket::DisconnectFromServer() {
    _mode = ready;
    _nextRecipID = 0;
    _SendCommand("QUIT");
}

void SMTPSecureSocket::Event_Connected() {
    _mode = ready;
    _authKeys.clear(); // answers that an earlier connection did not come to give are none of this one's
    SSLSocket::Event_Connected();
}

// Only what ends in a line end is taken, all of it as one reply. A reply that arrives in pieces which happen to end
// their lines is several replies.
void SMTPSecureSocket::Event_DataAvailable() {
    std::size_t last_time = 0;
    for (;;) {
        const std::string waiting = Lookahead();
        if (waiting.empty() || waiting.size() == last_time) {
            break;
        }
        last_time = waiting.size();
        if (ends_a_line(waiting)) {
            _ProcessData(ReadAll());
        }
    }
    SSLSocket::Event_DataAvailable();
}

void SMTPSecureSocket::_SendCommand(const std::string& command) {
    Write(command + mail_line_end);
}

void SMTPSecureSocket::_SendIntroduction(const std::string& command, Mode mode) {
    _SendCommand(command + " [" + LocalAddress() + "]");
    _mode = mode;
}

void SMTPSecureSocket::_ProcessData(const std::string& reply) {
    int code = code_of(reply);
    if (code == 235) { // authenticated: from here on as if freshly greeted
        _mode = ready;
        code = 250;
    }
    switch (code) {
    case 220:
        return greeted(reply);
    case 250:
        return accepted(reply);
    case 334:
        return answer_prompt();
    case 354:
        return send_message_data();
    case 221:
        return;
    case 500:
    case 502:
        if (_mode == introducing) { // the server has no EHLO; in any other mode nothing is answered
            _SendIntroduction("HELO", ready);
        }
        return;
    default:
        return refused(code, reply);
    }
}

void SMTPSecureSocket::greeted(const std::string& reply) {
    if (Messages.empty()) {
        return DisconnectFromServer();
    }
    if (events_.ConnectionEstablished) {
        const std::string greeting = reply.size() > 4 ? reply.substr(4) : "";
        events_.ConnectionEstablished(greeting.substr(0, greeting.find(mail_line_end)));
    }
    if (Username.empty()) {
        _SendIntroduction("HELO", ready);
    } else {
        _SendIntroduction("EHLO", introducing);
    }
}

void SMTPSecureSocket::accepted(const std::string& reply) {
    switch (_mode) {
    case resetting:
        return _NextMessage();
    case introducing:
        return _SendCommand(_GetAuthenticationKeys(reply));
    case ready:
        return _StartSendingMessage();
    case naming_people:
        return next_recipient();
    case people_named:
        _mode = data_announced;
        return _SendCommand("DATA");
    case data_announced:
        return;
    case text_sent:
        return message_sent();
    }
}

// A message without recipients sends nothing here and waits for ever.
void SMTPSecureSocket::next_recipient() {
    const auto count = static_cast<std::int32_t>(_recipients.size());
    ++_nextRecipID;
    if (_nextRecipID >= count) {
        _mode = people_named;
    }
    if (_nextRecipID - 1 < count) {
        _SendCommand("RCPT TO: " + _recipients[static_cast<std::size_t>(_nextRecipID - 1)]);
    }
}

EmailMessage SMTPSecureSocket::take_message() {
    EmailMessage message = std::move(Messages.front());
    Messages.pop_front();
    return message;
}

void SMTPSecureSocket::message_sent() {
    if (!Messages.empty()) {
        const EmailMessage sent = take_message();
        if (events_.MessageSent) {
            events_.MessageSent(sent);
        }
    }
    _NextMessage();
}

void SMTPSecureSocket::answer_prompt() {
    if (!_authKeys.empty()) {
        _SendCommand(_authKeys.front());
        _authKeys.pop_front();
    }
    _mode = ready;
}

void SMTPSecureSocket::send_message_data() {
    _mode = text_sent;
    if (!Messages.empty()) {
        _SendCommand(_GetMessageData(Messages.front()));
    }
}

void SMTPSecureSocket::refused(int code, const std::string& reply) {
    if (events_.ServerError) {
        const EmailMessage refused_message = Messages.empty() ? EmailMessage{} : Messages.front();
        const bool under_way = !Messages.empty();
        if (under_way) {
            Messages.pop_front();
        }
        events_.ServerError(code, reply, under_way ? &refused_message : nullptr);
    }
    _mode = resetting;
    _Reset();
}

void SMTPSecureSocket::_Reset() {
    _SendCommand("RSET");
}

void SMTPSecureSocket::_NextMessage() {
    if (!Messages.empty()) {
        return _StartSendingMessage();
    }
    if (events_.MailSent) {
        events_.MailSent();
    }
    DisconnectFromServer();
}

void SMTPSecureSocket::_StartSendingMessage() {
    if (Messages.empty()) { // an odd server's second 250
        return;
    }
    _mode = naming_people;
    _BuildRecipientList(Messages.front());
    _nextRecipID = 0;
    _SendCommand("MAIL FROM: " + _ConvertAddress(Messages.front().FromAddress()));
}

void SMTPSecureSocket::_BuildRecipientList(const EmailMessage& message) {
    _recipients.clear();
    for (const std::string& addresses : {message.ToAddress(), message.CCAddress(), message.BCCAddress()}) {
        for (const std::string& address : Split(addresses, ",")) {
            _recipients.push_back(_ConvertAddress(address));
        }
    }
}

// The whole reply is searched, so a host that has "login" in its name counts as an offer. Without that word PLAIN is
// taken, whatever the server offers, if it offers anything at all.
std::string SMTPSecureSocket::_GetAuthenticationKeys(const std::string& reply) {
    if (holds(reply, "LOGIN")) {
        _authKeys.push_back(EncodeBase64(Username, base64_line));
        _authKeys.push_back(EncodeBase64(Password, base64_line));
        return "auth login";
    }
    return "auth plain " + EncodeBase64(Chr(0) + Username + Chr(0) + Password, base64_line);
}

std::string SMTPSecureSocket::_GetMessageData(EmailMessage& message) {
    if (!message.Headers.has("Date")) {
        message.Headers.SetHeader("Date", _GetEmailDateStr(current_date()));
    }
    return message.Source(random);
}

} // namespace tessit
