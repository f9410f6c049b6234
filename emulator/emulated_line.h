// SPDX-License-Identifier: MIT
// The emulated generator in memory: a serial line to it, and the list of ports that opens the line. The time is that
// of the given clock, which may be simulated. Bytes that nobody read wait through a close, as on a pseudo-terminal.
#pragma once

#include "emulator/generator.h"
#include "platform/serial.h"

#include <memory>
#include <string>
#include <vector>

namespace tessit::emulator {

// State of the one cable, seen by the line that is open and by the ports that open it.
struct Cable {
    Generator& generator;
    Clock& clock;
    SerialSettings settings; // as last configured
    bool in_use = false;
    int plugged = 0; // counts the openings, so that a line that hung up stays dead for ever
};

class EmulatedLine : public SerialLine {
public:
    EmulatedLine(std::shared_ptr<Cable> cable, const SerialSettings& settings);
    ~EmulatedLine() override;

    bool alive() override;
    void configure(const SerialSettings& settings) override { cable_->settings = settings; }
    void write(std::span<const std::uint8_t> bytes) override;
    std::vector<std::uint8_t> read(int count) override;
    void flush() override {} // what is written is on its way at once
    void reset() override;

private:
    std::shared_ptr<Cable> cable_;
    int plugged_;
};

class EmulatedPorts : public SerialPorts {
public:
    // The generator hangs on the first port; the others are listed and can't be opened.
    EmulatedPorts(Generator& generator, Clock& clock,
                  std::vector<SerialPort> ports = {{"Zephon emulator", "emulated"}});

    std::vector<SerialPort> list() override { return ports_; }

    // Null for another port than the generator's, while its line is open, or after a hang-up that keeps it away.
    std::unique_ptr<SerialLine> open(const SerialPort& port, const SerialSettings& settings) override;

    const SerialSettings& settings() const { return cable_->settings; } // of the line, as last configured
    bool in_use() const { return cable_->in_use; }

private:
    std::vector<SerialPort> ports_;
    std::shared_ptr<Cable> cable_;
};

} // namespace tessit::emulator
