// SPDX-License-Identifier: MIT
#include "program/command_line.h"

#include <cstdio>
#include <getopt.h>
#include <system_error>

namespace tessit {

namespace {

constexpr option options[] = {{"help", no_argument, nullptr, 'h'}, {"version", no_argument, nullptr, 'v'}, {}};

} // namespace

CommandLine read_command_line(int argc, char* argv[]) {
    using enum CommandLine::Wish;
    const int found = getopt_long(argc, argv, "", options, nullptr); // says itself what it does not know
    if (found != -1) {
        const bool alone = argc == 2;
        return {.wish = found == 'h' && alone ? help : found == 'v' && alone ? version : none};
    }
    if (argc - optind > 1) {
        std::fprintf(stderr, "%s: only one file can be given\n", argv[0]);
        return {.wish = none};
    }
    if (argc == optind) {
        return {};
    }
    std::error_code error; // an empty name has no absolute one, and is then told as it is
    const auto file = std::filesystem::absolute(argv[optind], error);
    return {.file = file};
}

} // namespace tessit
