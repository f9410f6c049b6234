// SPDX-License-Identifier: MIT
// The mail forms over real sockets: to a mail server from the distribution, which stores what it gets, and to servers
// that are absent, say nothing, hang up or refuse.
#include "core/deployment.h"
#include "fixture.h"
#include "program/main_window.h"
#include "support/contact_form.h"
#include "support/feedback_form.h"
#include "support/online_help_form.h"
#include "support/support_mail.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryDir>

namespace tessit::qt {

namespace {

// Takes every connection to the support server to a port of this machine instead.
class LoopbackDesktop : public QtDesktop, public Sockets {
public:
    Sockets& sockets() override { return *this; }
    std::unique_ptr<SocketLine> connect(const std::string& address, int port, SocketOwner& owner) override {
        EXPECT_EQ(address, deployment::mail_server);
        EXPECT_EQ(port, 465);
        return qt_sockets_.connect("127.0.0.1", loopback_port, owner);
    }
    FolderItem program_folder() override { return FolderItem(folder_.path().toStdString()); }
    DialogAnswer show_dialog(const MessageDialog&) override { return DialogAnswer::action; } // of the first start

    int loopback_port = 0;

private:
    QtSockets qt_sockets_;
    QTemporaryDir folder_;
};

class MailTest : public testing::Test {
protected:
    MailTest() { app.start(); }

    ContactUsForm& contact() {
        app.choose_menu("ContactUsOnlineSupport");
        ContactUsForm& form = app.ContactUsWindow.get();
        form.ContactemailField.type("Jane <jane@home.example>");
        return form;
    }

    LoopbackDesktop desktop;
    App app{desktop, {.StageCode = Stage::beta, .MajorVersion = 2, .MinorVersion = 1, .BugVersion = 3}};
};

class StoringServer : public MailTest {
protected:
    void SetUp() override {
        process_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        process_.start("/usr/bin/python3", {TESSIT_MAIL_SERVER_SCRIPT, "0", folder_.path()});
        ASSERT_TRUE(process_.waitForReadyRead());
        desktop.loopback_port = process_.readLine().trimmed().toInt();
        ASSERT_GT(desktop.loopback_port, 0);
    }
    void TearDown() override {
        process_.closeWriteChannel();
        EXPECT_TRUE(process_.waitForFinished());
    }

    QByteArray stored(int number, const char* ending) {
        QFile file(folder_.filePath(QStringLiteral("message-%1.%2").arg(number).arg(QLatin1String(ending))));
        const auto is_there = [&] { return file.exists() && file.size() > 0; };
        EXPECT_TRUE(eventually(is_there)) << "message " << number << " did not arrive";
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    QJsonObject envelope(int number) { return QJsonDocument::fromJson(stored(number, "json")).object(); }
    std::string body(int number) {
        const QByteArray mail = stored(number, "eml");
        return mail.mid(mail.indexOf("\r\n\r\n") + 4).toStdString();
    }
    // Until the server has said goodbye, after which nothing is lost.
    void expect_sent(const SMTPSecureSocket& socket) {
        EXPECT_TRUE(eventually([&] { return socket.Messages.empty(); }));
    }

private:
    QTemporaryDir folder_;
    QProcess process_;
};

TEST_F(StoringServer, GetsEnvelopeHeadersAndBodyOfEachForm) {
    ContactUsForm& form = contact();
    form.ContactMsgField.edit("How?\n  Why? \xC3\xA9\xE2\x82\xAC\xF0\x9F\x99\x82\n");
    form.ContactSubmitButton.click();
    EXPECT_TRUE(eventually([&] { return app.ContactPopUp.exists() && app.ContactPopUp->Visible(); }));
    expect_sent(form.contactSocket);
    const QString password = QString::number(deployment::stored_credential | deployment::credential_mask);
    const QJsonObject to_support{
        {"from", "jane@home.example"},
        {"to", QJsonArray{deployment::support_address}},
        {"host", "[127.0.0.1]"},
        {"account", QJsonArray{"LOGIN", deployment::account_name, password}},
    };
    EXPECT_EQ(envelope(1), to_support) << QJsonDocument(envelope(1)).toJson().toStdString();
    const std::string mail = stored(1, "eml").toStdString();
    EXPECT_EQ(mail.find("Date: "), 0U);
    EXPECT_NE(mail.find("\r\nSubject: Contact Us Form\r\nFrom: Jane <jane@home.example>\r\nTo: " +
                        std::string(deployment::support_address) +
                        "\r\nContent-type: text/plain;\r\nContent-transfer-encoding: 7bit\r\n\r\n"),
              std::string::npos)
        << mail;
    EXPECT_EQ(body(1), "Jane <jane@home.example>   Wrote:\r\n\r\nHow?\r\n  Why? \xC3\xA9\xE2\x82\xAC\xF0\x9F\x99\x82"
                       "\r\n\r\n");
    app.ContactPopUp->PushButton1.click();
    EXPECT_FALSE(app.ContactUsWindow.exists());

    app.choose_menu("HelpOnlineHelp");
    OnlineHelpForm& help = app.OnlineHelpWindow.get();
    help.PushButton1.click();
    EXPECT_EQ(body(2), "  Using Current version  2.13\r\n   Wrote:\r\n\r\n\r\n");
    EXPECT_EQ(envelope(2).value("from").toString(), "<>");
    expect_sent(help.onlinehelpSocket);

    app.choose_menu("ContactUsGiveusyourFeedback");
    FeedbackForm& feedback = app.FeedbackWindow.get();
    feedback.questions.numbered(1).click();
    feedback.questions.numbered(72).click();
    feedback.emailField.type("me");
    std::string comment; // servers take no lines of more than a thousand characters
    for (int line = 0; line < 3'000; ++line) {
        comment += std::string(100, 'x') + "\r\n";
    }
    feedback.FeedbackCommentField.edit(comment);
    feedback.PushButton1.click();
    EXPECT_TRUE(body(3) == "Edit Window Layout - Poor\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n"
                           "Help Window - Very Usefull\r\n\r\nComments and Suggestions\r\n" +
                               comment + "\r\n");
    expect_sent(feedback.feedbackSocket);
}

TEST_F(StoringServer, TakesALonePointForTheEnd) {
    ContactUsForm& form = contact();
    form.ContactMsgField.edit("before\n.\nbehind");
    form.ContactSubmitButton.click();
    EXPECT_EQ(body(1), "Jane <jane@home.example>   Wrote:\r\n\r\nbefore\r\n");
    expect_sent(form.contactSocket);
}

// A server whose every reply the test decides.
class OddServer : public MailTest {
protected:
    OddServer() {
        EXPECT_TRUE(server_.listen(QHostAddress::LocalHost));
        desktop.loopback_port = server_.serverPort();
        QObject::connect(&server_, &QTcpServer::newConnection, &server_, [this] { take_connection(); });
    }

