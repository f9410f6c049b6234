// SPDX-License-Identifier: MIT
// A window's socket: its events are outermost ones, and it goes with the window, also in the middle of one of them.
#include "platform/small_application.h"

#include <gtest/gtest.h>

namespace tessit::testing {
namespace {

struct Caller : RecordingWindow {
    explicit Caller(SmallApplication& app) : RecordingWindow(app, {.name = "caller"}) {}

    std::function<void()> on_data = [] {};
    TCPSocket socket{*this,
                     {.name = "socket",
                      .on_data_available = [this] { on_data(); },
                      .on_error = [] { throw Fault(FaultKind::internal, "lost"); }}};
};

class SocketTest : public ::testing::Test {
protected:
    ScriptedDesktop desktop;
    SmallApplication app{desktop};
    ScriptedSockets& server = desktop.scripted_sockets;
    ImplicitWindow<SmallApplication, Caller> caller{app};

    void SetUp() override {
        app.main->Show();
        caller->Show();
        caller->socket.Address = "host.example";
        caller->socket.Port = 7;
        caller->socket.Connect();
        server.accept();
    }
    void TearDown() override {
        caller.Close();
        app.from_user("end", [] {});
    }
};

TEST_F(SocketTest, a_handler_may_close_the_window) {
    caller->on_data = [this] {
        caller->Close();
        EXPECT_TRUE(server.open()) << "it lives until the event has ended";
    };
    server.send("x");
    EXPECT_FALSE(caller.exists() || server.open());
}

TEST_F(SocketTest, a_fault_in_a_handler_is_reported_under_its_name) {
    caller->on_data = [this] { caller->socket.Connect(); }; // in the middle of the old line's event
    server.send("x");
    EXPECT_EQ(server.connects.size(), 2U);
    EXPECT_EQ(caller->socket.Lookahead(), "") << "what the old line had is gone with it";
    server.accept();
    caller->socket.Write("y");
    EXPECT_EQ(server.taken(), "y");
    desktop.expect_fault("caller.socket_Error");
    server.hang_up();
    caller->socket.Close();
    EXPECT_FALSE(server.open());
    caller->socket.Write("z");
    EXPECT_EQ(caller->socket.ReadAll() + caller->socket.LocalAddress() + server.taken(), "");
}

} // namespace
} // namespace tessit::testing
