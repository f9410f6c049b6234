// SPDX-License-Identifier: MIT
// The generator's end of a pseudo-terminal. It is in raw mode before any byte can pass, and keeps the other end open
// too, so that clients come and go without the reads here failing.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace tessit::emulator {

class PseudoTerminal {
public:
    PseudoTerminal(); // raises std::system_error
    ~PseudoTerminal();
    PseudoTerminal(const PseudoTerminal&) = delete;
    PseudoTerminal& operator=(const PseudoTerminal&) = delete;

    const std::string& device() const { return device_; } // what a client opens, such as "/dev/pts/3"
    int descriptor() const { return master_; }            // to be polled for input

    // What waits, at once; empty only when nothing had come by the time of the call.
    std::vector<std::uint8_t> read();

    // What a full buffer can't take is lost: nobody listens then.
    void write(std::span<const std::uint8_t> bytes);

    // A client that was killed leaves its claim to be the only one on a terminal that stays open. Lift it.
    void lift_exclusive_claim();

private:
    int master_ = -1;
    int slave_ = -1;
    std::string device_;
};

} // namespace tessit::emulator
