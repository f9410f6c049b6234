// SPDX-License-Identifier: MIT
#include "qt/qt_socket.h"

#include "qt/mail_module.h"
#include "qt/module.h"

namespace tessit::qt {

std::unique_ptr<SocketLine> QtSockets::connect(const std::string& address, int port, SocketOwner& owner) {
    const Module module = module_of_program(QStringLiteral("sends mail"), QStringLiteral(TESSIT_MAIL_MODULE));
    return load_as<Sockets>(module).connect(address, port, owner);
}

} // namespace tessit::qt
