// SPDX-License-Identifier: MIT
// The machine's serial ports through Qt, headed by running emulated generators.
#pragma once

#include "platform/serial.h"

namespace tessit::qt {

class QtSerialPorts : public SerialPorts {
public:
    std::vector<SerialPort> list() override;
    std::unique_ptr<SerialLine> open(const SerialPort& port, const SerialSettings& settings) override;
};

} // namespace tessit::qt
