// SPDX-License-Identifier: MIT
#include "qt/mail/plugin.h"

#include "qt/mail/socket_line.h"

namespace tessit::qt {

std::unique_ptr<SocketLine> MailPlugin::connect(const std::string& address, int port, SocketOwner& owner) {
    return std::make_unique<QtSocketLine>(address, port, owner);
}

} // namespace tessit::qt
