// SPDX-License-Identifier: MIT
#include "report/printed_document.h"

#include "composer/compose_window.h"
#include "consolidator/consolidator_window.h"
#include "device/read_window.h"
#include "editor/edit_window.h"
#include "platform/text.h"

#include <algorithm>
#include <iterator>

namespace tessit {

namespace {

const PrintedDocument printed_documents[] = {
    {.title = "Zephon Protocol Editor",
     .name = [](App& app) -> EditField& { return app.editwindow->namefield; },
     .table = [](App& app) -> Listbox& { return app.editwindow->edit_displayBox; },
     .total_frequencies = [](App& app) -> EditField& { return app.editwindow->BankFreqField; },
     .total_time = [](App& app) -> EditField& { return app.editwindow->BankTimeField; }},
    {.title = "Protocol Composer",
     .name = [](App& app) -> EditField& { return app.composewindow->namefield; },
     .table = [](App& app) -> Listbox& { return app.composewindow->compose_displayBox; },
     .total_frequencies = [](App& app) -> EditField& { return app.composewindow->totalfreqfield; },
     .total_time = [](App& app) -> EditField& { return app.composewindow->totaltimefield; }},
    {.title = "Frequency Consolidator",
     .name = [](App& app) -> EditField& { return app.consolidatorWindow->nameField; },
     .list = [](App& app) -> EditField& { return app.consolidatorWindow->freqdisplayfield; }},
    {.title = "Read Zephon Data",
     .table = [](App& app) -> Listbox& { return app.ReadZPWindow->displaybox; },
     .total_frequencies = [](App& app) -> EditField& { return app.ReadZPWindow->BankFreqField; },
     .total_time = [](App& app) -> EditField& { return app.ReadZPWindow->BankTimeField; }},
};

} // namespace

const PrintedDocument* printed_document(std::string_view title) {
    const auto* const found = std::find_if(std::begin(printed_documents), std::end(printed_documents),
                                           [&](const auto& document) { return same_text(document.title, title); });
    return found == std::end(printed_documents) ? nullptr : found;
}

} // namespace tessit
