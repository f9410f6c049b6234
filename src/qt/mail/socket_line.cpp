// SPDX-License-Identifier: MIT
#include "qt/mail/socket_line.h"

#include <QCoreApplication>
#include <QHostAddress>
#include <QNetworkProxy>

namespace tessit::qt {

namespace {
constexpr int most_waiting = 1 << 20; // bytes; a server that never ends its line can't fill the memory
constexpr int told_at_once = 64;      // arrivals; several mails have no more
constexpr int pause = 1'000;          // milliseconds between further ones: refusing for ever is as good slowly
} // namespace

QtSocketLine::QtSocketLine(const std::string& address, int port, SocketOwner& owner) : owner_(owner) {
    socket_.setProxy(QNetworkProxy::NoProxy);
    socket_.setReadBufferSize(most_waiting);
    const auto on = [this](auto signal, Notice notice) {
        QObject::connect(&socket_, signal, &socket_, [this, notice] { tell(notice); });
    };
    on(&QTcpSocket::connected, &SocketOwner::connected);
    QObject::connect(&socket_, &QTcpSocket::readyRead, &socket_, [this] { arrived(); });
    pause_.setSingleShot(true);
    QObject::connect(&pause_, &QTimer::timeout, &socket_, [this] { tell(&SocketOwner::data_available); });
    on(&QTcpSocket::errorOccurred, &SocketOwner::failed); // also when the other side ends the connection
    QObject::connect(&socket_, &QTcpSocket::bytesWritten, &socket_, [this] {
        if (socket_.bytesToWrite() == 0) {
            tell(&SocketOwner::all_sent);
        }
    });
    socket_.connectToHost(QString::fromStdString(address), static_cast<quint16>(port));
}

QtSocketLine::~QtSocketLine() {
    socket_.disconnect();
    socket_.abort();
}

void QtSocketLine::write(std::string_view bytes) {
    if (socket_.state() == QAbstractSocket::ConnectedState) {
        socket_.write(bytes.data(), static_cast<qint64>(bytes.size()));
    }
}

std::string QtSocketLine::waiting() {
    return socket_.peek(socket_.bytesAvailable()).toStdString();
}

std::string QtSocketLine::read_all() {
    return socket_.readAll().toStdString();
}

std::string QtSocketLine::local_address() {
    const QHostAddress address = socket_.localAddress();
    return address.isNull() ? "" : address.toString().toStdString();
}

void QtSocketLine::arrived() {
    if (socket_.bytesAvailable() >= most_waiting) {
        socket_.abort();
        tell(&SocketOwner::failed);
    } else if (arrivals_ < told_at_once) {
        ++arrivals_;
        tell(&SocketOwner::data_available);
    } else if (!pause_.isActive()) {
        pause_.start(pause);
    }
}

void QtSocketLine::tell(Notice notice) {
    const std::weak_ptr<SocketOwner*> owner = alive_;
    const auto call = [owner, notice] {
        if (const auto told = owner.lock()) {
            ((*told)->*notice)();
        }
    };
    QMetaObject::invokeMethod(QCoreApplication::instance(), call, Qt::QueuedConnection);
}

} // namespace tessit::qt
