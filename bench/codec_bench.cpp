// SPDX-License-Identifier: MIT
// Encoding a full table, beside the encoder that one would write without knowing the generator's odd cases: parse,
// multiply, shift. Both must give the same bytes for this table, or nothing is measured.
#include "bench/full_image.h"
#include "level/decoder.h"

#include <benchmark/benchmark.h>
#include <cmath>
#include <cstdio>
#include <cstdlib>

namespace {

using namespace tessit;
using bench::Row;
using Records = std::array<LevelBytes, most_levels>;

Records encode_by_program(const std::vector<Row>& table) {
    RegisterImage image;
    bench::encode_table(image, table);
    Records records{};
    for (int level = 1; level <= most_levels; ++level) {
        records[static_cast<std::size_t>(level - 1)] = image.bytes(level);
    }
    return records;
}

std::uint8_t byte(long value) {
    return static_cast<std::uint8_t>(value);
}

std::uint8_t naive_mode(const Row& row) {
    if (row[column::output] == "Offset") {
        return row[column::wave_shape] == "Square" ? 47 : row[column::wave_shape] == "Sine" ? 111 : 175;
    }
    const std::string& wave = row[column::waveform];
    const int code = wave == "Single Frequency"   ? 5
                     : wave == "Spread Expanding" ? 4
                     : wave == "Sweep Increasing" ? 6
                     : wave == "Sweep Decreasing" ? 2
                                                  : 0;
    const int shape = row[column::wave_shape] == "Square" ? 0 : row[column::wave_shape] == "Sine" ? 64 : 128;
    return byte(code + (row[column::pulse] == "OFF" ? 8 : 0) + (row[column::output] == "Positive" ? 16 : 0) + shape);
}

LevelBytes naive_level(const Row& row) {
    const double base = std::strtod(row[column::base].c_str(), nullptr);
    const int scale = base < 1000 ? 8 : base < 10'000 ? 4 : base < 100'000 ? 2 : 1;
    const long word = std::lround(base * (scale == 8 ? 1000 : scale == 4 ? 100 : scale == 2 ? 10 : 1));
    const std::size_t colon = row[column::time_each].find(':');
    const long minutes = std::strtol(row[column::time_each].c_str(), nullptr, 10);
    const long seconds = std::strtol(row[column::time_each].c_str() + colon + 1, nullptr, 10);
    const long duty = std::strtol(row[column::duty_cycle].c_str(), nullptr, 10);
    const long rate = std::strtol(row[column::rate].c_str(), nullptr, 10);
    LevelBytes bytes = {byte(word >> 16), byte(word >> 8), byte(word), byte(scale),     byte(seconds), byte(minutes),
                        naive_mode(row),  byte(duty / 10), 0,          byte(rate >> 8), byte(rate),    0};
    if (row[column::waveform] != "Single Frequency") {
        bytes[8] = byte(std::strtol(row[column::width].c_str(), nullptr, 10));
    }
    int sum = 0;
    for (const std::uint8_t part : bytes) {
        sum += part;
    }
    bytes[11] = byte(-sum);
    return bytes;
}

Records encode_naively(const std::vector<Row>& table) {
    Records records{};
    for (std::size_t level = 1; level <= records.size(); ++level) {
        records[level - 1] = naive_level(table[level]);
    }
    return records;
}

void full_table_encoded(benchmark::State& state) {
    const auto table = bench::full_table();
    for ([[maybe_unused]] auto _ : state) {
        benchmark::DoNotOptimize(encode_by_program(table));
    }
}

void full_table_encoded_naively(benchmark::State& state) {
    const auto table = bench::full_table();
    for ([[maybe_unused]] auto _ : state) {
        benchmark::DoNotOptimize(encode_naively(table));
    }
}

void full_table_decoded(benchmark::State& state) {
    const Records records = encode_by_program(bench::full_table());
    for ([[maybe_unused]] auto _ : state) {
        for (const LevelBytes& record : records) {
            benchmark::DoNotOptimize(decode_level(record, DecodingRules{}));
        }
    }
}

BENCHMARK(full_table_encoded)->Unit(benchmark::kMicrosecond);
BENCHMARK(full_table_encoded_naively)->Unit(benchmark::kMicrosecond);
BENCHMARK(full_table_decoded)->Unit(benchmark::kMicrosecond);

bool both_encoders_agree() {
    const auto table = bench::full_table();
    const Records ours = encode_by_program(table);
    const Records naive = encode_naively(table);
    for (std::size_t level = 0; level < ours.size(); ++level) {
        if (ours[level] != naive[level]) {
            std::fprintf(stderr, "codec_bench: the encoders differ at level %zu\n", level + 1);
            return false;
        }
    }
    return true;
}

} // namespace

int main(int count, char* arguments[]) {
    benchmark::Initialize(&count, arguments);
    if (!both_encoders_agree()) {
        return 1;
    }
    benchmark::RunSpecifiedBenchmarks();
}
