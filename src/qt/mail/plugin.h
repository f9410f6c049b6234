// SPDX-License-Identifier: MIT
// The module's door, by which the program gets its connections.
#pragma once

#include "qt/mail_module.h"

#include <QObject>

namespace tessit::qt {

class MailPlugin : public QObject, public Sockets {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "example.tessit.Control.Sockets")
    Q_INTERFACES(tessit::Sockets)

public:
    std::unique_ptr<SocketLine> connect(const std::string& address, int port, SocketOwner& owner) override;
};

} // namespace tessit::qt
