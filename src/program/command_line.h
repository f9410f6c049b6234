// SPDX-License-Identifier: MIT
// What a shell or a file manager passes to the program: a file to open, or a question that needs no display.
#pragma once

#include <filesystem>
#include <optional>

namespace tessit {

struct CommandLine {
    enum class Wish { start, help, version, none }; // none: it could not be understood, and standard error says why

    Wish wish = Wish::start;
    std::optional<std::filesystem::path> file{};
};

CommandLine read_command_line(int argc, char* argv[]);

inline constexpr const char* usage = R"(Usage: tessit-control [FILE]
       tessit-control --help | --version

The desktop program of the Zephon II frequency generator. FILE is opened once the program has started: a list of
frequencies (.csv) in the consolidator, any other file as a protocol (.zp2) in the editor.
)";

} // namespace tessit
