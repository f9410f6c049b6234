// SPDX-License-Identifier: MIT
#include "emulator/console.h"

#include <algorithm>
#include <charconv>
#include <sstream>
#include <stdexcept>

namespace tessit::emulator {

namespace {

using Words = std::vector<std::string>;
using Lines = std::vector<std::string>;

class BadCommand : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

int number(const std::string& word, const char* what, int least, int most) {
    int value = 0;
    const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), value);
    if (error != std::errc() || end != word.data() + word.size() || value < least || value > most) {
        throw BadCommand(std::string(what) + " must be a number from " + std::to_string(least) + " to " +
                         std::to_string(most) + ", not '" + word + "'");
    }
    return value;
}

void demand_words(const Words& words, std::size_t least, std::size_t most, const char* usage) {
    if (words.size() < least || words.size() > most) {
        throw BadCommand(std::string("use: ") + usage);
    }
}

std::string hex_line(const LevelBytes& bytes) {
    constexpr std::string_view digits = "0123456789abcdef";
    std::string line;
    for (const Byte byte : bytes) {
        line += line.empty() ? "" : " ";
        line += digits[byte / 16U];
        line += digits[byte % 16U];
    }
    return line;
}

int bank_number(const std::string& word) {
    return number(word, "BANK", 1, bank_count);
}

// The keys may be typed with blanks between them or without.
Lines press_keys(Generator& generator, const Words& words) {
    std::string keys;
    for (const std::string& word : words) {
        keys += word;
    }
    if (keys == "53") {
        generator.press_receive();
    } else if (keys.size() > 3 && keys.starts_with("52") && keys.back() == '#') {
        generator.press_send(bank_number(keys.substr(2, keys.size() - 3)));
    } else {
        throw BadCommand("use: 5 3 or 5 2 BANK #");
    }
    return {};
}

Lines dump(Generator& generator, const Words& words) {
    demand_words(words, 2, 2, "dump BANK");
    const int bank = bank_number(words[1]);
    Lines lines;
    for (int level = 1; level <= levels_per_bank; ++level) {
        lines.push_back(hex_line(generator.level(bank, level)));
    }
    return lines;
}

int hex_digit(char digit) {
    constexpr std::string_view digits = "0123456789abcdefABCDEF";
    const std::size_t place = digits.find(digit);
    if (place == std::string_view::npos) {
        throw BadCommand(std::string("no hexadecimal digit: '") + digit + "'");
    }
    return static_cast<int>(place < 16 ? place : place - 6);
}

LevelBytes level_bytes(const std::string& digits) {
    LevelBytes bytes;
    if (digits.size() != 2 * bytes.size()) {
        throw BadCommand("a level has 32 hexadecimal digits, not " + std::to_string(digits.size()));
    }
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        bytes[i] = static_cast<Byte>(16 * hex_digit(digits[2 * i]) + hex_digit(digits[2 * i + 1]));
    }
    return bytes;
}

// The bytes as dump prints them, or without the blanks.
Lines store(Generator& generator, const Words& words) {
    demand_words(words, 4, 3 + level_size, "store BANK LEVEL BYTES");
    const int bank = bank_number(words[1]);
    const int level = number(words[2], "LEVEL", 1, levels_per_bank);
    std::string digits;
    for (std::size_t i = 3; i < words.size(); ++i) {
        digits += words[i];
    }
    generator.store(bank, level, level_bytes(digits));
    return {};
}

Lines fill(Generator& generator, const Words& words) {
    demand_words(words, 2, 2, "fill BANK");
    generator.fill_with_example(bank_number(words[1]));
    return {};
}

Lines pace(Generator& generator, const Words& words) {
    demand_words(words, 2, 2, "pace on|off");
    if (words[1] != "on" && words[1] != "off") {
        throw BadCommand("use: pace on|off");
    }
    generator.set_pace(words[1] == "on" ? Pace::line_speed : Pace::unpaced);
    return {};
}

Lines latency(Generator& generator, const Words& words) {
    demand_words(words, 2, 2, "latency MS");
    generator.set_latency(latency_in_milliseconds(words[1]));
    return {};
}

