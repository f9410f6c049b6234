// SPDX-License-Identifier: MIT
#include "platform/socket.h"

#include "platform/application.h"

namespace tessit {

void TCPSocket::Connect() {
    Close();
    line_ = window_.application().desktop().sockets().connect(Address, Port, *this);
}

void TCPSocket::Close() {
    line_.reset();
}

void TCPSocket::Write(std::string_view bytes) {
    if (line_ != nullptr) {
        line_->write(bytes);
    }
}

std::string TCPSocket::Lookahead() const {
    return line_ == nullptr ? "" : line_->waiting();
}

std::string TCPSocket::ReadAll() {
    return line_ == nullptr ? "" : line_->read_all();
}

std::string TCPSocket::LocalAddress() const {
    return line_ == nullptr ? "" : line_->local_address();
}

Date TCPSocket::current_date() const {
    return window_.application().current_date();
}

void TCPSocket::Event_Connected() {
    if (design_.on_connected) {
        design_.on_connected();
    }
}

void TCPSocket::Event_DataAvailable() {
    if (design_.on_data_available) {
        design_.on_data_available();
    }
}

void TCPSocket::connected() {
    from_loop("Connected", [this] { Event_Connected(); });
}

void TCPSocket::data_available() {
    from_loop("DataAvailable", [this] { Event_DataAvailable(); });
}

void TCPSocket::all_sent() {
    if (design_.on_send_complete) {
        from_loop("SendComplete", [this] { design_.on_send_complete(false); }); // nothing here lets a user abort it
    }
}

void TCPSocket::failed() {
    if (design_.on_error) {
        from_loop("Error", design_.on_error);
    }
}

// The handler may close the window: nothing of this object is touched after it.
void TCPSocket::from_loop(const char* event, const std::function<void()>& handler) {
    window_.application().from_user(window_.name() + "." + design_.name + "_" + event, handler);
}

} // namespace tessit
