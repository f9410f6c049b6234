// SPDX-License-Identifier: MIT
// Sockets without a network: the test plays the server. What the program writes is collected; what the server does
// reaches the program at once, as from the event loop.
#pragma once

#include "platform/socket.h"

#include <string>
#include <utility>
#include <vector>

namespace tessit::testing {

class ScriptedSockets : public Sockets {
public:
    std::vector<std::pair<std::string, int>> connects; // each address and port that was asked for
    bool open() const { return line_ != nullptr; }     // the program holds a line

    // What the other side does. Nothing happens where the program holds no line.
    void accept() {
        if (line_ != nullptr) {
            line_->up = true;
            line_->owner.connected();
        }
    }
    void refuse() { hang_up(); }
    void hang_up() {
        if (line_ != nullptr) {
            line_->up = false;
            line_->owner.failed();
        }
    }
    void send(const std::string& bytes) {
        if (line_ != nullptr) {
            line_->arrived += bytes;
            line_->owner.data_available();
        }
    }
    void send_lines(const std::vector<std::string>& lines) {
        for (const std::string& line : lines) {
            send(line + "\r\n");
        }
    }
    void tell_sent() { // that all has gone out
        if (line_ != nullptr) {
            line_->owner.all_sent();
        }
    }
    // What the program has written since the last call.
    std::string taken() { return std::exchange(written_, ""); }

    // The server's reply, and what the program writes on it.
    std::string answer_to(const std::string& reply) {
        taken();
        send(reply + "\r\n");
        return taken();
    }

    std::unique_ptr<SocketLine> connect(const std::string& address, int port, SocketOwner& owner) override {
        connects.emplace_back(address, port);
        auto line = std::make_unique<Line>(*this, owner);
        line_ = line.get();
        return line;
    }

private:
    struct Line : SocketLine {
        Line(ScriptedSockets& all_sockets, SocketOwner& its_owner) : sockets(all_sockets), owner(its_owner) {}
        ~Line() override {
            if (sockets.line_ == this) {
                sockets.line_ = nullptr;
            }
        }
        void write(std::string_view bytes) override {
            if (up) {
                sockets.written_ += bytes;
            }
        }
        std::string waiting() override { return arrived; }
        std::string read_all() override { return std::exchange(arrived, ""); }
        std::string local_address() override { return up ? "192.0.2.7" : ""; }

        ScriptedSockets& sockets;
        SocketOwner& owner;
        bool up = false;
        std::string arrived;
    };

    Line* line_ = nullptr;
    std::string written_;
};

} // namespace tessit::testing
