// SPDX-License-Identifier: MIT
#include "dialogue.h"
#include "emulator/console.h"
#include "emulator/example_bank.h"

#include <gtest/gtest.h>

namespace tessit::emulator::test {
namespace {

using Lines = std::vector<std::string>;

const Lines ok = {"ok"};

TEST(Console, keys_put_the_generator_into_receive_mode) {
    for (const char* keys : {"5 3", "53", "  5   3  "}) {
        Generator generator;
        EXPECT_EQ(execute(generator, keys).lines, ok);
        EXPECT_TRUE(generator.receiving());
    }
}

TEST(Console, keys_call_to_have_a_bank_read) {
    for (const char* keys : {"5 2 7 #", "527#", "5 2 07 #", " 5  2  7# "}) {
        Generator generator;
        EXPECT_EQ(execute(generator, keys).lines, ok);
        EXPECT_TRUE(generator.sending());
        generator.receive(170, 0);
        generator.receive(6, 5'000);
        EXPECT_EQ(generator.take(5'000), (std::vector<Byte>{'V', 18, 192})) << keys;
    }
}

TEST(Console, store_and_fill_put_levels_into_memory) {
    Generator generator;
    for (const char* bytes :
         {"001e96080003 1d0500 00001FFFFFFFFF", "00 1e 96 08 00 03 1d 05 00 00 00 1f ff ff ff ff"}) {
        EXPECT_EQ(execute(generator, std::string("store 7 50 ") + bytes).lines, ok);
        EXPECT_EQ(generator.level(7, 50), hz_7_83);
    }
    EXPECT_EQ(generator.level(7, 49), never_loaded);
    EXPECT_EQ(execute(generator, "fill 40").lines, ok);
    EXPECT_EQ(generator.level(40, 50), example_bank()[49]);
}

TEST(Console, pace_latency_and_failures_act_on_the_sending) {
    Generator generator;
    for (const char* command : {"pace on", "latency 3", "fail sending_extra_calls", "5 2 7 #"}) {
        EXPECT_EQ(execute(generator, command).lines, ok);
    }
    generator.receive(170, 0);
    EXPECT_EQ(generator.take(3'000 + 2 * 521).size(), 1u + 2); // the call of the beginning and two of three more
    execute(generator, "pace off");
    execute(generator, "latency 0");
    EXPECT_EQ(generator.take(3 * 521).size(), 1u);
}

TEST(Console, waits_tell_those_of_the_last_reading_too) {
    Generator generator;
    execute(generator, "5 2 7 #");
    generator.receive(170, 0);
    generator.receive(6, 5'000);
    generator.receive(6, 17'000);
    generator.receive(6, 17'020);
    generator.receive(6, 29'021);
    const Lines lines = execute(generator, "waits").lines;
    EXPECT_EQ(Lines(lines.end() - 5, lines.end()),
              (Lines{"answer prescribed 5000 count 1 shortest 5000 median 5000 longest 5000 slack 0",
                     "record_acknowledge prescribed 12000 count 2 shortest 12000 median 12001 longest 12001 slack 0",
                     "address_acknowledge prescribed 10 count 1 shortest 20 median 20 longest 20 slack 10",
                     "reading 29021 prescribed 29010", "ok"}));
}

TEST(Console, records_tell_pace_and_breaches_of_the_last_load) {
    Generator generator;
    generator.press_receive();
    Script script = load_script();
    script[low_at].wait = 12'000;
    script[count_at].wait = 4'000;
    play(generator, script);
    EXPECT_EQ(execute(generator, "waits").lines,
              (Lines{"call prescribed 10000 count 1 shortest 10000 median 10000 longest 10000 slack 0",
                     "address_high prescribed 10000 count 50 shortest 10000 median 10000 longest 12000 slack 0",
                     "first_byte prescribed 10000 count 50 shortest 10000 median 10000 longest 10000 slack 0",
                     "further_byte prescribed 5000 count 550 shortest 5000 median 5000 longest 5000 slack 0",
                     "padding prescribed 5000 count 200 shortest 4000 median 5000 longest 5000 slack -1000",
                     "handshake 10000", "transfer 4751000 prescribed 4750000", "ok"}));
    const Lines gaps = execute(generator, "gaps").lines;
    ASSERT_EQ(gaps.size(), 852u);
    EXPECT_EQ(gaps[0], "call level 0 prescribed 10000 measured 10000 slack 0");
    EXPECT_EQ(gaps[1], "address_high level 1 prescribed 10000 measured 12000 slack 2000");
    EXPECT_EQ(execute(generator, "violations").lines,
              (Lines{"1",
                     "1106000 us, level 1: expected a wait of 5000 us after padding, "
                     "came the next byte 1000 us too early",
                     "ok"}));
}

TEST(Console, fail_sets_mode_level_and_times) {
    Generator generator;
    generator.press_receive();
    EXPECT_EQ(execute(generator, "fail handshake_silent 1 2").lines, ok);
    const Script calls(3, {10'000, 'V'});
    EXPECT_EQ(generator.take(play(generator, calls)), (std::vector<Byte>{170, 6}));
    const Lines modes = execute(generator, "modes").lines;
    EXPECT_EQ(joined(modes.front(), modes[modes.size() - 2]), "none|sending_hang_up");
}

TEST(Console, wrong_commands_get_one_clear_error) {
    const std::pair<const char*, const char*> cases[] = {
        {"blink", "error: unknown command 'blink'; help lists them"},
        {"5 2", "error: use: 5 3 or 5 2 BANK #"},
        {"5 2 7", "error: use: 5 3 or 5 2 BANK #"},
        {"5 2 0 #", "error: BANK must be a number from 1 to 40, not '0'"},
        {"5 2 41 #", "error: BANK must be a number from 1 to 40, not '41'"},
        {"store 7 1", "error: use: store BANK LEVEL BYTES"},
        {"store 7 51 00", "error: LEVEL must be a number from 1 to 50, not '51'"},
        {"store 7 1 001", "error: a level has 32 hexadecimal digits, not 3"},
        {"store 7 1 0000000000000000000000000000000g", "error: no hexadecimal digit: 'g'"},
        {"fill", "error: use: fill BANK"},
        {"pace fast", "error: use: pace on|off"},
        {"latency 17", "error: the latency must be a number from 0 to 16, not '17'"},
        {"fail sending_stops 969", "error: OFFSET must be a number from 0 to 968, not '969'"},
        {"fail sending_extra_calls 0", "error: CALLS must be a number from 1 to 969, not '0'"},
        {"dump", "error: use: dump BANK"},
        {"dump 7x", "error: BANK must be a number from 1 to 40, not '7x'"},
        {"fail", "error: use: fail MODE [PLACE] [TIMES]"},
        {"fail often", "error: no failure mode 'often'; modes lists them"},
        {"fail none 51", "error: LEVEL must be a number from 1 to 50, not '51'"},
        {"fail none 1 -1", "error: TIMES must be a number from 0 to 1000000, not '-1'"},
        {"help me", "error: use: help"},
    };
    for (const auto& [command, error] : cases) {
        Generator generator;
        EXPECT_EQ(execute(generator, command).lines, Lines{error}) << command;
        EXPECT_FALSE(generator.receiving() || generator.sending()) << command;
    }
}

TEST(Console, empty_line_and_quit) {
    Generator generator;
    EXPECT_EQ(execute(generator, " ").lines, Lines{});
    const Reply reply = execute(generator, "quit");
    EXPECT_TRUE(reply.quit);
    EXPECT_EQ(reply.lines, ok);
}

} // namespace
} // namespace tessit::emulator::test
