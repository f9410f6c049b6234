// SPDX-License-Identifier: MIT
#include "core/document_window.h"

#include "platform/text.h"

namespace tessit {

void set_up_report_columns(AppState& state) {
    state.cwidth = Split(report_column_widths, ",");
    for (int i = 0; i < column::count; ++i) {
        state.calign[i] = report_column_alignments[static_cast<std::size_t>(i)];
    }
}

} // namespace tessit
