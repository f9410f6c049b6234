// SPDX-License-Identifier: MIT
// The mail forms over real sockets: to a mail server from the distribution, which stores what it gets.
#include "core/deployment.h"
#include "folder_desktop.h"
#include "support/contact_form.h"
#include "support/feedback_form.h"
#include "support/support_mail.h"

#include <QTcpServer>
#include <QTcpSocket>

namespace tessit::qt {

namespace {

// Takes every connection to the support server to a port of this machine instead.
class LoopbackDesktop : public FolderDesktop, public Sockets {
public:
    Sockets& sockets() override { return *this; }
    std::unique_ptr<SocketLine> connect(const std::string& address, int port, SocketOwner& owner) override {
        EXPECT_EQ(address, deployment::mail_server);
        EXPECT_EQ(port, 465);
        return qt_sockets_.connect("127.0.0.1", loopback_port, owner);
    }

    int loopback_port = 0;

private:
    QtSockets qt_sockets_;
};

class StoringServer : public ::testing::Test {
protected:
    StoringServer() { app.start(); }
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
        EXPECT_TRUE(QTest::qWaitFor(is_there)) << "message " << number << " did not arrive";
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    QJsonObject envelope(int number) { return QJsonDocument::fromJson(stored(number, "json")).object(); }
    std::string body(int number) {
        const QByteArray mail = stored(number, "eml");
        return mail.mid(mail.indexOf("\r\n\r\n") + 4).toStdString();
    }
    // Until the server has said goodbye, after which nothing is lost.
    void expect_sent(const SMTPSecureSocket& socket) {
        EXPECT_TRUE(QTest::qWaitFor([&] { return socket.Messages.empty(); }));
    }

    LoopbackDesktop desktop;
    App app{desktop, {.StageCode = Stage::beta, .MajorVersion = 2, .MinorVersion = 1, .BugVersion = 3}};

private:
    QTemporaryDir folder_;
    QProcess process_;
};

TEST_F(StoringServer, gets_envelope_headers_and_body) {
    app.choose_menu("ContactUsOnlineSupport");
    ContactUsForm& form = app.ContactUsWindow.get();
    form.ContactemailField.type("Jane <jane@home.example>");
    form.ContactMsgField.edit("How?\n  Why? \xC3\xA9\xE2\x82\xAC\xF0\x9F\x99\x82\n");
    form.ContactSubmitButton.click();
    EXPECT_TRUE(QTest::qWaitFor([&] { return app.ContactPopUp.exists() && app.ContactPopUp->Visible(); }));
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
    expect_sent(feedback.feedbackSocket);
    EXPECT_TRUE(body(2) == "Edit Window Layout - Poor\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n"
                           "Help Window - Very Usefull\r\n\r\nComments and Suggestions\r\n" +
                               comment + "\r\n");
}

// What a line tells, without an owner's answer; the server is in this process.
class RawServer : public ::testing::Test, public SocketOwner {
protected:
    void SetUp() override {
        ASSERT_TRUE(server_.listen(QHostAddress::LocalHost));
        line = QtSockets().connect("127.0.0.1", server_.serverPort(), *this);
        ASSERT_TRUE(QTest::qWaitFor([&] { return up && server_.hasPendingConnections(); }));
        peer = server_.nextPendingConnection();
    }
    void connected() override { up = true; }
    void data_available() override { on_data(); }
    void all_sent() override {}
    void failed() override { up = false; }

    bool up = false;
    std::function<void()> on_data = [] {};
    std::unique_ptr<SocketLine> line;
    QTcpSocket* peer = nullptr;

private:
    QTcpServer server_;
};

TEST_F(RawServer, that_never_ends_its_line_is_left) {
    peer->write(QByteArray(3'000'000, 'x'));
    EXPECT_TRUE(QTest::qWaitFor([&] { return !up && peer->state() == QAbstractSocket::UnconnectedState; }));
    EXPECT_EQ(line->waiting(), "");
}

TEST_F(RawServer, that_refuses_for_ever_is_not_asked_as_fast_as_it_can_answer) {
    int replies = 0;
    on_data = [&] {
        ++replies;
        line->read_all();
        line->write("RSET\r\n");
    };
    QObject::connect(peer, &QTcpSocket::readyRead, peer, [&] {
        peer->readAll();
        peer->write("550 no\r\n");
    });
    peer->write("550 no\r\n");
    EXPECT_TRUE(QTest::qWaitFor([&] { return replies >= 64; }));
    for (int round = 0; round < 5'000; ++round) {
        QCoreApplication::processEvents();
    }
    EXPECT_LT(replies, 200); // as many as there are rounds, without pauses
}

} // namespace

} // namespace tessit::qt
