// SPDX-License-Identifier: MIT
// The reading dialogue from the generator's side, in literal bytes. It shares no code with the program.
#include "dialogue.h"
#include "emulator/example_bank.h"

#include <gtest/gtest.h>
#include <set>

namespace tessit::emulator::test {
namespace {

constexpr LevelBytes marked(Byte mark) {
    return {0x00, 0x1e, mark, 0x08, 0x00, 0x03, 0x15, 0x07, 0x00, 0x00, 0x01, 0x24, 0xff, 0xff, 0xff, 0xff};
}

template <class... Parts> Bytes chained(const Parts&... parts) {
    Bytes all;
    (all.insert(all.end(), parts.begin(), parts.end()), ...);
    return all;
}

// One record on the line, by its place in the bank's 51.
Bytes record_of(const Bytes& bytes, int record) {
    return {bytes.begin() + 19 * (record - 1), bytes.begin() + 19 * record};
}

struct SendingTest : ::testing::Test {
    Generator generator;
    Microseconds now = 1'000'000;

    SendingTest() {
        for (int level = 1; level <= 50; ++level) {
            generator.store(7, level, marked(static_cast<Byte>(level)));
        }
    }

    Bytes after(Microseconds wait) {
        now += wait;
        generator.pass_time(now);
        return generator.take(now);
    }
    Bytes at(Microseconds wait, Byte byte) {
        now += wait;
        generator.receive(byte, now);
        return generator.take(now);
    }
    void answer() {
        at(1'000, 170);
        EXPECT_EQ(at(5'000, 6), (Bytes{18, 192})); // bank 7 begins at 4800
    }
};

TEST_F(SendingTest, literal_dialogue_sends_address_and_record_on_alternate_acknowledges) {
    generator.press_send(7);
    EXPECT_EQ(after(0), Bytes{'V'});
    EXPECT_EQ(after(49'999), Bytes{});
    EXPECT_EQ(after(1), Bytes{'V'});
    EXPECT_EQ(at(10'000, 170), Bytes{});
    EXPECT_EQ(at(5'000, 6), (Bytes{0x12, 0xc0}));
    EXPECT_EQ(at(12'000, 6), (Bytes{0x00, 0x1e, 1, 0x08, 0, 3, 0x15, 7, 0, 0, 1, 0x24, 255, 255, 255, 255, 4}));
    EXPECT_EQ(at(10, 6), (Bytes{0x12, 0xd0}));
    EXPECT_EQ(at(12'000, 6), (Bytes{0x00, 0x1e, 2, 0x08, 0, 3, 0x15, 7, 0, 0, 1, 0x24, 255, 255, 255, 255, 4}));
    EXPECT_EQ(after(1'000'000), Bytes{}); // nothing more without an acknowledge, and no call either
    EXPECT_EQ(violation_texts(generator), "");
}

TEST_F(SendingTest, answered_it_ends_behind_the_hundred_and_tenth_acknowledge) {
    generator.press_send(7);
    after(0);
    answer();
    Bytes sent;
    for (int round = 1; round <= 55; ++round) {
        EXPECT_TRUE(generator.sending()) << round;
        const Bytes record = at(12'000, 6);
        sent = chained(sent, record, at(10, 6));
    }
    EXPECT_EQ(sent.size(), 969u - 2);
    EXPECT_FALSE(generator.sending());
    EXPECT_EQ(joined(violation_texts(generator), generator.reading_gaps().size()), "|111");
}

TEST(BytesOfReading, last_record_is_what_follows_the_bank_in_memory) {
    Memory memory;
    memory.store(8, 1, hz_7_83);
    memory.store(1, 1, unset_level);
    const Bytes bank_7 = bytes_of_reading(memory, 7);
    ASSERT_EQ(bank_7.size(), 969u);
    const Bytes never_loaded_behind_its_address = chained(Bytes(16, 255), Bytes{15});
    EXPECT_EQ(record_of(bank_7, 50), chained(Bytes{21, 208}, never_loaded_behind_its_address)); // address 5584
    EXPECT_EQ(record_of(bank_7, 51), chained(Bytes{21, 224}, hz_7_83, Bytes{4}));               // 5600: bank 8
    EXPECT_EQ(record_of(bytes_of_reading(memory, 1), 1), chained(Bytes{0, 0}, unset_level, Bytes{15}));
    const Bytes bank_40 = bytes_of_reading(memory, 40);
    EXPECT_EQ(record_of(bank_40, 1), chained(Bytes{121, 224}, never_loaded_behind_its_address));
    EXPECT_EQ(record_of(bank_40, 51), chained(Bytes{125, 0}, never_loaded_behind_its_address)); // 32000: no memory
}

enum class Then { goes_on, ends };

// What a program that sends these bytes is told, and whether the generator goes on.
void expect_breach(const Script& script, const std::string& violation, Then then) {
    SCOPED_TRACE(violation);
    Generator generator;
    generator.press_send(7);
    Microseconds now = 1'000'000;
    generator.pass_time(now);
    for (const Sent& sent : script) {
        now += sent.wait;
        generator.pass_time(now);
        generator.receive(sent.byte, now);
    }
    EXPECT_EQ(violation_texts(generator), violation);
    EXPECT_EQ(generator.sending(), then == Then::goes_on);
}

TEST(Sending, each_breach_is_remembered) {
    const Script good = {{0, 170}, {5'000, 6}, {12'000, 6}, {10, 6}, {12'000, 6}};
    const auto with = [&](std::size_t place, Sent instead) {
        Script script(good.begin(), good.begin() + static_cast<std::ptrdiff_t>(place));
        script.push_back(instead);
        return script;
    };
    const char* nothing = "the rest of the acknowledges / nothing; a call, byte 86 / byte 6";
    expect_breach(good, "", Then::goes_on);
    expect_breach(with(0, {0, 171}), "an answer, byte 170 / byte 171", Then::goes_on);
    expect_breach(with(0, {0, 6}), "an answer, byte 170 / byte 6", Then::goes_on);
    expect_breach(with(0, {0, 'V'}), "", Then::goes_on); // the user should have pressed 5 3
    expect_breach(with(1, {5'000, 7}), "the answer's byte 6 / byte 7", Then::goes_on);
    expect_breach(with(1, {4'999, 6}), "a wait of 5000 us after answer / the next byte 1 us too early", Then::goes_on);
    expect_breach(with(1, {5'000'000, 6}), nothing, Then::ends);
    expect_breach(with(2, {11'000, 6}), "a wait of 12000 us after record_acknowledge / the next byte 1000 us too early",
                  Then::goes_on);
    expect_breach(with(2, {12'000, 21}), "an acknowledge, byte 6 / byte 21", Then::ends);
    expect_breach(with(3, {9, 6}), "a wait of 10 us after address_acknowledge / the next byte 1 us too early",
                  Then::goes_on);
    expect_breach(with(3, {5'000'000, 6}), nothing, Then::ends);
    expect_breach(with(4, {11'999, 6}), "a wait of 12000 us after record_acknowledge / the next byte 1 us too early",
                  Then::goes_on);
}

TEST_F(SendingTest, keys_of_a_load_end_the_sending_and_the_other_way_round) {
    generator.press_send(7);
    after(0);
    generator.press_receive();
    EXPECT_FALSE(generator.sending());
    EXPECT_EQ(at(1'000, 'V'), (Bytes{170, 6}));
    generator.press_send(7);
    EXPECT_FALSE(generator.receiving());
    EXPECT_EQ(after(0), Bytes{'V'});
    EXPECT_EQ(violation_texts(generator), "");
}

TEST_F(SendingTest, generator_that_stays_in_receive_mode_returns_to_it_behind_a_reading) {
    Generator always(AfterLoad::stay_in_receive_mode);
    always.press_send(1);
    EXPECT_FALSE(always.receiving());
    always.receive(170, now);
    always.receive(6, now += 5'000);
    for (int i = 0; i < 110; ++i) {
        always.receive(6, now += 12'000);
    }
    EXPECT_TRUE(always.receiving());
    EXPECT_EQ(violation_texts(always), "");
}

TEST_F(SendingTest, pace_and_latency_say_when_each_byte_is_there) {
    generator.set_pace(Pace::line_speed);
    generator.set_latency(3'000);
    generator.press_send(7);
    EXPECT_EQ(after(0), Bytes{});
    EXPECT_EQ(after(2'999), Bytes{});
    EXPECT_EQ(after(1), Bytes{'V'});
    at(0, 170);
    at(5'000, 6);
    EXPECT_EQ(after(3'520), Bytes{});
    EXPECT_EQ(after(1), Bytes{18});
    EXPECT_EQ(after(521), Bytes{192});
    at(10'000, 6);
    at(10, 6); // queues behind the record
    EXPECT_EQ(after(2'990 + 17 * 521).size(), 17u);
    EXPECT_EQ(after(521), Bytes{18});
    EXPECT_EQ(generator.next_event(), now + 521);
    EXPECT_EQ(after(521), Bytes{208});
}

TEST(ExampleBank, levels_are_valid_and_every_kind_occurs) {
    std::set<int> modes;
    std::set<int> scales;
    for (const LevelBytes& level : example_bank()) {
        int sum = 0;
        for (std::size_t i = 0; i < 12; ++i) {
            sum += level[i];
        }
        EXPECT_EQ(sum % 256, 0);
        EXPECT_NE(level[2], 255); // else a saved file would lack the level
        EXPECT_LT(level[4], 60);
        EXPECT_TRUE(level[7] >= 1 && level[7] <= 9);
        modes.insert(level[6]);
        scales.insert(level[3]);
    }
    EXPECT_GT(modes.size(), 25u);
    EXPECT_EQ(scales, (std::set<int>{1, 2, 4, 8}));
}

} // namespace
} // namespace tessit::emulator::test
