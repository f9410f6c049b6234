// SPDX-License-Identifier: MIT
#include "editor/level_entry.h"

#include "level/number.h"
#include "level/waves.h"
#include "platform/fault.h"
#include "platform/text.h"

namespace tessit {

namespace {

// Added in floating point and cut after each addition.
std::int32_t plus(std::int32_t sum, float value) {
    return truncate(static_cast<double>(sum) + static_cast<double>(value));
}

const std::string& piece_of_clock(const Array<std::string>& pieces, int index) {
    if (index >= pieces.count()) {
        throw Fault(FaultKind::out_of_bounds,
                    "A total time in the table is not in the form HH:MM:SS, so the bank's total "
                    "time could not be added up.");
    }
    return pieces[index];
}

} // namespace

std::optional<std::int32_t> width_index(std::string_view waveform, float frequencies) {
    const Wave* wave = wave_with_text(waveform);
    if (wave == nullptr) {
        return std::nullopt;
    }
    return wave == single_frequency ? 1 : truncate(static_cast<double>(frequencies) / wave->steps_per_width);
}

std::int32_t total_seconds(float frequencies, float time) {
    return truncate(frequencies * time);
}

ClockTime total_clock(float frequencies, const std::string& time) {
    const Array<std::string> pieces = Split(time, ":");
    std::int32_t minutes = 0;
    std::int32_t seconds = 0;
    if (pieces.count() >= 2) {
        minutes = truncate(read_number(pieces[0]));
        seconds = truncate(read_number(pieces[1]));
    } else if (pieces.count() == 1) {
        seconds = truncate(read_number(pieces[0]));
    }
    return carried({.hours = 0,
                    .minutes = truncate(minutes * static_cast<double>(frequencies)),
                    .seconds = truncate(seconds * static_cast<double>(frequencies))});
}

std::optional<std::int32_t> bank_frequencies(std::int32_t start, const std::vector<float>& rows) {
    if (rows.empty()) {
        return std::nullopt;
    }
    for (const float row : rows) {
        start = plus(start, row);
    }
    return start;
}

std::string bank_time(const std::vector<std::string>& cells, PlainSeconds plain_seconds) {
    ClockTime total;
    bool last_was_plain = false;
    for (const std::string& cell : cells) {
        const Array<std::string> pieces = Split(cell, ":");
        last_was_plain = pieces.count() == 1 && plain_seconds == PlainSeconds::added;
        if (last_was_plain) {
            total.seconds = plus(total.seconds, read_number(pieces[0])); // no carry, however large
            continue;
        }
        if (pieces.count() == 3) {
            total.hours = plus(total.hours, read_number(pieces[0]));
            total.minutes = plus(total.minutes, read_number(pieces[1]));
            total.seconds = plus(total.seconds, read_number(pieces[2]));
        } else {
            total.minutes = plus(total.minutes, read_number(piece_of_clock(pieces, 0)));
            total.seconds = plus(total.seconds, read_number(piece_of_clock(pieces, 1)));
        }
        total = carried(total);
    }
    return last_was_plain ? Str(total.seconds) : format_clock(total);
}

} // namespace tessit
