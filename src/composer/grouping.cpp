// SPDX-License-Identifier: MIT
#include "composer/grouping.h"

#include <algorithm>

namespace tessit {

double distance_between(double a, double b) {
    return a >= b ? a - b : b - a;
}

namespace {

// The index behind the run that begins at `first`; first + 1 for a frequency that stands alone.
int end_of_run(const Array<double>& numbers, std::int32_t count, int first) {
    int end = first + 1;
    while (end < count && distance_between(numbers[first], numbers[end]) < run_span && numbers[end] != 0.0) {
        ++end;
    }
    return end;
}

RunSummary summary(const Array<double>& numbers, int first, int end) {
    const auto [low, high] = std::minmax_element(numbers.begin() + first, numbers.begin() + end);
    const std::int32_t width = std::max(truncate(*high - *low) / 2, 1);
    return {.width = width, .center = *low + width};
}

std::string with_mark(const std::string& number, const char* mark) {
    return number.find(*mark) == std::string::npos ? number + mark : number;
}

} // namespace

std::vector<PrimeRow> group_frequencies(const Array<double>& numbers, std::int32_t count) {
    std::vector<PrimeRow> rows;
    for (int i = 0; i <= count;) {
        if (numbers[i] == 0.0) {
            ++i;
            continue;
        }
        checked_index(i + 1, static_cast<std::size_t>(numbers.count()));
        const int end = end_of_run(numbers, count, i);
        const bool in_run = end > i + 1;
        for (int member = i; member < end; ++member) {
            rows.push_back(
                {.frequency = numbers[member], .color = in_run ? run_color : lone_color, .run = std::nullopt});
        }
        if (in_run) {
            rows.back().run = summary(numbers, i, end);
        }
        i = end;
    }
    return rows;
}

std::string prime_text(double frequency, DecimalMark mark) {
    const std::string number = Str(static_cast<float>(frequency));
    return mark == DecimalMark::comma ? with_mark(ReplaceAll(number, ".", ","), ",") : with_mark(number, ".");
}

std::string center_text(double center, DecimalMark mark) {
    return with_mark(Str(static_cast<float>(center)), mark == DecimalMark::comma ? "," : ".");
}

} // namespace tessit
