// SPDX-License-Identifier: MIT
// The mail dialogue reply by reply, against a server that the test plays.
#include "mail/smtp_secure_socket.h"
#include "platform/small_application.h"

#include <gtest/gtest.h>

namespace tessit::testing {
namespace {

using Exchange = std::pair<std::string, std::string>; // the server's reply and what the client writes on it

class SmtpTest : public ::testing::Test {
protected:
    ScriptedDesktop desktop;
    SmallApplication app{desktop};
    ScriptedSockets& server = desktop.scripted_sockets;
    std::vector<std::string> log;
    MailEvents events;
    std::unique_ptr<SMTPSecureSocket> client;

    void SetUp() override { make_client(); }

    void make_client() {
        const SocketDesign design{.name = "socket", .on_send_complete = [this](bool aborted) {
                                      log.push_back(aborted ? "aborted" : "sent");
                                  }};
        client = std::make_unique<SMTPSecureSocket>(app.panel.get(), design, events);
        client->Address = "mail.tessit.example";
        client->Username = "tessitassistant";
        client->Password = "123";
        client->random = [] { return 0.0; };
        desktop.date = {.year = 2025, .month = 2, .day = 3, .hour = 9, .day_of_week = 1, .GMTOffset = 5.5};
    }

    void queue(const std::string& from, const std::string& body, const std::string& to = "support@tessit.example") {
        EmailMessage message;
        message.SetFromAddress(from);
        message.SetToAddress(to);
        message.SetSubject("s");
        message.BodyPlainText = body;
        client->Messages.push_back(message);
    }

    void connect() {
        client->SendMail();
        server.accept();
        EXPECT_EQ(server.taken(), "");
    }

    void expect(const std::vector<Exchange>& dialogue) {
        for (const auto& [reply, answer] : dialogue) {
            EXPECT_EQ(server.answer_to(reply), answer) << "on " << reply;
        }
    }

    void reach(const std::vector<std::string>& replies) {
        connect();
        server.send_lines(replies);
        server.taken();
    }

