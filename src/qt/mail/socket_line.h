// SPDX-License-Identifier: MIT
// An outgoing connection through Qt, straight to the host, past any proxy. Everything a line tells comes as a call of
// its own from the event loop, so that an owner may drop the line in any of them. A dialogue without an end is slowed
// down, and a line on which a megabyte waits unread is ended.
#pragma once

#include "platform/socket.h"

#include <QTcpSocket>
#include <QTimer>

namespace tessit::qt {

class QtSocketLine : public SocketLine {
public:
    QtSocketLine(const std::string& address, int port, SocketOwner& owner);
    ~QtSocketLine() override;

    void write(std::string_view bytes) override;
    std::string waiting() override;
    std::string read_all() override;
    std::string local_address() override;

private:
    using Notice = void (SocketOwner::*)();

    void arrived();
    void tell(Notice notice);

    SocketOwner& owner_;
    const std::shared_ptr<SocketOwner*> alive_ = std::make_shared<SocketOwner*>(&owner_); // goes with this line
    QTcpSocket socket_;
    QTimer pause_; // while something has arrived that is not told yet
    int arrivals_ = 0;
};

} // namespace tessit::qt