Lines violations(Generator& generator, const Words& words) {
    demand_words(words, 1, 1, "violations");
    Lines lines = {std::to_string(generator.violations().size())};
    for (const Violation& violation : generator.violations()) {
        lines.push_back(to_text(violation));
    }
    return lines;
}

std::string wait_line(Wait wait, const std::vector<Gap>& gaps) {
    std::vector<Microseconds> measured;
    Microseconds slack = std::numeric_limits<Microseconds>::max();
    for (const Gap& gap : gaps) {
        if (gap.wait == wait) {
            measured.push_back(gap.measured);
            slack = std::min(slack, gap.slack);
        }
    }
    std::string line = std::string(name(wait)) + " prescribed " + std::to_string(prescribed(wait)) + " count " +
                       std::to_string(measured.size());
    if (!measured.empty()) {
        std::sort(measured.begin(), measured.end());
        line += " shortest " + std::to_string(measured.front()) + " median " +
                std::to_string(measured[measured.size() / 2]) + " longest " + std::to_string(measured.back()) +
                " slack " + std::to_string(slack);
    }
    return line;
}

// Of the levels alone: the handshake lasts as long as the user takes to press the keys.
Microseconds prescribed_in_levels(const std::vector<Gap>& gaps) {
    Microseconds sum = 0;
    for (const Gap& gap : gaps) {
        sum += gap.wait == Wait::call ? 0 : prescribed(gap.wait);
    }
    return sum;
}

// From the answer to the last acknowledge.
Lines reading_statistics(const std::vector<Gap>& gaps) {
    if (gaps.empty()) {
        return {};
    }
    Lines lines;
    for (const Wait wait : reading_waits) {
        lines.push_back(wait_line(wait, gaps));
    }
    Microseconds measured = 0;
    for (const Gap& gap : gaps) {
        measured += gap.measured;
    }
    lines.push_back("reading " + std::to_string(measured) + " prescribed " +
                    std::to_string(prescribed_in_levels(gaps)));
    return lines;
}

Lines wait_statistics(Generator& generator, const Words& words) {
    demand_words(words, 1, 1, "waits");
    Lines lines;
    for (const Wait wait : waits) {
        lines.push_back(wait_line(wait, generator.gaps()));
    }
    const LoadTimes& times = generator.load_times();
    if (times.first_call && times.first_address) {
        lines.push_back("handshake " + std::to_string(*times.first_address - *times.first_call));
    }
    if (times.first_address && times.last_acknowledge) {
        lines.push_back("transfer " + std::to_string(*times.last_acknowledge - *times.first_address) + " prescribed " +
                        std::to_string(prescribed_in_levels(generator.gaps())));
    }
    const Lines reading = reading_statistics(generator.reading_gaps());
    lines.insert(lines.end(), reading.begin(), reading.end());
    return lines;
}

Lines gap_list(Generator& generator, const Words& words) {
    demand_words(words, 1, 1, "gaps");
    Lines lines;
    for (const Gap& gap : generator.gaps()) {
        lines.push_back(std::string(name(gap.wait)) + " level " + std::to_string(gap.level) + " prescribed " +
                        std::to_string(prescribed(gap.wait)) + " measured " + std::to_string(gap.measured) + " slack " +
                        std::to_string(gap.slack));
    }
    return lines;
}

void set_place(Failure& failure, const std::string* word) {
    constexpr int calls_unless_told = 3;
    switch (place(failure.mode)) {
    case FailurePlace::level:
        failure.level = word == nullptr ? 1 : number(*word, "LEVEL", 1, levels_per_bank);
        break;
    case FailurePlace::offset:
        failure.offset = word == nullptr ? 0 : number(*word, "OFFSET", 0, bytes_sent - 1);
        break;
    case FailurePlace::calls:
        failure.offset = word == nullptr ? calls_unless_told : number(*word, "CALLS", 1, bytes_sent);
        break;
    }
}

Lines fail(Generator& generator, const Words& words) {
    demand_words(words, 2, 4, "fail MODE [PLACE] [TIMES]");
    const auto mode = failure_mode(words[1]);
    if (!mode) {
        throw BadCommand("no failure mode '" + words[1] + "'; modes lists them");
    }
    Failure failure{.mode = *mode};
    set_place(failure, words.size() > 2 ? &words[2] : nullptr);
    if (words.size() > 3) {
        failure.times = number(words[3], "TIMES", 0, 1'000'000);
    }
    generator.set_failure(failure);
    return {};
}

