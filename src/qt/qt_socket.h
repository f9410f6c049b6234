// SPDX-License-Identifier: MIT
// Outgoing connections through Qt, straight to the host, past any proxy. Everything a line tells comes as a call of
// its own from the event loop, so that an owner may drop the line in any of them. A dialogue without an end is slowed
// down, and a line on which a megabyte waits unread is ended.
#pragma once

#include "platform/socket.h"

namespace tessit::qt {

class QtSockets : public Sockets {
public:
    std::unique_ptr<SocketLine> connect(const std::string& address, int port, SocketOwner& owner) override;
};

} // namespace tessit::qt
