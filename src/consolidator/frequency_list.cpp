// SPDX-License-Identifier: MIT
#include "consolidator/frequency_list.h"

#include "level/number.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <iterator>
#include <optional>

namespace tessit {

const char* typed_separator(DecimalMark mark) {
    return mark == DecimalMark::comma ? ": " : ", ";
}

const char* written_separator(DecimalMark mark) {
    return mark == DecimalMark::comma ? " : " : ", ";
}

std::vector<Rewriting> separator_rewritings(DecimalMark mark) {
    const char* separator = typed_separator(mark);
    const bool comma = mark == DecimalMark::comma;
    return {{"\r", separator}, {"\t", separator}, {comma ? ": :" : ", ,", comma ? ":" : ","}};
}

std::string in_point_notation(std::string_view list) {
    if (list.find(':') == std::string_view::npos) {
        return std::string(list);
    }
    return ReplaceAll(ReplaceAll(list, ",", "."), ":", ",");
}

std::string in_comma_notation(std::string_view list) {
    return ReplaceAll(ReplaceAll(ReplaceAll(list, ",", ":"), ".", ","), "\r", " : ");
}

FrequencyList read_frequency_list(std::string_view text, DecimalMark mark) {
    FrequencyList list;
    list.text = ReplaceAll(text, " ", "");
    list.entries = Split(list.text, mark == DecimalMark::comma ? ":" : ",");
    list.count = list.entries.count();
    if (list.count > 0 && list.entries[list.count - 1].empty()) { // once: of two separators at the end one counts
        --list.count;
    }
    list.entries.resize(list.count);
    list.entries[list.count].clear();
    list.numbers.resize(list.count);
    for (int i = 0; i <= list.count; ++i) {
        std::string& entry = list.entries[i];
        if (mark == DecimalMark::comma) {
            entry = Replace(entry, ",", "."); // the first one alone
        }
        list.numbers[i] = read_number(entry);
    }
    return list;
}

int count_entries(std::string_view text, DecimalMark mark) {
    const char separator = mark == DecimalMark::comma ? ':' : ',';
    const std::size_t last = text.find_last_not_of(' ');
    if (last == std::string_view::npos) {
        return 0;
    }
    const auto separators = static_cast<int>(std::count(text.begin(), text.end(), separator));
    return separators + (text[last] == separator ? 0 : 1);
}

namespace {

bool is_number(double value) {
    return !std::isnan(value);
}

// First and last entry are never compared with each other, so that a number between them must pass them on.
bool can_be_sorted(const Array<double>& numbers) {
    return numbers.count() > 2 && std::any_of(numbers.begin() + 1, numbers.end() - 1, is_number);
}

// For each place of a list, where the same number stands next. A place behind a 0 or behind the list's end is never
// found: the scan looks at the number in front of the match first.
class Occurrences {
public:
    explicit Occurrences(const Array<double>& numbers) : numbers_(numbers) {
        for (int place = 1; place < numbers.count(); ++place) {
            if (numbers[place - 1] != 0.0 && !std::isnan(numbers[place])) {
                places_.push_back(place);
            }
        }
        std::stable_sort(places_.begin(), places_.end(), [&](int a, int b) { return numbers[a] < numbers[b]; });
    }

    // The first place from `from` on at which `number` stands.
    std::optional<int> find(double number, int from) const {
        const auto found = std::lower_bound(places_.begin(), places_.end(), from, [&](int place, int least) {
            const double other = numbers_[place];
            return other < number || (other == number && place < least);
        });
        return found != places_.end() && numbers_[*found] == number ? std::optional(*found) : std::nullopt;
    }

private:
    const Array<double>& numbers_;
    std::vector<int> places_; // by number, then by place
};

} // namespace

void sort_frequencies(Array<double>& numbers, SortOrder order) {
    if (!can_be_sorted(numbers)) {
        return;
    }
    std::vector<double> list(numbers.begin(), numbers.end());
    std::vector<double> sorted;
    std::copy_if(list.begin(), list.end(), std::back_inserter(sorted), is_number);
    if (order == SortOrder::increasing) {
        std::sort(sorted.begin(), sorted.end());
    } else {
        std::sort(sorted.begin(), sorted.end(), std::greater<>());
    }
    auto next = sorted.begin();
    for (double& place : list) {
        if (is_number(place)) {
            place = *next++;
        }
    }
    numbers = Array<double>(std::move(list));
}

// Scans go over the list from a base on: where the number at the base is found again, the base's own goes and the rest
// moves down; the scan goes on behind the match, so further scans pick up what it skipped. A base is done with the
// first scan that finds nothing. What stands at the base is always the front of an unbroken rest of the list, so no
// number needs to be moved.
RemovalResult remove_duplicates(const Array<double>& numbers) {
    const int entries = numbers.upper_bound();
    const Occurrences occurrences(numbers);
    const auto number_at = [&](int place) { return place < numbers.count() ? numbers[place] : 0.0; };
    RemovalResult result;
    result.numbers.resize(entries);
    result.scans.resize(static_cast<std::size_t>(entries) + 1);
    int front = 0;
    for (int base = 0; base < entries; ++base, ++front) {
        int before_scan = -1;
        for (std::size_t scan = 1; front != before_scan; ++scan) {
            before_scan = front;
            auto match = occurrences.find(number_at(front), front + 1);
            while (match) {
                RemovedDuplicates& removed = result.scans[scan];
                removed.count += 1;
                removed.frequency = static_cast<float>(numbers[*match - 1]);
                ++front;
                match = occurrences.find(number_at(front), *match + 2);
            }
        }
        result.numbers[base] = number_at(front);
    }
    result.numbers[entries] = number_at(front);
    result.count = 2 * entries - front;
    return result;
}

std::string duplicates_report(const RemovalResult& result) {
    std::string report;
    for (int scan = 0; scan <= result.count; ++scan) {
        const RemovedDuplicates& removed = result.scans[static_cast<std::size_t>(scan)];
        if (removed.frequency != 0) {
            report += carriage_return + Str(removed.count) + " duplicates of frequency " + Str(removed.frequency) +
                      "Hz  were removed";
        }
    }
    return report;
}

std::string write_frequency_list(const Array<double>& numbers, std::int32_t count, DecimalMark mark,
                                 WrittenMark written) {
    const bool commas = mark == DecimalMark::comma && written == WrittenMark::as_set;
    std::string text;
    for (int i = 0; i <= count; ++i) {
        const std::string number = Str(static_cast<float>(numbers[i]));
        text += commas ? ReplaceAll(number, ".", ",") : number;
        text += i < count ? written_separator(mark) : "";
    }
    return text;
}

} // namespace tessit
