// SPDX-License-Identifier: MIT
// The frequency list: one run of text, read anew for every command. Its numbers are the entries and a 0 behind them,
// which takes part in sorting and removal and is written back as one more entry.
#pragma once

#include "platform/array.h"
#include "platform/text.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tessit {

// The decimal mark decides the notation: "1.5, 2.5" or "1,5: 2,5".
const char* typed_separator(DecimalMark mark);   // ", " or ": "
const char* written_separator(DecimalMark mark); // by sort and removal: ", " or " : "

// What text that comes into the list is rewritten to: one after the other, each until it changes nothing.
struct Rewriting {
    const char* what;
    const char* with;
};
std::vector<Rewriting> separator_rewritings(DecimalMark mark); // line ends, tabs, doubled separators

// The other notation. The two are no mirrors: what is in the point notation already stays as it is, but a list in the
// comma notation gets its decimal commas turned into separators.
std::string in_point_notation(std::string_view list);
std::string in_comma_notation(std::string_view list);

struct FrequencyList {
    std::string text;           // without blanks
    Array<std::string> entries; // and an empty one at the end
    Array<double> numbers;      // of single precision, and a 0 at the end; 0 alone for an empty list
    std::int32_t count = 0;     // of the entries; one empty piece at the text's end does not count
};
FrequencyList read_frequency_list(std::string_view text, DecimalMark mark);

int count_entries(std::string_view text, DecimalMark mark); // the count alone, at once for a long list too

// Sorts all numbers, the 0 at the end among them. What is no number, such as an entry of hundreds of digits with a
// point, keeps its place, and the others pass it. A single entry and its 0 stay as they are, and so do a list's first
// entry and its 0 where no number stands between them.
enum class SortOrder { increasing, decreasing };
void sort_frequencies(Array<double>& numbers, SortOrder order);

// What one scan over the list removed, all frequencies together.
struct RemovedDuplicates {
    float count = 0;
    float frequency = 0; // in front of the match last found: the duplicate itself only where the two stand side by side
};

struct RemovalResult {
    Array<double> numbers;                // as many as before, zeros behind those that are left
    std::int32_t count = 0;               // of the entries left
    std::vector<RemovedDuplicates> scans; // from 0; scan 0 is none
};

// Takes out every entry that is followed somewhere by its equal; the last of equals stays. `numbers` ends with a 0.
RemovalResult remove_duplicates(const Array<double>& numbers);

// The report: a line, begun by CR, for each scan that found something, as far as there are entries left. What later
// scans found stays unreported.
std::string duplicates_report(const RemovalResult& result);

// The first `count` numbers and the one behind them as the list's text.
enum class WrittenMark { as_set, point }; // removal writes points in either notation
std::string write_frequency_list(const Array<double>& numbers, std::int32_t count, DecimalMark mark,
                                 WrittenMark written);

} // namespace tessit