    static std::string mail(const std::string& from, const std::string& body) {
        return "Date: Mon, 3 Feb 2025 09:00:00 +0550\r\nSubject: s\r\nFrom: " + from +
               "\r\nTo: support@tessit.example\r\nContent-type: text/plain;\r\nContent-transfer-encoding: "
               "7bit\r\n\r\n" +
               body + "\r\n.\r\n";
    }
};

const std::vector<Exchange> message_of_a = {{"250 ok", "RCPT TO: <support@tessit.example>\r\n"},
                                            {"250 ok", "DATA\r\n"}};

TEST_F(SmtpTest, two_messages_with_login) {
    queue("a", "one");
    queue("B <b@x.example>", "two");
    connect();
    EXPECT_EQ(server.connects, (std::vector<std::pair<std::string, int>>{{"mail.tessit.example", 25}}));
    expect({{"220 mail.tessit.example ready", "EHLO [192.0.2.7]\r\n"},
            {"250-mail\r\n250-AUTH PLAIN LOGIN\r\n250 HELP", "auth login\r\n"},
            {"334 VXNlcm5hbWU6", "dGVzc2l0YXNzaXN0YW50\r\n"},
            {"334 UGFzc3dvcmQ6", "MTIz\r\n"},
            {"235 welcome", "MAIL FROM: <a>\r\n"}});
    expect(message_of_a);
    expect({{"354 go on", mail("a", "one")},
            {"250 queued", "MAIL FROM: <b@x.example>\r\n"},
            {"250 ok", "RCPT TO: <support@tessit.example>\r\n"},
            {"250 ok", "DATA\r\n"},
            {"250 why not", ""},
            {"354 go on", mail("B <b@x.example>", "two")},
            {"250 queued", "QUIT\r\n"},
            {"221 bye", ""},
            {"250 once more", ""}});
    EXPECT_TRUE(client->Messages.empty());
}

TEST_F(SmtpTest, how_it_introduces_itself) {
    const std::string plain = "auth plain AHRlc3NpdGFzc2lzdGFudAAxMjM=\r\n";
    const std::tuple<const char*, std::string, std::vector<Exchange>> cases[] = {
        {"PLAIN alone", "tessitassistant", {{"250-x\r\n250 AUTH PLAIN", plain}, {"235 ok", "MAIL FROM: <a>\r\n"}}},
        {"no offer at all", "tessitassistant", {{"250 x", plain}}},
        {"an unknown one", "tessitassistant", {{"250 AUTH CRAM-MD5", plain}}},
        {"login in the host's name", "tessitassistant", {{"250-login.x\r\n250 AUTH PLAIN", "auth login\r\n"}}},
        {"a second reply before the login",
         "tessitassistant",
         {{"250-x", plain}, {"250 AUTH LOGIN", "auth login\r\n"}}},
        {"no EHLO, 500", "tessitassistant", {{"500 what", "HELO [192.0.2.7]\r\n"}, {"250 x", "MAIL FROM: <a>\r\n"}}},
        {"no EHLO, 502", "tessitassistant", {{"502 what", "HELO [192.0.2.7]\r\n"}, {"500 what", ""}}},
        {"no account", "", {{"250 AUTH LOGIN", "MAIL FROM: <a>\r\n"}}},
        {"no answer left", "", {{"334 more", ""}, {"250 x", "MAIL FROM: <a>\r\n"}}}};
    for (const auto& [what, account, dialogue] : cases) {
        SCOPED_TRACE(what);
        make_client();
        client->Username = account;
        queue("a", "one");
        connect();
        EXPECT_EQ(server.answer_to("220 x"), account.empty() ? "HELO [192.0.2.7]\r\n" : "EHLO [192.0.2.7]\r\n");
        expect(dialogue);
    }
}

TEST_F(SmtpTest, greeting_with_an_empty_queue_is_answered_by_quit) {
    connect();
    expect({{"220 x", "QUIT\r\n"}, {"354 go on", ""}, {"250 queued", "QUIT\r\n"}});
}

TEST_F(SmtpTest, all_kinds_of_recipients_and_their_notations) {
    client->Username = "";
    queue("  <> ", "x", " One <one@x> , two@x,");
    client->Messages.front().SetCCAddress("<three@x");
    client->Messages.front().SetBCCAddress("four@x");
    reach({"220 x"});
    expect({{"250 x", "MAIL FROM: <>\r\n"},
            {"250 ok", "RCPT TO: <one@x>\r\n"},
            {"250 ok", "RCPT TO: <two@x>\r\n"},
            {"250 ok", "RCPT TO: <>\r\n"},
            {"250 ok", "RCPT TO: <three@x>\r\n"},
            {"250 ok", "RCPT TO: <four@x>\r\n"},
            {"250 ok", "DATA\r\n"}});
    EXPECT_EQ(server.answer_to("354 go on").find("four@x"), std::string::npos);

    make_client();
    client->Username = "";
    queue("a", "x", "");
    reach({"220 x", "250 x"});
    EXPECT_EQ(server.answer_to("250 ok"), ""); // nobody to name: it stands still
}

TEST_F(SmtpTest, a_refused_message_is_tried_again_for_ever) {
    const std::pair<const char*, std::vector<std::string>> steps[] = {
        {"the greeting", {}},
        {"authentication", {"220 x", "250 AUTH LOGIN"}},
        {"MAIL FROM", {"220 x", "250 x", "235 ok"}},
        {"RCPT TO", {"220 x", "250 x", "235 ok", "250 ok"}},
        {"DATA", {"220 x", "250 x", "235 ok", "250 ok", "250 ok"}},
        {"the text", {"220 x", "250 x", "235 ok", "250 ok", "250 ok", "354 go on"}}};
    for (const auto& [refused, before] : steps) {
        SCOPED_TRACE(refused);
        make_client();
        queue("a", "one");
        reach(before);
        for (int tries = 0; tries < 3; ++tries) {
            expect({{"550 no", "RSET\r\n"}, {"250 ok", "MAIL FROM: <a>\r\n"}});
            EXPECT_EQ(client->Messages.size(), 1U);
        }
        expect(message_of_a);
        expect({{"354 go on", mail("a", "one")}, {"250 ok", "QUIT\r\n"}});
    }
}

TEST_F(SmtpTest, handlers_hear_of_everything_and_one_of_errors_lets_the_queue_go_on) {
    events = {.ConnectionEstablished = [this](const std::string& greeting) { log.push_back("greeted " + greeting); },
              .MessageSent = [this](const EmailMessage& email) { log.push_back("sent " + email.FromAddress()); },
              .MailSent = [this] { log.emplace_back("all sent"); },
              .ServerError =
                  [this](int code, const std::string& text, const EmailMessage* email) {
                      log.push_back(std::to_string(code) + " " + text.substr(0, text.find('\r')) + " " +
                                    (email == nullptr ? "-" : email->FromAddress()));
                  }};
    make_client();
    queue("a", "one");
    queue("b", "two");
    reach({"220 hello there\r\n220 more", "250 x", "235 ok", "250 ok"});
    expect({{"550 not him", "RSET\r\n"}, {"250 ok", "MAIL FROM: <b>\r\n"}});
    expect(message_of_a);
    expect({{"354 go on", mail("b", "two")}, {"250 ok", "QUIT\r\n"}, {"421 too late", "RSET\r\n"}});
    EXPECT_EQ(log, (std::vector<std::string>{"greeted hello there", "550 550 not him a", "sent b", "all sent",
                                             "421 421 too late -"}));
}

// Three bytes in the middle of a line or thirty: what has not ended its line is left waiting.
TEST_F(SmtpTest, replies_split_at_every_byte) {
    queue("a", "one");
    connect();
    const std::vector<std::string> replies = {"220 x\r\n",  "250-x\r\n250 AUTH LOGIN\r\n",
                                              "334 u\r\n",  "334 p\r\n",
                                              "235 ok\r\n", "250 ok\r\n",
                                              "250 ok\r\n", "354 go on\r\n",
                                              "250 ok\r\n"};
    std::string written;
    for (const std::string& reply : replies) {
        for (std::size_t at = 0; at < reply.size(); ++at) {
            if (reply.compare(at, 4, "250 AUTH LOGIN") != 0) {
                server.send(reply.substr(at, 1));
            }
        }
        written += server.taken();
    }
    // The line end in the middle of the second reply makes it two: PLAIN goes out first, then LOGIN.
    EXPECT_EQ(written,
              "EHLO [192.0.2.7]\r\nauth plain AHRlc3NpdGFzc2lzdGFudAAxMjM=\r\nauth login\r\n"
              "dGVzc2l0YXNzaXN0YW50\r\nMTIz\r\nMAIL FROM: <a>\r\nRCPT TO: <support@tessit.example>\r\nDATA\r\n" +
                  mail("a", "one") + "QUIT\r\n");
}

TEST_F(SmtpTest, what_is_no_reply_is_refused) {
    for (const char* reply : {"", "hello", "-5", "99999999999999 x", "2500 x"}) {
        make_client();
        queue("a", "one");
        connect();
        EXPECT_EQ(server.answer_to(reply), "RSET\r\n") << reply;
    }
}

TEST_F(SmtpTest, a_connection_that_fails_or_ends_leaves_the_message_and_the_next_one_starts_afresh) {
    queue("a", "one");
    client->SendMail();
    server.refuse();
    EXPECT_EQ(client->Messages.size(), 1U);
    for (const auto& replies : std::vector<std::vector<std::string>>{
             {}, {"220 x"}, {"220 x", "250 AUTH LOGIN", "334 u"}, {"220 x", "250 x", "235 ok", "250 ok"}}) {
        reach(replies);
        server.hang_up();
        client->Write("nobody hears this");
        EXPECT_EQ(client->Messages.size(), 1U);
    }
    connect(); // no answer to an earlier prompt is left over
    expect({{"220 x", "EHLO [192.0.2.7]\r\n"},
            {"250 AUTH LOGIN", "auth login\r\n"},
            {"334 u", "dGVzc2l0YXNzaXN0YW50\r\n"},
            {"334 p", "MTIz\r\n"},
            {"235 ok", "MAIL FROM: <a>\r\n"}});
}

} // namespace
} // namespace tessit::testing
