// SPDX-License-Identifier: MIT
// App's commands on the frequency list: parsing, sorting, removal, and the clipboard.
#include "consolidator/consolidator_window.h"
#include "consolidator/frequency_list.h"
#include "platform/clipboard.h"

namespace tessit {

namespace {

EditField& list_of(App& app) {
    return app.consolidatorWindow->freqdisplayfield;
}

void sort_list(App& app, SortOrder order) {
    app.loadarray();
    if (list_of(app).Text().empty()) {
        return;
    }
    sort_frequencies(app.intarray, order);
    list_of(app).SetText(write_frequency_list(app.intarray, app.numentries, app.decimal_mark(), WrittenMark::as_set));
    app.datasort = true;
}

} // namespace

void App::loadarray() {
    FrequencyList list = read_frequency_list(list_of(*this).Text(), decimal_mark());
    list_of(*this).SetText(list.text);
    numentries = list.count;
    chrarray = {};
    freqarray = std::move(list.entries);
    intarray = std::move(list.numbers);
}

void App::consolidatorsortup() {
    sort_list(*this, SortOrder::increasing);
}

void App::consolidatorsortdn() {
    sort_list(*this, SortOrder::decreasing);
}

void App::removeduplicates() {
    loadarray();
    if (list_of(*this).Text().empty()) {
        return;
    }
    RemovalResult result = remove_duplicates(intarray);
    numentries = result.count;
    list_of(*this).SetText(write_frequency_list(result.numbers, numentries, decimal_mark(), WrittenMark::point));
    EditField& report = consolidatorWindow->duplicatefield;
    report.SetText(report.Text() + duplicates_report(result)); // behind the reports of earlier removals
    intarray = std::move(result.numbers);
}

bool App::_EditCopy_Action() {
    Clipboard clipboard(desktop());
    clipboard.SetText(list_of(*this).SelText());
    clipboard.Close();
    return true;
}

bool App::_EditCut_Action() {
    Clipboard clipboard(desktop());
    clipboard.SetText(list_of(*this).SelText());
    list_of(*this).SetSelText("");
    clipboard.Close();
    return true;
}

bool App::_EditPaste_Action() {
    Clipboard clipboard(desktop());
    if (clipboard.TextAvailable()) {
        EditField& list = list_of(*this);
        list.SetText(clipboard.Text()); // in place of the whole list, whatever is selected
        const char last = list.Text().empty() ? '\0' : list.Text().back();
        if (use_euro && last != ':') {
            list.SetText(list.Text() + " :");
        } else if (!use_euro && last != ',') {
            list.SetText(list.Text() + ",");
        }
    }
    clipboard.Close();
    return true;
}

} // namespace tessit