Lines modes(Generator&, const Words& words) {
    demand_words(words, 1, 1, "modes");
    const auto names = failure_names();
    return {names.begin(), names.end()};
}

Lines hang_up(Generator& generator, const Words& words) {
    demand_words(words, 1, 1, "hangup");
    generator.hang_up(AfterHangUp::can_be_opened_again);
    return {};
}

Lines unplug(Generator& generator, const Words& words) {
    demand_words(words, 1, 1, "unplug");
    generator.hang_up(AfterHangUp::stays_away);
    return {};
}

Lines plug(Generator& generator, const Words& words) {
    demand_words(words, 1, 1, "plug");
    generator.plug_in();
    return {};
}

Lines help(Generator& generator, const Words& words);

struct Command {
    const char* name;
    const char* usage;
    Lines (*run)(Generator&, const Words&);
};

constexpr std::array commands = {
    Command{"5", "5 3                        press 5 then 3: receive a bank, once", press_keys},
    Command{"5", "5 2 BANK #                 press 5, 2, the bank and #: call, then send it", press_keys},
    Command{"dump", "dump BANK                  the bank's 50 levels of 16 bytes, in hexadecimal", dump},
    Command{"store", "store BANK LEVEL BYTES     put a level into memory, its 16 bytes as dump prints them", store},
    Command{"fill", "fill BANK                  put an example of 50 levels into the bank", fill},
    Command{"violations", "violations                 how often the dialogue was broken, then each case", violations},
    Command{"waits", "waits                      pace of the last load and the last reading, in us", wait_statistics},
    Command{"gaps", "gaps                       each wait of the last load, in microseconds", gap_list},
    Command{"pace", "pace on|off                send at the line's 1920 bytes a second, or at once", pace},
    Command{"latency", "latency MS                 bytes arrive 0 to 16 ms later, as behind an adapter", latency},
    Command{"fail", "fail MODE [PLACE] [TIMES]  at a level, for sending_ an offset; TIMES 0: always", fail},
    Command{"modes", "modes                      the failure modes", modes},
    Command{"hangup", "hangup                     the line hangs up; a new one is there at once", hang_up},
    Command{"unplug", "unplug                     the line hangs up and stays away until plug", unplug},
    Command{"plug", "plug                       the line is back", plug},
    Command{"help", "help                       this list", help},
};

Lines help(Generator&, const Words& words) {
    demand_words(words, 1, 1, "help");
    Lines lines;
    for (const Command& command : commands) {
        lines.emplace_back(command.usage);
    }
    lines.emplace_back("quit                       end the generator");
    return lines;
}

Words words_of(std::string_view text) {
    std::istringstream stream{std::string(text)};
    Words words;
    for (std::string word; stream >> word;) {
        words.push_back(word);
    }
    return words;
}

Lines run(Generator& generator, const Words& words) {
    if (words[0].starts_with('5')) {
        return press_keys(generator, words);
    }
    const auto command = std::find_if(commands.begin(), commands.end(),
                                      [&](const Command& candidate) { return words[0] == candidate.name; });
    if (command == commands.end()) {
        throw BadCommand("unknown command '" + words[0] + "'; help lists them");
    }
    return command->run(generator, words);
}

} // namespace

Microseconds latency_in_milliseconds(const std::string& word) {
    return Microseconds{1000} * number(word, "the latency", 0, longest_latency_in_milliseconds);
}

Reply execute(Generator& generator, std::string_view command) {
    const Words words = words_of(command);
    if (words.empty()) {
        return {.lines = {}, .quit = false};
    }
    if (words == Words{"quit"}) {
        return {.lines = {"ok"}, .quit = true};
    }
    try {
        Lines lines = run(generator, words);
        lines.emplace_back("ok");
        return {.lines = std::move(lines), .quit = false};
    } catch (const BadCommand& error) {
        return {.lines = {std::string("error: ") + error.what()}, .quit = false};
    }
}

} // namespace tessit::emulator
