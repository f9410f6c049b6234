// SPDX-License-Identifier: MIT
#include "platform/serial.h"

namespace tessit {

void Serial::SetSerialPort(const tessit::SerialPort& port) {
    if (port != port_) {
        Close();
        port_ = port;
    }
}

bool Serial::Open() {
    if (line_ != nullptr && line_->alive()) {
        return true;
    }
    Close();
    line_ = ports_.open(port_, settings_);
    return line_ != nullptr;
}

void Serial::Close() {
    line_.reset();
}

std::optional<PortHolder> Serial::other_holder() const {
    return is_open() ? std::nullopt : ports_.holder(port_);
}

void Serial::Write(std::span<const std::uint8_t> bytes) {
    if (line_ != nullptr) {
        line_->write(bytes);
    }
}

std::vector<std::uint8_t> Serial::Read(int count) {
    return line_ == nullptr ? std::vector<std::uint8_t>{} : line_->read(count);
}

int Serial::ReadByte() {
    const auto bytes = Read(1);
    return bytes.empty() ? -1 : bytes.front();
}

void Serial::Flush() {
    if (line_ != nullptr) {
        line_->flush();
    }
}

void Serial::Reset() {
    if (line_ != nullptr) {
        line_->reset();
    }
}

} // namespace tessit