    std::vector<QByteArray> replies; // to the connection itself, then to each line; after the last one it hangs up
    QByteArray always;               // to what comes after those, in place of hanging up
    bool in_single_bytes = false;
    int connections = 0;
    int lines = 0;    // that the clients have sent
    int hang_ups = 0; // by the clients

private:
    void take_connection() {
        ++connections;
        QTcpSocket* socket = server_.nextPendingConnection();
        socket->setSocketOption(QAbstractSocket::LowDelayOption, 1);
        auto said = std::make_shared<std::size_t>(0);
        QObject::connect(socket, &QTcpSocket::disconnected, socket, [this] { ++hang_ups; });
        QObject::connect(socket, &QTcpSocket::readyRead, socket, [this, socket, said] {
            while (socket->canReadLine()) {
                socket->readLine();
                ++lines;
                say_next(*socket, *said);
            }
        });
        say_next(*socket, *said);
    }

    void say_next(QTcpSocket& socket, std::size_t& said) {
        if (said >= replies.size() && always.isEmpty()) {
            return socket.disconnectFromHost();
        }
        const QByteArray reply = said < replies.size() ? replies[said] : always;
        ++said;
        for (int at = 0; in_single_bytes && at < reply.size() - 1; ++at) {
            socket.write(reply.mid(at, 1));
            socket.flush();
        }
        socket.write(in_single_bytes ? reply.right(1) : reply);
    }

    QTcpServer server_;
};

TEST_F(OddServer, AbsentOrSilentLeavesTheFormUpAndSaysNothing) {
    ContactUsForm& form = contact();
    const int silent = desktop.loopback_port;
    replies = {"220 the beginning of a greeting"};
    for (const int port : {1, silent}) { // nobody listens at 1
        desktop.loopback_port = port;
        form.ContactSubmitButton.click();
    }
    EXPECT_TRUE(eventually([&] { return form.contactSocket.Lookahead() == replies.front().toStdString(); }));
    EXPECT_TRUE(form.Visible());
    EXPECT_TRUE(form.ContactSubmitButton.Enabled());
    EXPECT_FALSE(app.ContactPopUp.exists());
    EXPECT_EQ(form.contactSocket.Messages.size(), 2U);
}

TEST_F(OddServer, HangsUpAtEachStepAndTheNextSubmitBeginsAgain) {
    const std::vector<QByteArray> all{"220 x\r\n",  "250 AUTH LOGIN\r\n", "334 u\r\n",  "334 p\r\n",
                                      "235 ok\r\n", "250 ok\r\n",         "250 ok\r\n", "354 go on\r\n"};
    ContactUsForm& form = contact();
    for (std::size_t steps = 0; steps <= all.size(); ++steps) {
        replies.assign(all.begin(), all.begin() + static_cast<std::ptrdiff_t>(steps));
        const int before = hang_ups;
        form.ContactSubmitButton.click();
        EXPECT_TRUE(eventually([&] { return hang_ups > before; })) << steps;
        EXPECT_EQ(form.contactSocket.Messages.size(), steps + 1);
    }
    EXPECT_TRUE(app.ContactUsWindow.exists());
}

TEST_F(OddServer, RefusesForEverUntilTheFormIsClosed) {
    replies = {"220 x\r\n", "500 no EHLO\r\n", "250 x\r\n"};
    always = "550 no\r\n";
    in_single_bytes = true;
    ContactUsForm& form = contact();
    form.ContactSubmitButton.click();
    EXPECT_TRUE(eventually([&] { return lines > 60; }));
    EXPECT_EQ(form.contactSocket.Messages.size(), 1U);
    EXPECT_TRUE(app.ContactPopUp.exists());
    app.ContactPopUp->PushButton1.click();
    EXPECT_FALSE(app.ContactUsWindow.exists());
    EXPECT_TRUE(eventually([&] { return hang_ups == 1; }));
    EXPECT_EQ(connections, 1);
}

TEST_F(OddServer, SubmitPressedTwiceInOneBreathConnectsAnew) {
    replies = {"220 x\r\n"};
    always = "250 ok\r\n";
    ContactUsForm& form = contact();
    form.ContactSubmitButton.click();
    form.ContactSubmitButton.click();
    EXPECT_EQ(form.contactSocket.Messages.size(), 2U);
    EXPECT_TRUE(eventually([&] { return lines > 0; }));
    form.close_by_user();
    EXPECT_TRUE(eventually([&] { return hang_ups == connections; }));
}

} // namespace

} // namespace tessit::qt
