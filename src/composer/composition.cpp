// SPDX-License-Identifier: MIT
#include "composer/composition.h"

#include "level/number.h"
#include "platform/fault.h"

namespace tessit {

namespace {

std::int32_t times(std::int32_t value, float frequencies) {
    return truncate(value * static_cast<double>(frequencies));
}

void carry_seconds(ClockTime& time) {
    if (time.seconds > 59) {
        time.minutes = wrap32(std::int64_t{time.minutes} + time.seconds / 60);
        time.seconds %= 60;
    }
}

void carry_minutes(ClockTime& time) {
    time.hours += time.minutes / 60;
    time.minutes %= 60;
}

void add_cell(ClockTime& total, const std::string& cell) {
    const ClockTime row = minutes_and_seconds(cell);
    total.minutes = wrap32(std::int64_t{total.minutes} + row.minutes);
    total.seconds = wrap32(std::int64_t{total.seconds} + row.seconds);
}

} // namespace

ClockTime minutes_and_seconds(const std::string& time) {
    const Array<std::string> pieces = Split(time, ":");
    if (pieces.count() < 2) {
        throw Fault(FaultKind::out_of_bounds,
                    "The time \"" + time + "\" has no colon. In the format MM:SS a time is written like 3:00 or :10.");
    }
    return {.hours = 0, .minutes = truncate(read_number(pieces[0])), .seconds = truncate(read_number(pieces[1]))};
}

ClockTime row_total(const ClockTime& each, float frequencies, RowCarry carry) {
    ClockTime total{
        .hours = 0, .minutes = times(each.minutes, frequencies), .seconds = times(each.seconds, frequencies)};
    if (carry == RowCarry::new_row && total.minutes > 59) {
        carry_minutes(total);
    }
    if (total.seconds > (carry == RowCarry::new_row ? 59 : 60)) {
        total.minutes = wrap32(std::int64_t{total.minutes} + total.seconds / 60);
        total.seconds = wrap32(total.seconds - std::int64_t{60} * total.minutes); // all minutes, not the carry alone
    }
    return total;
}

std::string format_row_total(const ClockTime& total) {
    return format_minutes(total.minutes, total.seconds);
}

ClockTime seconds_total(std::int32_t seconds_left_over, std::int32_t row_seconds) {
    const std::int32_t seconds = wrap32(std::int64_t{seconds_left_over} + row_seconds);
    const std::int32_t minutes = seconds / 60;
    return {.hours = minutes / 60, .minutes = minutes % 60, .seconds = seconds % 60};
}

ClockTime total_of_new_row(const std::vector<std::string>& cells) {
    ClockTime total;
    for (const std::string& cell : cells) {
        add_cell(total, cell);
    }
    return carried(total);
}

ClockTime total_of_changed_row(const std::vector<std::string>& cells, std::int32_t changed_row_minutes) {
    ClockTime total;
    for (const std::string& cell : cells) {
        add_cell(total, cell);
        carry_seconds(total);
        if (changed_row_minutes > 59) {
            carry_minutes(total);
        }
    }
    return total;
}

ClockTime added_up(ClockTime total, const ClockTime& row) {
    total.minutes = wrap32(std::int64_t{total.minutes} + row.minutes);
    total.seconds = wrap32(std::int64_t{total.seconds} + row.seconds);
    return carried(total);
}

} // namespace tessit
