// SPDX-License-Identifier: MIT
// The machine's serial ports through Qt, headed by running emulated generators. Asking the system costs some ten
// milliseconds, and a start with a port in the settings asks three times: an answer holds for a moment.
#pragma once

#include "platform/serial.h"

#include <QDeadlineTimer>

namespace tessit::qt {

class QtSerialPorts : public SerialPorts {
public:
    std::vector<SerialPort> list() override;
    std::unique_ptr<SerialLine> open(const SerialPort& port, const SerialSettings& settings) override;
    std::optional<PortHolder> holder(const SerialPort& port) override;

private:
    const std::vector<SerialPort>& system_ports();

    std::vector<SerialPort> system_ports_;
    QDeadlineTimer holds_; // expired: the system is asked anew
};

} // namespace tessit::qt
