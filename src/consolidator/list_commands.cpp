// SPDX-License-Identifier: MIT
// App's commands on the frequency list: parsing, sorting, removal.
#include "consolidator/consolidator_window.h"
#include "consolidator/frequency_list.h"

namespace tessit {

namespace {

EditField& list_of(App& app) {
    return app.consolidatorWindow->freqdisplayfield;
}

// The properties from the list's text. Gives the text without its blanks, which loadarray writes back; sort and removal
// set the field once, to what they make of it.
std::string take_numbers(App& app) {
    FrequencyList list = read_frequency_list(list_of(app).Text(), app.decimal_mark());
    app.numentries = list.count;
    app.chrarray = {};
    app.freqarray = std::move(list.entries);
    app.intarray = std::move(list.numbers);
    return std::move(list.text);
}

void sort_list(App& app, SortOrder order) {
    if (take_numbers(app).empty()) {
        return list_of(app).SetText("");
    }
    sort_frequencies(app.intarray, order);
    list_of(app).SetText(write_frequency_list(app.intarray, app.numentries, app.decimal_mark(), WrittenMark::as_set));
    app.datasort = true;
}

} // namespace

void App::loadarray() {
    list_of(*this).SetText(take_numbers(*this));
}

void App::consolidatorsortup() {
    sort_list(*this, SortOrder::increasing);
}

void App::consolidatorsortdn() {
    sort_list(*this, SortOrder::decreasing);
}

void App::removeduplicates() {
    if (take_numbers(*this).empty()) {
        return list_of(*this).SetText("");
    }
    RemovalResult result = remove_duplicates(intarray);
    numentries = result.count;
    list_of(*this).SetText(write_frequency_list(result.numbers, numentries, decimal_mark(), WrittenMark::point));
    EditField& report = consolidatorWindow->duplicatefield;
    report.SetText(report.Text() + duplicates_report(result)); // behind the reports of earlier removals
    intarray = std::move(result.numbers);
}

} // namespace tessit
