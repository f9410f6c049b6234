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

Lines receive(Generator& generator, const Words& words) {
    demand_words(words, 2, 2, "5 3");
    generator.press_receive();
    return {};
}

Lines dump(Generator& generator, const Words& words) {
    demand_words(words, 2, 2, "dump BANK");
    const int bank = number(words[1], "BANK", 1, bank_count);
    Lines lines;
    for (int level = 1; level <= levels_per_bank; ++level) {
        lines.push_back(hex_line(generator.level(bank, level)));
    }
    return lines;
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

Lines fail(Generator& generator, const Words& words) {
    demand_words(words, 2, 4, "fail MODE [LEVEL] [TIMES]");
    const auto mode = failure_mode(words[1]);
    if (!mode) {
        throw BadCommand("no failure mode '" + words[1] + "'; modes lists them");
    }
    Failure failure{.mode = *mode};
    if (words.size() > 2) {
        failure.level = number(words[2], "LEVEL", 1, levels_per_bank);
    }
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
    Command{"5",          "5 3                        press 5 then 3: receive a bank, once",                          receive        },
    Command{"dump",       "dump BANK                  the bank's 50 levels of 16 bytes, in hexadecimal",              dump           },
    Command{"violations", "violations                 how often the dialogue was broken, then each case",             violations     },
    Command{"waits",      "waits                      pace of the last load, in microseconds",                        wait_statistics},
    Command{"gaps",       "gaps                       each wait of the last load, in microseconds",                   gap_list       },
    Command{"fail",       "fail MODE [LEVEL] [TIMES]  fail at level 1 or LEVEL, always or TIMES times; none ends it", fail           },
    Command{"modes",      "modes                      the failure modes",                                             modes          },
    Command{"hangup",     "hangup                     the line hangs up; a new one is there at once",                 hang_up        },
    Command{"unplug",     "unplug                     the line hangs up and stays away until plug",                   unplug         },
    Command{"plug",       "plug                       the line is back",                                              plug           },
    Command{"help",       "help                       this list",                                                     help           },
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
    return words == Words{"53"} ? Words{"5", "3"} : words;
}

Lines run(Generator& generator, const Words& words) {
    const bool other_key = words[0] == "5" && words.size() == 2 && words[1] != "3";
    const auto command = std::find_if(commands.begin(), commands.end(),
                                      [&](const Command& candidate) { return words[0] == candidate.name; });
    if (command == commands.end() || other_key) {
        throw BadCommand("unknown command '" + words[0] + (other_key ? " " + words[1] : "") + "'; help lists them");
    }
    return command->run(generator, words);
}

} // namespace

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
