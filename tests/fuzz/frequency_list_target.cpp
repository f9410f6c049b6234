// SPDX-License-Identifier: MIT
// Any text is a list, sorted and freed of duplicates as the rules tell it, and composed. The first byte is the
// settings.
#include "composer/compose_window.h"
#include "consolidator/consolidator_window.h"
#include "support/frequency_loops.h"
#include "support/quiet_program.h"
#include "tools/fuzzing/target.h"

#include <cstring>

namespace tessit::fuzzing {

bool same(const Array<double>& numbers, const std::vector<double>& others) { // no numbers too
    return std::equal(numbers.begin(), numbers.end(), others.begin(), others.end(),
                      [](double a, double b) { return std::memcmp(&a, &b, sizeof a) == 0; });
}

void compare_with_loops(const FrequencyList& list, SortOrder order) {
    std::vector<double> numbers(list.numbers.begin(), list.numbers.end());
    const auto by_loops = testing::remove_by_loops(numbers);
    const auto removed = remove_duplicates(list.numbers);
    require(same(removed.numbers, by_loops.numbers) && removed.count == by_loops.count, "the last of equals stays");
    require(duplicates_report(removed) == by_loops.report, "the report counts them");
    Array<double> sorted = list.numbers;
    sort_frequencies(sorted, order);
    testing::sort_by_loops(numbers, order);
    require(same(sorted, numbers), "sorted as by the loops");
}

void try_input(const std::string& input) {
    const int settings = input.empty() ? 0 : input[0];
    const auto mark = (settings & 1) != 0 ? DecimalMark::comma : DecimalMark::point;
    const auto order = (settings & 2) != 0 ? SortOrder::decreasing : SortOrder::increasing;
    const std::string text = input.substr(input.empty() ? 0 : 1);
    if (const auto list = read_frequency_list(text, mark); list.numbers.count() <= 40) {
        compare_with_loops(list, order);
    }
    testing::QuietProgram program;
    App& app = program.app;
    app.use_euro = mark == DecimalMark::comma;
    testing::write_file(program.desktop.file, text);
    app.choose_menu("ConsolidatorOpen");
    app.from_user("sort",
                  [&] { order == SortOrder::increasing ? app.consolidatorsortup() : app.consolidatorsortdn(); });
    app.from_user("remove", [&] { app.removeduplicates(); });
    app.consolidatorWindow->composebutton.click();
    app.composewindow->allbutton.click();
    require(app.composewindow->compose_displayBox.ListCount() <= 51, "row 0 and at most fifty levels");
    require(program.faults_are_of(FaultKind::out_of_bounds), "no fault but those of odd entries");
}

} // namespace tessit::fuzzing
