// SPDX-License-Identifier: MIT
#include "platform/serial.h"

#include <gtest/gtest.h>

namespace tessit {
namespace {

struct PortLog {
    std::vector<std::string> events;
    std::vector<std::uint8_t> written;
    SerialSettings settings;
    bool alive = true;
    bool can_open = true;
};

class LoggedLine : public SerialLine {
public:
    explicit LoggedLine(PortLog& log) : log_(log) {}
    ~LoggedLine() override { log_.events.push_back("close"); }

    bool alive() override { return log_.alive; }
    void configure(const SerialSettings& settings) override { log_.settings = settings; }
    void write(std::span<const std::uint8_t> bytes) override {
        log_.written.insert(log_.written.end(), bytes.begin(), bytes.end());
    }
    std::vector<std::uint8_t> read(int count) override {
        return count > 0 && log_.alive ? std::vector<std::uint8_t>{7} : std::vector<std::uint8_t>{};
    }
    void flush() override { log_.events.push_back("flush"); }
    void reset() override { log_.events.push_back("reset"); }

private:
    PortLog& log_;
};

struct LoggedPorts : SerialPorts {
    std::vector<SerialPort> list() override { return {}; }
    std::unique_ptr<SerialLine> open(const SerialPort& port, const SerialSettings& settings) override {
        log.events.push_back("open " + port.Name);
        log.settings = settings;
        return log.can_open ? std::make_unique<LoggedLine>(log) : nullptr;
    }

    PortLog log;
};

const SerialPort first{.Name = "first", .device = "/dev/first"};
const SerialPort second{.Name = "second", .device = "/dev/second"};

using Events = std::vector<std::string>;

TEST(Serial, an_open_line_is_not_opened_again_until_it_is_dead) {
    LoggedPorts ports;
    Serial serial(ports);
    serial.SetSerialPort(first);
    EXPECT_TRUE(serial.Open());
    EXPECT_TRUE(serial.Open());
    EXPECT_EQ(ports.log.events, Events{"open first"});
    ports.log.alive = false;
    EXPECT_TRUE(serial.Open());
    EXPECT_EQ(ports.log.events, (Events{"open first", "close", "open first"}));
    ports.log.can_open = false;
    EXPECT_FALSE(serial.Open());
    EXPECT_FALSE(serial.is_open());
}

TEST(Serial, another_port_closes_the_line_and_the_same_port_does_not) {
    LoggedPorts ports;
    Serial serial(ports);
    serial.SetSerialPort(first);
    serial.Open();
    serial.SetSerialPort(first);
    EXPECT_TRUE(serial.is_open());
    serial.SetSerialPort(second);
    EXPECT_FALSE(serial.is_open());
    EXPECT_EQ(serial.SerialPort(), second);
    serial.Open();
    EXPECT_EQ(ports.log.events, (Events{"open first", "close", "open second"}));
}

TEST(Serial, settings_reach_an_open_line_at_once_and_a_closed_one_when_it_opens) {
    LoggedPorts ports;
    Serial serial(ports);
    const SerialSettings as_built{};
    EXPECT_EQ(as_built.Baud, 19200);
    EXPECT_EQ(as_built.Bits, 8);
    EXPECT_EQ(as_built.Parity, SerialParity::none);
    EXPECT_EQ(as_built.Stop, 1);
    EXPECT_FALSE(as_built.XON || as_built.CTS || as_built.DTR);
    serial.SetRequestToSend(true);
    serial.Open();
    EXPECT_EQ(ports.log.settings, SerialSettings{.RequestToSend = true});
    serial.SetParity(SerialParity::even);
    EXPECT_EQ(ports.log.settings, (SerialSettings{.Parity = SerialParity::even, .RequestToSend = true}));
}

TEST(Serial, a_closed_line_swallows_everything) {
    LoggedPorts ports;
    Serial serial(ports);
    serial.Write(1);
    serial.Flush();
    serial.Reset();
    serial.Close();
    EXPECT_EQ(serial.ReadByte(), -1);
    EXPECT_TRUE(serial.Read(10).empty());
    EXPECT_TRUE(ports.log.events.empty());
    serial.Open();
    serial.Write(1);
    EXPECT_EQ(serial.ReadByte(), 7);
    ports.log.alive = false;
    EXPECT_EQ(serial.ReadByte(), -1);
    EXPECT_EQ(ports.log.written, std::vector<std::uint8_t>{1});
}

} // namespace
} // namespace tessit
