// SPDX-License-Identifier: MIT
#include "dialogue.h"
#include "emulator/emulated_line.h"

#include <gtest/gtest.h>

namespace tessit::emulator::test {
namespace {

// A sender with the retries of the program, over the emulated line on a simulated clock.
class Sender {
public:
    explicit Sender(Generator& generator) : ports_(generator, clock_), serial_(ports_) {
        serial_.SetSerialPort(ports_.list().front());
        EXPECT_TRUE(serial_.Open());
    }

    // "loaded", "no connection", "address 3" or "data 3".
    std::string load() {
        if (!handshake()) {
            return "no connection";
        }
        const Script script = load_script();
        for (int level = 1; level <= 50; ++level) {
            const auto begin = script.begin() + 1 + 19 * (level - 1);
            send(begin, begin + 2);
            if (!acknowledged()) {
                return "address " + std::to_string(level);
            }
            send(begin + 2, begin + 19);
            if (!acknowledged()) {
                return "data " + std::to_string(level);
            }
        }
        return "loaded";
    }

    bool reopen() { return serial_.Open(); }
    int tries() const { return tries_; }

private:
    bool handshake() {
        for (tries_ = 1; tries_ <= 1000; ++tries_) {
            serial_.Write('V');
            wait(clock_, 10'000);
            if (serial_.ReadByte() == 170 && serial_.ReadByte() == 6) {
                return true;
            }
        }
        return false;
    }

    void send(Script::const_iterator begin, Script::const_iterator end) {
        for (auto sent = begin; sent != end; ++sent) {
            wait(clock_, sent == begin ? 0 : sent->wait);
            serial_.Write(sent->byte);
        }
    }

    bool acknowledged() {
        for (int misses = 0; misses <= 100; ++misses) {
            if (serial_.ReadByte() == 6) {
                return true;
            }
            wait(clock_, 1'000);
        }
        return false;
    }

    SimulatedClock clock_;
    EmulatedPorts ports_;
    Serial serial_;
    int tries_ = 0;
};

TEST(Failure, EachMode_EndsTheLoadAsItSays) {
    const struct {
        FailureMode mode;
        int level;
        const char* outcome;
        int stored; // levels that the generator has taken
    } cases[] = {
        {FailureMode::none, 1, "loaded", 50},
        {FailureMode::handshake_silent, 1, "no connection", 0},
        {FailureMode::handshake_split, 1, "no connection", 0},
        {FailureMode::handshake_late, 1, "loaded", 50},
        {FailureMode::handshake_wrong_first, 1, "no connection", 0},
        {FailureMode::handshake_wrong_second, 1, "no connection", 0},
        {FailureMode::handshake_stale_bytes, 1, "loaded", 50},
        {FailureMode::handshake_hang_up, 1, "no connection", 0},
        {FailureMode::address_ack_lost, 1, "address 1", 0},
        {FailureMode::address_ack_lost, 50, "address 50", 49},
        {FailureMode::address_ack_late, 7, "loaded", 50},
        {FailureMode::address_ack_too_late, 7, "address 7", 6},
        {FailureMode::address_ack_wrong, 7, "address 7", 6},
        {FailureMode::address_stray_bytes, 7, "loaded", 50},
        {FailureMode::address_hang_up, 7, "address 7", 6},
        {FailureMode::data_ack_lost, 1, "data 1", 1},
        {FailureMode::data_ack_lost, 50, "data 50", 50},
        {FailureMode::data_ack_late, 7, "loaded", 50},
        {FailureMode::data_ack_too_late, 7, "data 7", 7},
        {FailureMode::data_ack_wrong, 7, "data 7", 7},
        {FailureMode::data_stray_bytes, 7, "loaded", 50},
        {FailureMode::data_hang_up, 7, "data 7", 6},
        {FailureMode::between_levels_hang_up, 7, "address 8", 7},
    };
    for (const auto& [mode, level, outcome, stored] : cases) {
        SCOPED_TRACE(std::string(name(mode)) + " at " + std::to_string(level));
        Generator generator;
        generator.press_receive();
        generator.set_failure({.mode = mode, .level = level});
        EXPECT_EQ(Sender(generator).load(), outcome);
        EXPECT_EQ(generator.violations().size(), 0u);
        for (const int n : {1, stored, stored + 1}) {
            if (n >= 1 && n <= 50) {
                EXPECT_EQ(generator.level(7, n) != never_loaded, n <= stored) << "level " << n;
            }
        }
    }
}

TEST(Failure, PlayedOnce_SecondLoadSucceedsAfterTheKeysArePressedAgain) {
    for (const std::string_view mode_name : failure_names()) {
        SCOPED_TRACE(mode_name);
        Generator generator;
        Sender sender(generator);
        generator.set_failure({.mode = *failure_mode(mode_name), .level = 2, .times = 1});
        for (int load = 1; load <= 2; ++load) {
            generator.press_receive();
            if (load == 2) {
                EXPECT_TRUE(sender.reopen());
                EXPECT_EQ(sender.load(), "loaded");
            } else {
                sender.load();
            }
        }
        EXPECT_EQ(generator.level(7, 50), unset_level);
        EXPECT_EQ(generator.violations().size(), 0u);
    }
}

TEST(Failure, InAHandshakePlayedOnce_TheProgramGetsThroughWithinItsTries) {
    const struct {
        FailureMode mode;
        int tries;
    } cases[] = {
        {FailureMode::none, 1},
        {FailureMode::handshake_silent, 2},
        {FailureMode::handshake_split, 12}, // lost answers are repeated after ten more calls
        {FailureMode::handshake_late, 3},
        {FailureMode::handshake_wrong_first, 11},
        {FailureMode::handshake_wrong_second, 11},
        {FailureMode::handshake_stale_bytes, 11},
    };
    for (const auto& [mode, tries] : cases) {
        Generator generator;
        generator.press_receive();
        generator.set_failure({.mode = mode, .level = 1, .times = 1});
        Sender sender(generator);
        EXPECT_EQ(sender.load(), "loaded") << name(mode);
        EXPECT_EQ(sender.tries(), tries) << name(mode);
    }
}

} // namespace
} // namespace tessit::emulator::test
