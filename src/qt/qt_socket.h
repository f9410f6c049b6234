// SPDX-License-Identifier: MIT
// Outgoing connections, which a module of its own makes (qt/mail); a fault where that can't be loaded.
#pragma once

#include "platform/socket.h"

namespace tessit::qt {

class QtSockets : public Sockets {
public:
    std::unique_ptr<SocketLine> connect(const std::string& address, int port, SocketOwner& owner) override;
};

} // namespace tessit::qt
