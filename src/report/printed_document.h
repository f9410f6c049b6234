// SPDX-License-Identifier: MIT
// The document windows that print, as one table: where each keeps what its report shows.
#pragma once

#include "core/app.h"
#include "platform/edit_field.h"
#include "platform/listbox.h"

#include <string_view>

namespace tessit {

struct PrintedDocument {
    using Field = EditField& (*)(App& app);
    using Table = Listbox& (*)(App& app);

    const char* title = "";
    Field name = nullptr;  // its text becomes the heading when the page is set up; none: a QC line takes its place
    Table table = nullptr; // none: `list` is printed
    Field total_frequencies = nullptr;
    Field total_time = nullptr;
    Field list = nullptr;
};

// By the title of a window, in either case. Null for a window that does not print.
const PrintedDocument* printed_document(std::string_view title);

} // namespace tessit
