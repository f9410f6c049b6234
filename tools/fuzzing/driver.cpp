// SPDX-License-Identifier: MIT
// Runs a fuzz target without libFuzzer, each time the same: all kept inputs, then as many mutations of them as were
// asked for, drawn by a fixed seed. What fails is written to a file, as libFuzzer would, and told with how to run it
// again. Usage: TARGET RUNS FOLDER-OR-FILE...
#include <algorithm>
#include <array>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <sanitizer/common_interface_defs.h>
#include <string>
#include <unistd.h>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t count);

// An abort of the target's is reported with its stack; no input may make it take more than so many megabytes.
extern "C" const char* __asan_default_options();
extern "C" const char* __asan_default_options() {
    return "handle_abort=1:max_allocation_size_mb=64:hard_rss_limit_mb=1024";
}

namespace {

namespace fs = std::filesystem;

constexpr std::size_t most_bytes = 4096;
constexpr unsigned most_seconds = 60; // of one input, thousands of times what it takes
constexpr unsigned seed = 20261123;

std::string program;
std::string input; // the one that is tried now

void keep_input() {
    const std::string name = "failed-" + program;
    std::ofstream(name, std::ios::binary) << input;
    std::fprintf(stderr, "The input is kept in %s. Again: bin/%s 0 %s\n", fs::absolute(name).c_str(), program.c_str(),
                 fs::absolute(name).c_str());
}

void try_now(std::string tried) {
    input = std::move(tried);
    alarm(most_seconds);
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(input.data()), input.size());
    alarm(0);
}

std::vector<std::string> inputs_of(const std::vector<fs::path>& places) {
    std::vector<fs::path> files;
    for (const fs::path& place : places) {
        if (fs::is_directory(place)) {
            std::copy(fs::directory_iterator(place), {}, std::back_inserter(files));
        } else {
            files.push_back(place);
        }
    }
    std::sort(files.begin(), files.end());
    std::vector<std::string> inputs;
    for (const fs::path& file : files) {
        std::ifstream stream(file, std::ios::binary);
        inputs.emplace_back(std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>());
    }
    return inputs;
}

class Mutations {
public:
    explicit Mutations(const std::vector<std::string>& inputs) : inputs_(inputs) {}

    std::string next() {
        std::string text = any_input();
        for (std::size_t changes = 1 + below(8); changes > 0; --changes) {
            change(text);
        }
        return text.substr(0, most_bytes);
    }

private:
    // Not by a distribution of the library's, which may draw otherwise from one version to the next.
    std::size_t below(std::size_t bound) { return random_() % bound; }
    const std::string& any_input() { return inputs_[below(inputs_.size())]; }

    void change(std::string& text) {
        static constexpr std::array<unsigned char, 8> telling = {0, 1, 253, 254, 255, ',', '.', '9'};
        const std::size_t place = below(text.size() + 1);
        const std::size_t length = 1 + below(32);
        const std::string& other = any_input();
        const auto piece = other.substr(below(other.size() + 1), length);
        switch (below(6)) {
        case 0:
            text.insert(place, 1, static_cast<char>(below(256)));
            break;
        case 1:
            text.replace(place, 1, 1, static_cast<char>(telling[below(telling.size())]));
            break;
        case 2:
            text.replace(place, 1, 1, static_cast<char>(below(256)));
            break;
        case 3:
            text.erase(place, length);
            break;
        case 4:
            text.insert(place, piece);
            break;
        default: // the same again and again
            for (std::size_t times = below(16); times > 0; --times) {
                text.insert(place, piece);
            }
        }
    }

    const std::vector<std::string>& inputs_;
    std::mt19937 random_{seed};
};

} // namespace

int main(int count, char* arguments[]) {
    if (count < 3) {
        std::fputs("usage: TARGET RUNS FOLDER-OR-FILE...\n", stderr);
        return 2;
    }
    program = fs::path(arguments[0]).filename();
    __sanitizer_set_death_callback(keep_input);
    std::signal(SIGALRM, [](int) { std::abort(); });
    const auto inputs = inputs_of({arguments + 2, arguments + count});
    if (inputs.empty()) {
        std::fputs("there are no kept inputs\n", stderr);
        return 2;
    }
    for (const std::string& kept : inputs) {
        try_now(kept);
    }
    const long runs = std::atol(arguments[1]);
    Mutations mutations(inputs);
    for (long run = 0; run < runs; ++run) {
        try_now(mutations.next());
    }
    std::printf("%zu kept inputs and %ld mutations of them\n", inputs.size(), runs);
}
