// SPDX-License-Identifier: MIT
#include "dialogue.h"
#include "emulator/emulated_line.h"

#include <gtest/gtest.h>

namespace tessit::emulator::test {
namespace {

struct EmulatedLineTest : ::testing::Test {
    Generator generator;
    SimulatedClock clock;
    SerialPort port{"Zephon emulator", "emulated"};
    SerialPort other{"ttyS0", "/dev/ttyS0"};
    EmulatedPorts ports{generator, clock, {port, other}};

    std::unique_ptr<SerialLine> open() { return ports.open(port, {}); }
    static void call(SerialLine& line) { line.write(Bytes{'V'}); }
    void SetUp() override { generator.press_receive(); }
};

TEST_F(EmulatedLineTest, read_gives_at_most_the_count_and_only_what_is_due) {
    generator.set_failure({.mode = FailureMode::handshake_split});
    auto line = open();
    call(*line);
    EXPECT_EQ(line->read(5), Bytes{170});
    clock.idle(14'999);
    EXPECT_EQ(line->read(5), Bytes{});
    clock.idle(1);
    EXPECT_EQ(line->read(0), Bytes{});
    EXPECT_EQ(line->read(1), Bytes{6});
}

TEST_F(EmulatedLineTest, hang_up_kills_the_line_for_ever_and_a_new_one_works) {
    auto line = open();
    call(*line);
    generator.hang_up(AfterHangUp::can_be_opened_again);
    EXPECT_FALSE(line->alive());
    EXPECT_EQ(line->read(2), Bytes{});
    const auto fresh = open();
    ASSERT_NE(fresh, nullptr);
    call(*line); // swallowed
    EXPECT_FALSE(line->alive());
    line.reset();
    EXPECT_EQ(open(), nullptr); // the new line is still in use
    EXPECT_TRUE(fresh->alive());
    generator.press_receive();
    call(*fresh);
    EXPECT_EQ(fresh->read(2), (Bytes{170, 6}));
}

// The program's side of a line.
struct SerialTest : EmulatedLineTest {
    Serial serial{ports};

    void SetUp() override {
        EmulatedLineTest::SetUp();
        serial.SetSerialPort(port);
    }
};

TEST_F(SerialTest, an_open_line_is_opened_again_only_when_it_is_dead) {
    EXPECT_TRUE(serial.Open() && serial.Open());
    generator.hang_up(AfterHangUp::can_be_opened_again);
    EXPECT_EQ(serial.ReadByte(), -1);
    EXPECT_TRUE(serial.Open() && ports.in_use());
    generator.hang_up(AfterHangUp::stays_away);
    EXPECT_FALSE(serial.Open() || serial.is_open());
    generator.plug_in();
    EXPECT_TRUE(serial.Open());
}

TEST_F(SerialTest, another_port_closes_the_line_and_the_same_port_does_not) {
    serial.Open();
    serial.SetSerialPort(port);
    EXPECT_TRUE(serial.is_open());
    serial.SetSerialPort(other);
    EXPECT_FALSE(serial.is_open() || ports.in_use());
    EXPECT_EQ(serial.SerialPort(), other);
}

TEST_F(SerialTest, settings_reach_an_open_line_at_once_and_a_closed_one_when_it_opens) {
    serial.SetRequestToSend(true);
    serial.Open();
    EXPECT_EQ(ports.settings(), (SerialSettings{.Baud = 19200, .Bits = 8, .Stop = 1, .RequestToSend = true}));
    serial.SetParity(SerialParity::even);
    EXPECT_EQ(ports.settings(), (SerialSettings{.Parity = SerialParity::even, .RequestToSend = true}));
}

TEST_F(SerialTest, a_closed_line_swallows_everything) {
    serial.Write('V');
    serial.Flush();
    serial.Reset();
    serial.Close();
    EXPECT_EQ(serial.ReadByte(), -1);
    EXPECT_TRUE(serial.Read(10).empty());
    serial.Open();
    EXPECT_EQ(serial.ReadByte(), -1);
    serial.Write('V');
    EXPECT_EQ(serial.ReadByte(), 170);
}

} // namespace
} // namespace tessit::emulator::test
