// SPDX-License-Identifier: MIT
// The machine's serial ports through Qt, headed by running emulated generators. Asking the system costs some ten
// milliseconds, and a start with a port in the settings asks three times: an answer holds for a moment, and a start
// that is going to ask can have it asked beside its other work.
#pragma once

#include "platform/serial.h"

#include <QDeadlineTimer>
#include <future>

namespace tessit::qt {

class QtSerialPorts : public SerialPorts {
public:
    std::vector<SerialPort> list() override;
    std::unique_ptr<SerialLine> open(const SerialPort& port, const SerialSettings& settings) override;
    std::optional<PortHolder> holder(const SerialPort& port) override;

    void ask_ahead(); // for a list that is wanted within a second
    bool were_asked() const { return asked_; }

private:
    const std::vector<SerialPort>& system_ports();
    std::vector<SerialPort> newest_system_ports();

    std::vector<SerialPort> system_ports_;
    QDeadlineTimer holds_; // expired: the system is asked anew
    bool asked_ = false;
    std::future<std::vector<SerialPort>> ahead_;
    QDeadlineTimer ahead_holds_;
};

} // namespace tessit::qt
