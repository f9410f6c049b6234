// SPDX-License-Identifier: MIT
// The clock, and the serial line over a real pseudo-terminal whose other end the test plays.
#include "qt/qt_clock.h"
#include "qt/qt_serial.h"

#include <QAbstractEventDispatcher>
#include <QDeadlineTimer>
#include <QTemporaryDir>
#include <QTest>
#include <algorithm>
#include <fcntl.h>
#include <filesystem>
#include <gtest/gtest.h>
#include <pty.h>
#include <termios.h>
#include <unistd.h>

namespace tessit::qt {

namespace {

class PseudoTerminal {
public:
    PseudoTerminal() {
        char name[128];
        termios raw{};
        cfmakeraw(&raw);
        EXPECT_EQ(openpty(&master_, &slave_, name, &raw, nullptr), 0);
        fcntl(master_, F_SETFL, O_NONBLOCK);
        port = {"pty", name};
    }
    ~PseudoTerminal() {
        hang_up();
        close(slave_);
    }

    // The other end stays open, so that no terminal of another process gets this one's name.
    void hang_up() {
        if (master_ >= 0) {
            close(std::exchange(master_, -1));
        }
    }
    void send(const std::string& bytes) const {
        EXPECT_EQ(write(master_, bytes.data(), bytes.size()), static_cast<ssize_t>(bytes.size()));
    }
    // While the event loop runs, which takes what the buffer between the two ends can't hold.
    void send_in_pieces(std::string_view bytes) const {
        EXPECT_TRUE(QTest::qWaitFor([&] {
            const ssize_t count = write(master_, bytes.data(), std::min<std::size_t>(bytes.size(), 4'000));
            bytes.remove_prefix(count < 0 ? 0 : static_cast<std::size_t>(count));
            return bytes.empty();
        }));
    }
    std::size_t take(std::size_t most) const {
        std::string buffer(most, '\0');
        const ssize_t count = read(master_, buffer.data(), most);
        return count < 0 ? 0 : static_cast<std::size_t>(count);
    }

    SerialPort port;

private:
    int master_ = -1;
    int slave_ = -1;
};

// Without an event loop, as a transfer reads.
std::string text_from(SerialLine& line, std::size_t count) {
    std::string text;
    for (const QDeadlineTimer end(10'000); text.size() < count && !end.hasExpired();) {
        for (const std::uint8_t byte : line.read(1)) {
            text.push_back(static_cast<char>(byte));
        }
    }
    return text;
}

TEST(QtSerial, forgets_stale_bytes_and_reads_split_ones) {
    PseudoTerminal device;
    QtSerialPorts ports;
    device.send("stale");
    const auto line = ports.open(device.port, {});
    ASSERT_NE(line, nullptr);
    EXPECT_TRUE(line->read(10).empty());
    device.send("\xAA");
    EXPECT_EQ(text_from(*line, 1), "\xAA");
    EXPECT_TRUE(line->read(1).empty());
    device.send("\x06z");
    EXPECT_EQ(text_from(*line, 1), "\x06");
    line->reset();
    EXPECT_TRUE(line->read(10).empty() && line->alive());
}

TEST(QtSerial, tells_the_same_ports_when_asked_ahead) {
    QtSerialPorts asked_now;
    QtSerialPorts asked_before;
    asked_before.ask_ahead();
    EXPECT_EQ(asked_before.list(), asked_now.list());
    EXPECT_EQ(asked_before.list(), asked_now.list()) << "again";
}

TEST(QtSerial, sends_without_an_event_loop) {
    PseudoTerminal device;
    QtSerialPorts ports;
    const auto line = ports.open(device.port, {});
    ASSERT_NE(line, nullptr);
    const std::uint8_t bytes[] = {0, 3, 17, 255};
    line->write(bytes);
    EXPECT_EQ(device.take(100), 4U) << "control bytes must pass unchanged";
}

TEST(QtSerial, survives_a_full_buffer) {
    PseudoTerminal device;
    QtSerialPorts ports;
    const auto line = ports.open(device.port, {});
    ASSERT_NE(line, nullptr);
    constexpr std::size_t amount = 50'000;
    line->write(std::vector<std::uint8_t>(amount, 'x'));
    EXPECT_TRUE(line->alive());
    std::size_t taken = 0;
    EXPECT_TRUE(QTest::qWaitFor(
        [&] {
            line->flush();
            taken += device.take(4096);
            return taken >= amount;
        },
        10'000))
        << taken;
    EXPECT_TRUE(line->alive());
}

TEST(QtSerial, a_hang_up_is_seen_and_costs_nothing) {
    PseudoTerminal device;
    QtSerialPorts ports;
    const auto line = ports.open(device.port, {});
    ASSERT_NE(line, nullptr);
    device.hang_up();
    int busy = 0; // rounds of the event loop that had something to do; with a flood of error signals nearly all have
    for (int round = 0; round < 1'000; ++round) {
        busy += QAbstractEventDispatcher::instance()->processEvents(QEventLoop::AllEvents) ? 1 : 0;
    }
    EXPECT_LT(busy, 100);
    EXPECT_TRUE(!line->alive() && line->read(5).empty());
    line->write(std::vector<std::uint8_t>{1, 2});
    line->flush();
    EXPECT_EQ(ports.open(device.port, {}), nullptr);
}

TEST(QtSerial, what_nobody_reads_does_not_pile_up_and_the_newest_stays) {
    PseudoTerminal device;
    QtSerialPorts ports;
    const auto line = ports.open(device.port, {});
    ASSERT_NE(line, nullptr);
    device.send_in_pieces(std::string(200'000, 'x') + "!");
    std::string text;
    EXPECT_TRUE(QTest::qWaitFor([&] {
        const auto bytes = line->read(200'000);
        text.append(bytes.begin(), bytes.end());
        return text.ends_with('!');
    }));
    EXPECT_LT(text.size(), 100'000U);
}

TEST(QtSerial, one_line_at_a_time_and_again_after_closing) {
    PseudoTerminal device;
    QtSerialPorts ports;
    auto line = ports.open(device.port, {});
    ASSERT_NE(line, nullptr);
    EXPECT_EQ(ports.open(device.port, {}), nullptr);
    const QTemporaryDir folder; // under another name it is the same port
    const SerialPort link{"link", folder.filePath("link").toStdString()};
    std::filesystem::create_symlink(device.port.device, link.device);
    EXPECT_EQ(ports.open(link, {}), nullptr);
    EXPECT_EQ(ports.holder(link).value_or(PortHolder()).process, getpid());
    line.reset();
    EXPECT_FALSE(ports.holder(link));
    EXPECT_NE(ports.open(device.port, {}), nullptr);
    EXPECT_EQ(ports.open({}, {}), nullptr);
    EXPECT_EQ(ports.open({"gone", "/dev/tessit-no-such-port"}, {}), nullptr);
}

TEST(QtClock, no_wait_ends_early) {
    QtClock clock;
    for (const Microseconds duration : {1, 150, 250, 1'000, 5'000, 10'000}) {
        const Microseconds start = clock.now();
        wait(clock, duration);
        EXPECT_GE(clock.now() - start, duration);
    }
}

TEST(QtClock, keeps_house_during_long_waits_only) {
    int calls = 0;
    QtClock clock([&] { ++calls; });
    wait(clock, 1'000);
    EXPECT_EQ(calls, 0);
    for (int count = 0; count < 12; ++count) {
        wait(clock, 10'000);
    }
    EXPECT_GE(calls, 2);
    EXPECT_LE(calls, 12);
}

} // namespace

} // namespace tessit::qt
