// SPDX-License-Identifier: MIT
#include "emulator/emulated_line.h"

#include <algorithm>

namespace tessit::emulator {

EmulatedLine::EmulatedLine(std::shared_ptr<Cable> cable, const SerialSettings& settings)
    : cable_(std::move(cable)), plugged_(++cable_->plugged) {
    cable_->settings = settings;
    cable_->in_use = true;
}

EmulatedLine::~EmulatedLine() {
    if (plugged_ == cable_->plugged) {
        cable_->in_use = false;
    }
}

bool EmulatedLine::alive() {
    return plugged_ == cable_->plugged && !cable_->generator.hung_up();
}

void EmulatedLine::write(std::span<const std::uint8_t> bytes) {
    for (const std::uint8_t byte : bytes) {
        if (alive()) {
            cable_->generator.receive(byte, cable_->clock.now());
        }
    }
}

std::vector<std::uint8_t> EmulatedLine::read(int count) {
    if (!alive()) {
        return {};
    }
    const Microseconds now = cable_->clock.now();
    cable_->generator.pass_time(now);
    return cable_->generator.take(now, static_cast<std::size_t>(std::max(count, 0)));
}

void EmulatedLine::reset() {
    if (alive()) {
        cable_->generator.pass_time(cable_->clock.now());
        cable_->generator.take(cable_->clock.now());
    }
}

EmulatedPorts::EmulatedPorts(Generator& generator, Clock& clock, std::vector<SerialPort> ports)
    : ports_(std::move(ports)), cable_(new Cable{.generator = generator, .clock = clock, .settings = {}}) {}

std::unique_ptr<SerialLine> EmulatedPorts::open(const SerialPort& port, const SerialSettings& settings) {
    Generator& generator = cable_->generator;
    const bool there = !ports_.empty() && port == ports_.front();
    if (there && generator.can_be_opened_again()) {
        generator.plug_in();
        cable_->in_use = false; // by the line that hung up
    }
    if (!there || generator.hung_up() || cable_->in_use) {
        return nullptr;
    }
    return std::make_unique<EmulatedLine>(cable_, settings);
}

} // namespace tessit::emulator
