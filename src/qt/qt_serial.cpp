// SPDX-License-Identifier: MIT
#include "qt/qt_serial.h"

#include "platform/announced_ports.h"
#include "platform/port_lock.h"

#include <QSerialPort>
#include <QSerialPortInfo>
#include <QSocketNotifier>
#include <algorithm>
#include <memory>
#include <poll.h>
#include <unistd.h>

namespace tessit::qt {

namespace {

constexpr qint64 most_unread = 65536; // bytes; what is older is no answer to anything
constexpr int moment = 250;           // milliseconds; nobody plugs in a port and looks for it sooner

QSerialPort::Parity parity_of(SerialParity parity) {
    switch (parity) {
    case SerialParity::odd:
        return QSerialPort::OddParity;
    case SerialParity::even:
        return QSerialPort::EvenParity;
    default:
        return QSerialPort::NoParity;
    }
}

QSerialPort::FlowControl flow_control_of(const SerialSettings& settings) {
    if (settings.CTS) {
        return QSerialPort::HardwareControl;
    }
    return settings.XON ? QSerialPort::SoftwareControl : QSerialPort::NoFlowControl;
}

std::vector<SerialPort> ask_system() {
    std::vector<SerialPort> ports;
    for (const QSerialPortInfo& info : QSerialPortInfo::availablePorts()) {
        ports.push_back({info.portName().toStdString(), info.systemLocation().toStdString()});
    }
    return ports;
}

class QtSerialLine : public SerialLine {
public:
    explicit QtSerialLine(const std::string& device) {
        port_.setPortName(QString::fromStdString(device));
        QObject::connect(&port_, &QSerialPort::errorOccurred, &port_,
                         [this](QSerialPort::SerialPortError error) { failed(error); });
        QObject::connect(&port_, &QSerialPort::readyRead, &port_, [this] { forget_the_oldest(); });
    }

    bool open(const SerialSettings& settings) {
        if (port_.portName().isEmpty() || !port_.open(QIODevice::ReadWrite)) {
            return false;
        }
        if (!lock_port(static_cast<int>(port_.handle()))) {
            port_.close();
            return false;
        }
        watch_for_hang_up();
        configure(settings);
        reset(); // what arrived before the line was open is nobody's answer
        return port_.isOpen();
    }

    bool alive() override {
        close_if_hung_up();
        return port_.isOpen();
    }

    void configure(const SerialSettings& settings) override {
        if (!port_.isOpen()) {
            return;
        }
        port_.setBaudRate(settings.Baud);
        port_.setDataBits(static_cast<QSerialPort::DataBits>(settings.Bits));
        port_.setParity(parity_of(settings.Parity));
        port_.setStopBits(static_cast<QSerialPort::StopBits>(settings.Stop));
        port_.setFlowControl(flow_control_of(settings));
        if (!settings.DTR) {
            port_.setDataTerminalReady(settings.DataTerminalReady);
        }
        if (!settings.CTS) {
            port_.setRequestToSend(settings.RequestToSend);
        }
    }

    void write(std::span<const std::uint8_t> bytes) override {
        if (port_.isOpen()) {
            const auto rest = bytes.subspan(written_straight(bytes));
            if (!rest.empty()) {
                port_.write(reinterpret_cast<const char*>(rest.data()), static_cast<qint64>(rest.size()));
                flush();
            }
        }
    }

    std::vector<std::uint8_t> read(int count) override {
        if (!port_.isOpen()) {
            return {};
        }
        port_.waitForReadyRead(0);
        const QByteArray bytes = port_.isOpen() ? port_.read(count) : QByteArray();
        return {bytes.begin(), bytes.end()};
    }

    void flush() override {
        if (port_.isOpen()) {
            port_.flush();
        }
    }

    void reset() override {
        if (port_.isOpen()) {
            port_.clear();
        }
    }

private:
    // How many the system takes at once. Through Qt's buffer each of a load's 850 writes takes half as long again; what
    // is not taken, and every failure, is for Qt.
    std::size_t written_straight(std::span<const std::uint8_t> bytes) {
        const bool nothing_before = port_.bytesToWrite() == 0;
        const ssize_t taken = nothing_before ? ::write(port_.handle(), bytes.data(), bytes.size()) : 0;
        return static_cast<std::size_t>(std::max<ssize_t>(taken, 0));
    }

    // A line that talks while nobody reads must not fill the memory.
    void forget_the_oldest() {
        if (const qint64 waiting = port_.bytesAvailable(); waiting > most_unread) {
            port_.skip(waiting - most_unread);
        }
    }

    // Qt 6.8 and later read the end of a line that hung up for ever and tell of no error. The system tells.
    void watch_for_hang_up() {
        hang_up_ = std::make_unique<QSocketNotifier>(port_.handle(), QSocketNotifier::Exception);
        QObject::connect(
            hang_up_.get(), &QSocketNotifier::activated, &port_, [this] { close_if_hung_up(); },
            Qt::QueuedConnection); // which ends the watching
    }

    // The kind that Qt tells comes from an old errno, and a full buffer counts as a lost device there. So the line
    // itself is asked. A line that hung up must be closed at once: Qt would signal the error for ever.
    void failed(QSerialPort::SerialPortError error) {
        if (error != QSerialPort::NoError && error != QSerialPort::TimeoutError &&
            error != QSerialPort::UnsupportedOperationError) {
            close_if_hung_up();
        }
    }

    void close_if_hung_up() {
        if (closing_ || !port_.isOpen()) {
            return;
        }
        pollfd line{static_cast<int>(port_.handle()), 0, 0};
        if (poll(&line, 1, 0) != 0) { // only POLLHUP, POLLERR and POLLNVAL were asked for
            closing_ = true;          // closing raises errors of its own
            hang_up_.reset();
            port_.close();
            closing_ = false;
        }
    }

    QSerialPort port_;
    std::unique_ptr<QSocketNotifier> hang_up_; // while the line is open
    bool closing_ = false;
};

} // namespace

std::vector<SerialPort> QtSerialPorts::list() {
    std::vector<SerialPort> ports = announced_ports();
    const auto& others = system_ports();
    ports.insert(ports.end(), others.begin(), others.end());
    return ports;
}

void QtSerialPorts::ask_ahead() {
    ahead_ = std::async(std::launch::async, ask_system);
    ahead_holds_.setRemainingTime(4 * moment);
}

const std::vector<SerialPort>& QtSerialPorts::system_ports() {
    asked_ = true;
    if (holds_.hasExpired()) {
        system_ports_ = newest_system_ports();
        holds_.setRemainingTime(moment);
    }
    return system_ports_;
}

std::vector<SerialPort> QtSerialPorts::newest_system_ports() {
    return ahead_.valid() && !ahead_holds_.hasExpired() ? ahead_.get() : ask_system();
}

std::unique_ptr<SerialLine> QtSerialPorts::open(const SerialPort& port, const SerialSettings& settings) {
    auto line = std::make_unique<QtSerialLine>(port.device);
    if (!announcement_holds(port) || !line->open(settings)) {
        return nullptr;
    }
    return line;
}

std::optional<PortHolder> QtSerialPorts::holder(const SerialPort& port) {
    return lock_holder(port);
}

} // namespace tessit::qt
