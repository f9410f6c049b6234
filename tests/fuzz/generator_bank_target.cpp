// SPDX-License-Identifier: MIT
// A generator with anything in its bank 7 is read, with or without a failure on the way: the first three bytes.
#include "device/read_window.h"
#include "emulator/emulated_line.h"
#include "support/quiet_program.h"
#include "tools/fuzzing/target.h"

namespace tessit::fuzzing {

void try_input(const std::string& input) {
    std::string bytes = input;
    bytes.resize(3 + 50 * 16, '\xFF');
    const auto byte = [&](std::size_t i) { return static_cast<std::uint8_t>(bytes[i]); };
    emulator::Generator generator;
    for (int level = 1; level <= 50; ++level) {
        emulator::LevelBytes record;
        std::copy_n(bytes.begin() + level * 16 - 13, 16, record.begin());
        generator.store(7, level, record);
    }
    const auto mode = static_cast<emulator::FailureMode>(byte(0) % emulator::failure_names().size());
    generator.set_failure({.mode = mode, .offset = byte(1) * 256 + byte(2)});
    testing::QuietProgram program;
    emulator::EmulatedPorts ports(generator, program.desktop.simulated_clock);
    program.connect(ports);
    program.app.choose_menu("ZephonReadZephon");
    generator.press_send(7);
    program.app.ReadZPWindow->Readbutton.click();
    require(program.desktop.faults.empty(), "nothing in a bank is a fault");
    for (int i = 0; mode == emulator::FailureMode::none && i < 50 * 11; ++i) {
        const auto read = program.app.bytes(i / 11)[static_cast<std::size_t>(i % 11)];
        const auto stored = generator.level(7, i / 11 + 1)[static_cast<std::size_t>(i % 11)];
        require(read == stored || i % 11 == 6, "all levels as they are in memory but for the mode");
    }
}

} // namespace tessit::fuzzing
