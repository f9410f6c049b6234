// SPDX-License-Identifier: MIT
#include "emulator/pseudo_terminal.h"

#include <array>
#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <sys/ioctl.h>
#include <system_error>
#include <termios.h>
#include <unistd.h>

namespace tessit::emulator {

namespace {

void set_raw(int descriptor) {
    termios settings{};
    if (tcgetattr(descriptor, &settings) != 0) {
        throw std::system_error(errno, std::generic_category(), "pseudo-terminal");
    }
    cfmakeraw(&settings);
    cfsetspeed(&settings, B19200);
    if (tcsetattr(descriptor, TCSANOW, &settings) != 0) {
        throw std::system_error(errno, std::generic_category(), "pseudo-terminal");
    }
}

void close_if_open(int descriptor) {
    if (descriptor >= 0) {
        close(descriptor);
    }
}

} // namespace

PseudoTerminal::PseudoTerminal() {
    std::array<char, 128> path{};
    master_ = posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
    if (master_ >= 0 && grantpt(master_) == 0 && unlockpt(master_) == 0 &&
        ptsname_r(master_, path.data(), path.size()) == 0) {
        slave_ = open(path.data(), O_RDWR | O_NOCTTY | O_CLOEXEC);
    }
    if (slave_ < 0) {
        const int error = errno;
        close_if_open(master_);
        throw std::system_error(error, std::generic_category(), "pseudo-terminal");
    }
    set_raw(slave_);
    device_ = path.data();
}

PseudoTerminal::~PseudoTerminal() {
    close_if_open(slave_);
    close_if_open(master_);
}

std::vector<std::uint8_t> PseudoTerminal::read() {
    std::array<std::uint8_t, 512> buffer;
    const ssize_t count = ::read(master_, buffer.data(), buffer.size());
    return count <= 0 ? std::vector<std::uint8_t>{} : std::vector<std::uint8_t>(buffer.begin(), buffer.begin() + count);
}

void PseudoTerminal::write(std::span<const std::uint8_t> bytes) {
    while (!bytes.empty()) {
        const ssize_t count = ::write(master_, bytes.data(), bytes.size());
        if (count <= 0) {
            return;
        }
        bytes = bytes.subspan(static_cast<std::size_t>(count));
    }
}

void PseudoTerminal::lift_exclusive_claim() {
    ioctl(slave_, TIOCNXCL);
}

} // namespace tessit::emulator
