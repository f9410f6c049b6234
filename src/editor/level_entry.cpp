// SPDX-License-Identifier: MIT
#include "editor/level_entry.h"

#include "level/number.h"
#include "platform/control.h"
#include "platform/text.h"

namespace tessit {

namespace {

float number(const std::string& text) {
    return read_number(characters(text));
}

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

void choose_text(PopupMenu& list, std::string_view text, int first) {
    for (int i = first; i < list.ListCount(); ++i) {
        if (same_text(list.List(i), text)) {
            return list.SetListIndex(i);
        }
    }
}

std::string frequencies_text(int wave, int width) {
    switch (wave) {
    case wave_index::single_frequency:
        return "1";
    case wave_index::spread_contracting:
    case wave_index::spread_expanding:
        return Str(2 * width + 1);
    case wave_index::sweep_increasing:
    case wave_index::sweep_decreasing:
        return Str(width + 1);
    default:
        return "";
    }
}

std::optional<std::int32_t> width_index(std::string_view waveform, float frequencies) {
    if (same_text(waveform, "Single Frequency")) {
        return 1;
    }
    if (same_text(waveform, "Spread Contracting") || same_text(waveform, "Spread Expanding")) {
        return truncate(frequencies / 2.0);
    }
    if (same_text(waveform, "Sweep Increasing") || same_text(waveform, "Sweep Decreasing")) {
        return truncate(frequencies);
    }
    return std::nullopt;
}

std::int32_t total_seconds(float frequencies, float time) {
    return truncate(frequencies * time);
}

ClockTime total_clock(float frequencies, const std::string& time) {
    const Array<std::string> pieces = Split(time, ":");
    std::int32_t minutes = 0;
    std::int32_t seconds = 0;
    if (pieces.count() >= 2) {
        minutes = truncate(number(pieces[0]));
        seconds = truncate(number(pieces[1]));
    } else if (pieces.count() == 1) {
        seconds = truncate(number(pieces[0]));
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
            total.seconds = plus(total.seconds, number(pieces[0])); // no carry, however large
            continue;
        }
        if (pieces.count() == 3) {
            total.hours = plus(total.hours, number(pieces[0]));
            total.minutes = plus(total.minutes, number(pieces[1]));
            total.seconds = plus(total.seconds, number(pieces[2]));
        } else {
            total.minutes = plus(total.minutes, number(piece_of_clock(pieces, 0)));
            total.seconds = plus(total.seconds, number(piece_of_clock(pieces, 1)));
        }
        total = carried(total);
    }
    return last_was_plain ? Str(total.seconds) : format_clock(total);
}

} // namespace tessit
