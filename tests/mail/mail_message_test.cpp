// SPDX-License-Identifier: MIT
// Mails as values: headers, bodies, attachments, date line, base64.
#include "mail/email_message.h"
#include "support/scripted_desktop.h"

#include <gtest/gtest.h>

namespace tessit::testing {
namespace {

const Random first_letter = [] { return 0.0; };

EmailMessage message_to_support() {
    EmailMessage message;
    message.SetFromAddress("user@home.example");
    message.AddRecipient("support@tessit.example");
    message.SetSubject("Contact Us Form");
    return message;
}

TEST(Base64, lines_of_76_with_line_ends_between_them_only) {
    const std::string line = "QUFBQUFBQUFBQUFBQUFBQUFBQUFBQUFBQUFBQUFBQUFBQUFBQUFBQUFBQUFBQUFBQUFBQUFBQUFB";
    const std::string with_zeros("\0a\0\xff", 4);
    const std::string longer(58, 'A');
    const std::pair<std::string_view, std::string> cases[] = {
        {"", ""}, {"f", "Zg=="}, {"fo", "Zm8="}, {"foo", "Zm9v"}, {with_zeros, "AGEA/w=="}, {longer, line + "\r\nQQ=="},
    };
    for (const auto& [bytes, encoded] : cases) {
        EXPECT_EQ(EncodeBase64(bytes, 76), encoded);
    }
    EXPECT_EQ(EncodeBase64(std::string(57, 'A'), 76), line);
}

// Five and a half hours are "+0550" and not "+0530".
TEST(MailDate, an_offset_is_its_hours_times_100) {
    Date date{.year = 2025, .month = 2, .day = 3, .hour = 9, .minute = 5, .second = 7, .day_of_week = 1};
    const std::pair<double, const char*> cases[] = {
        {0, "+0000"}, {1, "+0100"}, {5.5, "+0550"}, {5.75, "+0575"}, {-3.5, "-0350"}, {-11, "-1100"},
    };
    for (const auto& [offset, text] : cases) {
        date.GMTOffset = offset;
        EXPECT_EQ(_GetEmailDateStr(date), std::string("Mon, 3 Feb 2025 09:05:07 ") + text);
    }
    setenv("TZ", "HOME-5:30", 1);
    tzset();
    EXPECT_EQ(_GetEmailDateStr(local_date(1'700'000'000)), "Wed, 15 Nov 2023 03:43:20 +0550");
    unsetenv("TZ");
    tzset();
}

TEST(Boundary, twelve_characters_from_both_ends_of_the_alphabet) {
    EXPECT_EQ(_GenerateBoundary(first_letter), "aaaaaaaaaaaa");
    EXPECT_EQ(_GenerateBoundary([] { return 0.9999999; }), "999999999999");
    EXPECT_NE(_GenerateBoundary(Rnd), _GenerateBoundary(Rnd));
}

TEST(Headers, names_count_the_same_in_either_case_and_repeat) {
    InternetHeaders headers;
    headers.AppendHeader("Received", "one");
    headers.AppendHeader("X-Tool", "t");
    headers.AppendHeader("received", "two");
    EXPECT_EQ(joined(headers.Count(), headers.NameCount("RECEIVED"), headers.Value("Received", 1)), "3|2|two");
    EXPECT_EQ(headers.CommaSeparatedValues("Received"), "one, two");
    EXPECT_EQ(headers.Source(), "Received: one\r\nX-Tool: t\r\nreceived: two");
    headers.SetHeader("Received", "three"); // in the place of the first
    EXPECT_EQ(headers.Source(), "Received: three\r\nX-Tool: t");
    headers.Delete("x-tool");
    EXPECT_EQ(joined(headers.Source(), headers.Value("X-Tool")), "Received: three|");
    EXPECT_THROW(headers.Name(1), Fault);
}

TEST(Headers, a_mail_has_its_own_order_and_no_bcc) {
    EmailHeaders headers;
    for (const char* name : {"X-Second", "BCC", "CC", "To", "From", "Subject", "Date", "Received", "Return-Path"}) {
        headers.SetHeader(name, "1");
    }
    headers.AppendHeader("Received", "2");
    headers.SetHeader("A-Third", "1");
    EXPECT_EQ(headers.Source(), "Return-Path: 1\r\nReceived: 1\r\nReceived: 2\r\nDate: 1\r\nSubject: 1\r\nFrom: 1\r\n"
                                "To: 1\r\nCC: 1\r\nX-Second: 1\r\nA-Third: 1");
}

TEST(Message, addresses_lose_their_commas_and_are_joined) {
    EmailMessage message;
    message.AddRecipient("Doe, Jane <j@x.example>");
    message.AddRecipient("k@x.example");
    message.AddCCRecipient("c,@x.example");
    message.AddBCCRecipient("b@x.example");
    EXPECT_EQ(joined(message.ToAddress(), message.CCAddress(), message.BCCAddress()),
              "Doe Jane <j@x.example>, k@x.example|c@x.example|b@x.example");
}

TEST(Message, plain_text_alone) {
    EmailMessage message = message_to_support();
    message.BodyPlainText = "one\rtwo\nthree\r\nfour";
    const std::string text = "Subject: Contact Us Form\r\nFrom: user@home.example\r\nTo: support@tessit.example\r\n"
                             "Content-type: text/plain;\r\nContent-transfer-encoding: 7bit\r\n\r\n"
                             "one\r\ntwo\r\nthree\r\nfour\r\n.";
    EXPECT_EQ(message.Source(), text);
    EXPECT_EQ(message.Source(), text) << "sending again changes nothing";
    message.BodyPlainText = "before\r.\rbehind"; // no point is doubled: the server takes the mail to end early
    EXPECT_NE(message.Source().find("\r\n\r\nbefore\r\n.\r\nbehind\r\n."), std::string::npos);
}

TEST(Message, its_own_type_and_encoding_stand_in_for_the_usual_ones) {
    EmailMessage message;
    message.BodyHTML = "<p>";
    message.Headers.SetHeader("Content-Transfer-Encoding", "8bit");
    message.Headers.SetHeader("Content-Type", "text/html; charset=utf-8");
    EXPECT_EQ(message.Source(), "Content-Transfer-Encoding: 8bit\r\nContent-type: text/html; charset=utf-8\r\n\r\n"
                                "<p>\r\n.");
    EXPECT_EQ(EmailMessage{}.Source(), "\r\n\r\n\r\n.");
}

TEST(Message, alternatives_lie_inside_what_has_attachments) {
    TemporaryFolder folder;
    write_file(folder / "data.zp2", std::string(58, 'A'));
    EmailMessage message;
    message.SetSubject("s");
    message.BodyPlainText = "plain";
    message.BodyHTML = "<p>";
    message.Attachments.emplace_back().LoadFromFile(FolderItem(folder / "data.zp2"));
    EmailAttachment& list = message.Attachments.emplace_back();
    list.MIMEType = "text/csv";
    list.Name = "list.csv";
    list.ContentEncoding = "7bit";
    list.Data = "1,2";
    list.MacType = "TEXT";
    list.MacCreator = "ttxt";
    // The bodies' boundary is all a, the outer one all b.
    const Random letters = [drawn = 0]() mutable { return drawn++ < 12 ? 0.0 : 1.0 / 36; };
    EXPECT_EQ(message.Source(letters),
              "Subject: s\r\nContent-Type: multipart/mixed; boundary=\"bbbbbbbbbbbb\"\r\nMime-Version: 1.0\r\n\r\n"
              "--bbbbbbbbbbbb\r\nContent-Type: multipart/alternative; boundary=\"aaaaaaaaaaaa\"\r\n\r\n"
              "--aaaaaaaaaaaa\r\nContent-type: text/plain;\r\nContent-transfer-encoding: 7bit\r\n\r\nplain\r\n\r\n"
              "--aaaaaaaaaaaa\r\nContent-type: text/html;\r\nContent-transfer-encoding: 7bit\r\n\r\n<p>\r\n\r\n"
              "--aaaaaaaaaaaa--\r\n\r\n"
              "--bbbbbbbbbbbb\r\nContent-Type: application/base64; name=\"data.zp2\";\r\n"
              "Content-transfer-encoding: Base64\r\nContent-disposition: attachment\r\n\r\n"
              "QUFBQUFBQUFBQUFBQUFBQUFBQUFBQUFBQUFBQUFBQUFBQUFBQUFBQUFBQUFBQUFBQUFBQUFBQUFB\r\nQQ==\r\n\r\n"
              "--bbbbbbbbbbbb\r\nContent-Type: text/csv; name=\"list.csv\";\r\n x-mac-type=\"TEXT\"\r\n"
              " x-mac-creator=\"ttxt\"\r\nContent-transfer-encoding: 7bit\r\nContent-disposition: attachment\r\n\r\n"
              "1,2\r\n\r\n"
              "--bbbbbbbbbbbb--\r\n.");
    EXPECT_THROW(message.Attachments.front().LoadFromFile(FolderItem(folder / "absent")), Fault);
}

} // namespace
} // namespace tessit::testing
