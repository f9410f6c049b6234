// SPDX-License-Identifier: MIT
// A bank is read from a line that says anything and taken into the editor, and loaded into what says the rest. Each
// look takes a byte of the input; at 238 nothing has come yet.
#include "device/load_direct_window.h"
#include "device/read_window.h"
#include "support/quiet_program.h"
#include "tools/fuzzing/target.h"

namespace tessit::fuzzing {

struct TalkingLine : SerialLine {
    std::string& text;
    explicit TalkingLine(std::string& said) : text(said) {}

    bool alive() override { return true; }
    void configure(const SerialSettings&) override {}
    void write(std::span<const std::uint8_t>) override {}
    void flush() override {}
    void reset() override {}
    std::vector<std::uint8_t> read(int) override {
        const std::string byte = text.substr(0, 1);
        text.erase(0, 1);
        return byte == "\xEE" ? std::vector<std::uint8_t>() : std::vector<std::uint8_t>(byte.begin(), byte.end());
    }
};

struct TalkingPorts : SerialPorts {
    std::string text;
    std::vector<SerialPort> list() override { return {{"ttyS0", "/dev/ttyS0"}}; }
    std::unique_ptr<SerialLine> open(const SerialPort&, const SerialSettings&) override {
        return std::make_unique<TalkingLine>(text);
    }
};

void try_input(const std::string& input) {
    TalkingPorts ports;
    ports.text = input;
    testing::QuietProgram program;
    App& app = program.app;
    program.connect(ports);
    app.choose_menu("ZephonReadZephon");
    app.ReadZPWindow->Readbutton.click();
    const int rows = app.ReadZPWindow->displaybox.ListCount();
    require(rows == 1 || rows == 51, "row 0, and all levels or none");
    require(testing::file_bytes(program.desktop.folder / "zpdat.tmp").size() <= 990, "what 990 looks can find");
    require(program.desktop.simulated_clock.idled() < 12'000'000, "the reading ends");
    app.choose_menu("EditEditProtocol");
    app.choose_menu("ZephonLoadDirect");
    app.load_direct_window->bank_bt0.choose(7);
    app.load_direct_window->LoadButton.click();
    require(program.desktop.simulated_clock.idled() < 45'000'000, "the loading ends");
    require(program.faults_are_of(FaultKind::out_of_bounds), "no fault but those of odd levels");
}

} // namespace tessit::fuzzing
