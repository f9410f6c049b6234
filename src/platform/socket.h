// SPDX-License-Identifier: MIT
// Outgoing connections. `SocketLine` and `Sockets` are what a desktop provides; `TCPSocket` is the member of a window
// that the program works with: it dies with its window, and its events are outermost events.
#pragma once

#include "platform/date.h"

#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace tessit {

class Window;

// What a line tells its owner. It tells it from the event loop, never inside a call of the owner's own, and the owner
// may drop the line while it is told something.
class SocketOwner {
public:
    virtual ~SocketOwner() = default;
    virtual void connected() = 0;
    virtual void data_available() = 0; // more than before waits to be read
    virtual void all_sent() = 0;       // everything written so far has gone out
    virtual void failed() = 0;         // no connection came about, or it has ended; told once
};

// One connection, from the moment at which it is asked for. Dropping it ends it.
class SocketLine {
public:
    virtual ~SocketLine() = default;
    virtual void write(std::string_view bytes) = 0; // queues and returns; a dead line swallows them
    virtual std::string waiting() = 0;              // what has arrived, left where it is
    virtual std::string read_all() = 0;
    virtual std::string local_address() = 0; // such as "192.168.0.7"; empty before the connection stands
};

class Sockets {
public:
    virtual ~Sockets() = default;
    // Begins to connect and returns at once. `owner` outlives the line.
    virtual std::unique_ptr<SocketLine> connect(const std::string& address, int port, SocketOwner& owner) = 0;
};

struct SocketDesign {
    const char* name = ""; // in the code; events are named after it
    std::function<void()> on_connected{};
    std::function<void()> on_data_available{};
    std::function<void(bool user_aborted)> on_send_complete{};
    std::function<void()> on_error{};
};

class TCPSocket : private SocketOwner {
public:
    TCPSocket(Window& window, SocketDesign design) : window_(window), design_(std::move(design)) {}
    TCPSocket(const TCPSocket&) = delete;
    TCPSocket& operator=(const TCPSocket&) = delete;
    ~TCPSocket() override = default;

    std::string Address; // host name or number
    int Port = 0;

    void Connect(); // to Address and Port; ends a connection that there is, for the user asked anew
    void Close();
    void Write(std::string_view bytes);
    std::string Lookahead() const;
    std::string ReadAll();
    std::string LocalAddress() const;

protected:
    Date current_date() const; // the desktop's
    virtual void Event_Connected();
    virtual void Event_DataAvailable();

private:
    void connected() override;
    void data_available() override;
    void all_sent() override;
    void failed() override;
    void from_loop(const char* event, const std::function<void()>& handler);

    Window& window_;
    const SocketDesign design_;
    std::unique_ptr<SocketLine> line_;
};

// A socket that could be encrypted. Nothing in the program asks for it on a socket that is ever connected, so the
// bytes go out as they are.
class SSLSocket : public TCPSocket {
public:
    using TCPSocket::TCPSocket;

    bool Secure = false;
    int ConnectionType = 0;
};

} // namespace tessit
