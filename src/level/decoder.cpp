// SPDX-License-Identifier: MIT
#include "level/decoder.h"

#include "level/waves.h"

#include <algorithm>

namespace tessit {

namespace {

// Null for a file's level with another code; an Offset level is written with 7.
const Wave* wave_of(std::uint8_t code, RecordSource source) {
    const Wave* wave = wave_with_code(code);
    const bool another = wave == nullptr && source == RecordSource::generator; // of its codes for a single frequency
    return another ? single_frequency : wave;
}

std::optional<std::string> shape_of(std::uint8_t bits) {
    switch (bits) {
    case mode::square:
        return "Square";
    case mode::sine:
        return "Sine";
    case mode::triangle:
        return "Triangle";
    default:
        return std::nullopt;
    }
}

std::optional<std::string> output_of(std::uint8_t bits) {
    switch (bits) {
    case mode::negative:
        return "Negative";
    case mode::positive:
        return "Positive";
    case mode::offset:
        return "Offset";
    default:
        return std::nullopt;
    }
}

std::optional<std::string> duty_of(std::uint8_t shape, std::uint8_t duty, RecordSource source) {
    if (source == RecordSource::file && shape != mode::square) {
        return "";
    }
    return duty >= 1 && duty <= 9 ? std::optional(Str(duty) + "0%") : std::nullopt;
}

std::string with_point(const std::string& digits, std::size_t decimals) {
    const std::size_t point = digits.size() - std::min(decimals, digits.size());
    return digits.substr(0, point) + "." + digits.substr(point);
}

std::int32_t frequency_word(const LevelBytes& record) {
    using namespace record_offset;
    const std::int32_t high = record[fbyte2] == unset ? 0 : record[fbyte2];
    return record[fbyte0] + 256 * record[fbyte1] + 65536 * high;
}

ClockTime level_total(std::int32_t frequencies, int minutes, int seconds) {
    return carried({.hours = 0, .minutes = minutes * frequencies, .seconds = seconds * frequencies});
}

} // namespace

bool is_blank(const LevelBytes& record) {
    using namespace record_offset;
    const bool all_zero = record[timemin] == 0 && record[timesec] == 0 && record[fbyte0] == 0 && record[fbyte1] == 0 &&
                          record[fbyte2] == 0;
    return all_zero || (record[timemin] & record[timesec]) == unset;
}

std::string decode_base(std::int32_t word, std::uint8_t db3) {
    const std::string digits = Str(word);
    switch (db3) {
    case 1:
        return digits;
    case 2:
        return with_point(digits, 1);
    case 4:
        return with_point(digits, 2);
    case 8: {
        const std::string zeros = digits.size() == 5 ? "0" : digits.size() == 4 ? "00" : "";
        return with_point(zeros + digits, 3);
    }
    default:
        return "";
    }
}

DecodedLevel decode_level(const LevelBytes& record, const DecodingRules& rules) {
    using namespace record_offset;
    DecodedLevel level;
    using Cell = std::optional<std::string>;
    const auto cell = [&level](int index) -> Cell& { return level.cells[static_cast<std::size_t>(index)]; };
    const auto wave_code = static_cast<std::uint8_t>(record[db6] & mode::wave_mask);
    const auto shape = static_cast<std::uint8_t>(record[db6] & mode::shape_mask);
    const bool from_file = rules.source == RecordSource::file;
    const Wave* wave = wave_of(wave_code, rules.source);
    const bool clock = rules.time_form == TimeForm::clock;
    const int minutes = record[timemin];
    const int seconds = record[timesec];

    if (wave != nullptr) {
        cell(column::waveform) = wave->text;
    }
    if (from_file || record[fbyte2] != 0 || record[fbyte1] != 0 || record[fbyte0] != 0) {
        const std::string base = decode_base(frequency_word(record), record[db3]);
        cell(column::base) = rules.mark == DecimalMark::comma ? ReplaceAll(base, ".", ",") : base;
    }
    if (wave != single_frequency) {
        cell(column::width) = Str(record[wpwidth]);
    }
    const int steps = wave == nullptr ? 0 : record[wpwidth] * wave->steps_per_width;
    level.frequencies = (from_file ? low_byte(steps) : steps) + 1; // cut to eight bits before the 1 is added
    cell(column::frequencies) = Str(level.frequencies);
    cell(column::time_each) = clock ? format_minutes(minutes, seconds) : Str(seconds + 60 * minutes);
    level.total = level_total(level.frequencies, minutes, seconds);
    // In seconds the minutes are counted once, not once a frequency: the two forms may disagree, and are meant to.
    const int hours_in_seconds = from_file ? 0 : level.total.hours * 3600;
    cell(column::total_time) =
        clock ? format_clock(level.total) : Str(level.frequencies * seconds + 60 * minutes + hours_in_seconds);
    cell(column::pulse) = (record[db6] & mode::pulse_off) == 0 ? "ON" : "OFF";
    cell(column::rate) = Str(record[pratelo] + 256 * record[pratehi]);
    cell(column::wave_shape) = shape_of(shape);
    cell(column::duty_cycle) = duty_of(shape, record[dutycycle], rules.source);
    cell(column::output) = output_of(static_cast<std::uint8_t>(record[db6] & mode::output_mask));
    return level;
}

void show_level(Listbox& table, int row, const DecodedLevel& level) {
    for (int i = 0; i < column::count; ++i) {
        if (const auto& text = level.cells[static_cast<std::size_t>(i)]) {
            table.SetCell(row, i, *text);
        }
    }
}

void BankTotals::add(const DecodedLevel& level) {
    frequencies += level.frequencies;
    time.minutes += level.total.minutes; // a level's own whole hours do not reach the bank's sum
    time.seconds += level.total.seconds;
    time = carried(time);
}

} // namespace tessit
