// SPDX-License-Identifier: MIT
// Serial ports whose lines note what the program does to them, so that a load can be judged from outside.
#pragma once

#include "platform/clock.h"
#include "platform/serial.h"

namespace tessit::bench {

struct LoadRecord {
    Microseconds first_write = 0;
    Microseconds last_acknowledge = 0;
    int calls = 0;                    // "V" written
    int misses = 0;                   // looks for an acknowledge that found none; those behind a call are not counted
    Microseconds within_the_line = 0; // spent in writing and reading, where nothing is waited for
};

class ObservedPorts : public SerialPorts {
public:
    explicit ObservedPorts(SerialPorts& ports) : ports_(ports) {}
    std::vector<SerialPort> list() override { return ports_.list(); }
    std::unique_ptr<SerialLine> open(const SerialPort& port, const SerialSettings& settings) override;

    LoadRecord record; // set it anew before a load

private:
    SerialPorts& ports_;
};

} // namespace tessit::bench
