// SPDX-License-Identifier: MIT
#include "bench/observed_line.h"

#include "bench/clocks.h"

namespace tessit::bench {

namespace {

constexpr std::uint8_t call = 86;
constexpr std::uint8_t acknowledge = 6;
constexpr std::uint8_t answer = 170;

class ObservedLine : public SerialLine {
public:
    ObservedLine(std::unique_ptr<SerialLine> line, LoadRecord& record) : line_(std::move(line)), record_(record) {}

    bool alive() override { return line_->alive(); }
    void configure(const SerialSettings& settings) override { line_->configure(settings); }
    void flush() override { line_->flush(); }
    void reset() override { line_->reset(); }

    void write(std::span<const std::uint8_t> bytes) override {
        if (record_.first_write == 0) {
            record_.first_write = steady_now();
            answered_ = false;
        }
        if (!answered_ && bytes.front() == call) {
            ++record_.calls;
        }
        const Microseconds before = steady_now();
        line_->write(bytes);
        record_.within_the_line += steady_now() - before;
    }

    std::vector<std::uint8_t> read(int count) override {
        const Microseconds before = steady_now();
        auto bytes = line_->read(count);
        record_.within_the_line += steady_now() - before;
        const int byte = bytes.empty() ? -1 : bytes.front();
        answered_ = answered_ || byte == answer;
        if (byte == acknowledge) {
            record_.last_acknowledge = steady_now();
        } else if (answered_ && byte != answer) {
            ++record_.misses;
        }
        return bytes;
    }

private:
    std::unique_ptr<SerialLine> line_;
    LoadRecord& record_;
    bool answered_ = false; // the handshake of this load is done
};

} // namespace

std::unique_ptr<SerialLine> ObservedPorts::open(const SerialPort& port, const SerialSettings& settings) {
    auto line = ports_.open(port, settings);
    return line == nullptr ? nullptr : std::make_unique<ObservedLine>(std::move(line), record);
}

} // namespace tessit::bench
