// SPDX-License-Identifier: MIT
#include "emulator/example_bank.h"

#include <algorithm>

namespace tessit::emulator {

namespace {

constexpr Byte single_frequency = 5;
constexpr std::array<Byte, 5> waves = {single_frequency, 6, 2, 4, 0};
constexpr std::array<Byte, 4> scales = {8, 4, 2, 1};

LevelBytes example_level(int level) {
    const auto cycle = [level](int length) { return static_cast<std::size_t>((level - 1) % length); };
    const int word = 100'000 + 1234 * level; // 101.234, 1024.68, 10370.2, 104936 and on
    const Byte wave = waves[cycle(5)];
    const auto pulse = level % 4 == 0 ? 8U : 0U;
    const auto output = level % 2 == 0 ? 0U : 16U;
    const auto shape = static_cast<unsigned>(cycle(3)) * 64U;
    LevelBytes bytes = {static_cast<Byte>(word / 65536),
                        static_cast<Byte>(word / 256 % 256),
                        static_cast<Byte>(word % 256),
                        scales[cycle(4)],
                        static_cast<Byte>(level % 6 * 10),
                        static_cast<Byte>(level % 5 + 1),
                        static_cast<Byte>(wave | pulse | output | shape),
                        static_cast<Byte>(level % 9 + 1),
                        static_cast<Byte>(wave == single_frequency ? 0 : level),
                        0,
                        static_cast<Byte>(level * 4)};
    bytes[record_size - 1] = check_byte(std::span<const Byte, record_size - 1>(bytes.data(), record_size - 1));
    std::fill(bytes.begin() + record_size, bytes.end(), unset);
    return bytes;
}

} // namespace

std::array<LevelBytes, levels_per_bank> example_bank() {
    std::array<LevelBytes, levels_per_bank> bank;
    for (int level = 1; level <= levels_per_bank; ++level) {
        bank[static_cast<std::size_t>(level - 1)] = example_level(level);
    }
    return bank;
}

} // namespace tessit::emulator
