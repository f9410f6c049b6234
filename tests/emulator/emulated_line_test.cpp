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

TEST_F(EmulatedLineTest, Ports_OnlyTheGeneratorsOneOpensAndOnlyOnceAtATime) {
    EXPECT_EQ(ports.list(), (std::vector{port, other}));
    EXPECT_EQ(ports.open(other, {}), nullptr);
    auto line = open();
    ASSERT_NE(line, nullptr);
    EXPECT_EQ(open(), nullptr);
    line.reset();
    EXPECT_NE(open(), nullptr);
}

TEST_F(EmulatedLineTest, Settings_AreThoseLastConfigured) {
    auto line = ports.open(port, {.Baud = 9600});
    EXPECT_EQ(ports.settings().Baud, 9600);
    line->configure({.RequestToSend = true});
    EXPECT_EQ(ports.settings(), (SerialSettings{.RequestToSend = true}));
}

TEST_F(EmulatedLineTest, Read_GivesAtMostTheCountAndOnlyWhatIsDue) {
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

TEST_F(EmulatedLineTest, UnreadBytes_SurviveACloseButNotAReset) {
    auto line = open();
    call(*line);
    line.reset();
    line = open();
    EXPECT_EQ(line->read(1), Bytes{170});
    line->reset();
    EXPECT_EQ(line->read(1), Bytes{});
}

TEST_F(EmulatedLineTest, HangUp_KillsTheLineForEverAndANewOneWorks) {
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

TEST_F(EmulatedLineTest, HangUpThatStaysAway_RefusesUntilPluggedIn) {
    generator.set_failure({.mode = FailureMode::handshake_hang_up, .after_hang_up = AfterHangUp::stays_away});
    auto line = open();
    call(*line);
    EXPECT_FALSE(line->alive());
    line.reset();
    EXPECT_EQ(open(), nullptr);
    generator.plug_in();
    EXPECT_NE(open(), nullptr);
}

} // namespace
} // namespace tessit::emulator::test
