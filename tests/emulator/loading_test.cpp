// SPDX-License-Identifier: MIT
#include "dialogue.h"

#include <gtest/gtest.h>

namespace tessit::emulator::test {
namespace {

// The short form of a wait's violation, for the table below.
std::string without_words(std::string text) {
    for (const std::string_view words : {"a wait of ", "the next byte ", " too early"}) {
        if (const auto place = text.find(words); place != std::string::npos) {
            text.erase(place, words.size());
        }
    }
    return text;
}

struct InReceiveMode : Generator {
    InReceiveMode() { press_receive(); }
};

TEST(Loading, literal_dialogue_is_answered_byte_for_byte) {
    InReceiveMode generator;
    const Script script = load_script(2);
    Microseconds at = 0;
    for (std::size_t i = 0; i < script.size(); ++i) {
        at += script[i].wait;
        generator.receive(script[i].byte, at);
        const bool address_or_count = i == low_at || i == count_at || i == next_level_at + 1 || i == script.size() - 1;
        const Bytes expected = i == call_at ? Bytes{170, 6} : address_or_count ? Bytes{6} : Bytes{};
        EXPECT_EQ(generator.take(at), expected) << "behind byte " << i;
    }
    EXPECT_EQ(violation_texts(generator), "");
    EXPECT_EQ(generator.level(7, 1), hz_7_83);
    EXPECT_EQ(generator.level(7, 2), unset_level);
    EXPECT_EQ(generator.level(7, 3), never_loaded);
    EXPECT_EQ(generator.level(6, 50), never_loaded);
}

TEST(Loading, fifty_levels_end_receive_mode_unless_told_to_stay) {
    InReceiveMode once;
    Generator always(AfterLoad::stay_in_receive_mode);
    EXPECT_TRUE(always.receiving());
    for (Generator* generator : {static_cast<Generator*>(&once), &always}) {
        play(*generator, load_script());
        EXPECT_EQ(violation_texts(*generator), "");
        EXPECT_EQ(generator->level(7, 50), unset_level);
        const LoadTimes& times = generator->load_times();
        EXPECT_EQ(*times.first_address - *times.first_call, 10'000);
        EXPECT_EQ(*times.last_acknowledge - *times.first_address, 50 * 95'000);
        EXPECT_EQ(generator->gaps().size(), 1 + 50 * 17u);
    }
    EXPECT_TRUE(!once.receiving() && always.receiving());
}

TEST(Loading, wrap_of_the_low_address_byte_is_carried) {
    InReceiveMode generator;
    Script script = {{0, 'V'}};
    for (int level = 1; level <= 17; ++level) {
        append_level(script, 16 * (level - 1), unset_level, 15, level == 1 ? 10'000 : 0);
    }
    EXPECT_EQ(script[script.size() - 19].byte, 1); // level 17 of bank 1 begins at 1, 0
    play(generator, script);
    EXPECT_EQ(violation_texts(generator), "");
    EXPECT_EQ(generator.level(1, 17), unset_level);
}

enum class Fate { stored, refused };

TEST(Loading, each_breach_is_remembered) {
    // A level with wrong bytes is neither stored nor acknowledged.
    const std::tuple<std::size_t, Sent, Fate, const char*> cases[] = {
        {record_at + 2, {5'000, 151}, Fate::refused, "check byte 30 / byte 31"},
        {record_at + 11, {5'000, 0}, Fate::refused, "check byte 31 / byte 0"},
        {count_at, {5'000, 5}, Fate::refused, "count byte 4 / byte 5"},
        {padding_at + 3, {5'000, 0}, Fate::refused, "padding, byte 255 / byte 0"},
        {low_at,
         {10'000, 193},
         Fate::refused,
         "the start of a bank / address 4801 (18, 193); a call, byte 86 / byte 0"},
        {record_at + 5, {6'000'000, 3}, Fate::refused, "the rest of the load / nothing; a call, byte 86 / byte 3"},
        {high_at, {9'999, 18}, Fate::stored, "10000 us after call / 1 us"},
        {low_at, {9'000, 192}, Fate::stored, "10000 us after address_high / 1000 us"},
        {record_at + 1, {5'000, 30}, Fate::stored, "10000 us after first_byte / 5000 us"},
        {record_at + 11, {4'990, 31}, Fate::stored, "5000 us after further_byte / 10 us"},
        {padding_at, {0, 255}, Fate::stored, "5000 us after further_byte / 5000 us"},
        {count_at, {4'999, 4}, Fate::stored, "5000 us after padding / 1 us"},
    };
    for (const auto& [place, instead, fate, violation] : cases) {
        InReceiveMode generator;
        Script script = load_script(1);
        script[place] = instead;
        play(generator, script);
        EXPECT_EQ(without_words(violation_texts(generator)), violation);
        EXPECT_EQ(generator.level(7, 1), fate == Fate::stored ? hz_7_83 : never_loaded) << violation;
        EXPECT_EQ(generator.receiving(), fate == Fate::stored) << violation;
    }
}

TEST(Loading, bytes_before_the_call_and_a_call_that_crossed_the_answer_do_no_harm) {
    const std::tuple<int, Script, const char*> cases[] = {
        {0, Script(3, {0, 6}), "a call, byte 86 / byte 6"}, // one breach
        {1, {{10'000, 'V'}}, ""},
    };
    for (const auto& [place, bytes, violation] : cases) {
        InReceiveMode generator;
        Script script = load_script(1);
        script.insert(script.begin() + place, bytes.begin(), bytes.end());
        EXPECT_EQ(generator.take(play(generator, script)), (Bytes{170, 6, 6, 6}));
        EXPECT_EQ(violation_texts(generator), violation);
    }
}

TEST(Loading, address_that_does_not_follow_is_refused_with_its_level) {
    InReceiveMode generator;
    Script script = load_script(2);
    script[next_level_at + 1].byte = 0xe0; // level 3's
    play(generator, Script(script.begin(), script.begin() + next_level_at + 2));
    ASSERT_EQ(generator.violations().size(), 1u);
    EXPECT_EQ(to_text(generator.violations()[0]),
              "1115000 us, level 2: expected address 4816 (18, 208), came address 4832 (18, 224)");
    EXPECT_EQ(generator.take(2'000'000), (Bytes{170, 6, 6, 6})); // the fourth would be level 2's address
}

TEST(Loading, unset_level_with_another_check_byte_is_refused) {
    InReceiveMode generator;
    Script script = load_script(2);
    script[next_level_at + 2 + 11].byte = 11; // this one brings the sum to 0
    play(generator, script);
    EXPECT_EQ(violation_texts(generator), "check byte 0 / byte 11");
}

TEST(Loading, sender_that_does_not_wait_for_the_acknowledge_is_told) {
    for (const FailureMode mode :
         {FailureMode::address_ack_lost, FailureMode::address_ack_late, FailureMode::address_ack_wrong}) {
        InReceiveMode generator;
        generator.set_failure({.mode = mode});
        play(generator, load_script(1));
        EXPECT_EQ(violation_texts(generator), "a pause until the acknowledge / the next byte") << name(mode);
    }
}

TEST(Loading, calls_before_the_keys_are_pressed_are_not_answered_and_no_breach) {
    Generator generator;
    const Script calls(5, {10'000, 'V'});
    Microseconds at = play(generator, calls);
    EXPECT_EQ(generator.take(at), Bytes{});
    EXPECT_EQ(generator.unheard_calls(), 5);
    generator.press_receive();
    Script script = load_script(1);
    script[call_at].wait = 10'000;
    at = play(generator, script, at);
    EXPECT_EQ(generator.take(at), (Bytes{170, 6, 6, 6}));
    EXPECT_EQ(joined(violation_texts(generator), generator.unheard_calls()), "|0");
}

TEST(Loading, calls_that_go_on_after_the_answer_are_a_breach_and_answered_again) {
    InReceiveMode generator;
    const Microseconds at = play(generator, Script(11, {10'000, 'V'}));
    EXPECT_EQ(generator.take(at), (Bytes{170, 6, 170, 6}));
    EXPECT_EQ(violation_texts(generator), "the first address / calls although they were answered");
}

TEST(Loading, calls_that_a_held_up_reader_takes_in_together_are_answered_once_without_a_breach) {
    InReceiveMode generator;
    generator.receive('V', {.earliest = 1'000'000, .latest = 1'150'000});
    for (int i = 0; i < 14; ++i) {
        generator.receive('V', {.earliest = 1'000'000, .latest = 1'150'000});
    }
    EXPECT_EQ(generator.take(1'150'000), (Bytes{170, 6}));
    EXPECT_EQ(violation_texts(generator), "");
}

TEST(Loading, sender_that_gave_up_on_a_late_reader_begins_anew_without_a_breach) {
    const std::pair<std::size_t, const char*> cases[] = {{low_at + 1, "the address"}, {count_at + 1, "the record"}};
    for (const auto& [bytes, behind] : cases) {
        InReceiveMode generator;
        Script script = load_script(1);
        script.resize(bytes);
        const Microseconds at = play(generator, script);
        generator.take(at);
        generator.excuse();
        EXPECT_EQ(generator.take(play(generator, load_script(1), at + 200'000)), (Bytes{170, 6, 6, 6})) << behind;
        EXPECT_EQ(violation_texts(generator), "") << behind;
    }
}

TEST(Loading, load_given_up_in_the_middle_next_call_begins_a_new_one) {
    InReceiveMode generator;
    Microseconds at = play(generator, load_script(3));
    generator.take(at);
    at = play(generator, load_script(1), at + 20'000);
    EXPECT_EQ(generator.take(at), (Bytes{170, 6, 6, 6}));
    EXPECT_EQ(violation_texts(generator), "the rest of the load / a new call");
    EXPECT_EQ(generator.level(7, 3), unset_level);
}

TEST(Loading, keys_pressed_during_a_load_give_it_up_without_a_breach) {
    InReceiveMode generator;
    Script script = load_script(1);
    script.resize(record_at + 4);
    const Microseconds at = play(generator, script);
    generator.take(at);
    generator.press_receive();
    EXPECT_EQ(generator.take(play(generator, load_script(1), at + 20'000)), (Bytes{170, 6, 6, 6}));
    EXPECT_EQ(violation_texts(generator), "");
}

} // namespace
} // namespace tessit::emulator::test
