// SPDX-License-Identifier: MIT
// The seam through which shared commands work on the document window in front, whichever it is.
#pragma once

#include "codec/encoder.h"
#include "core/app_state.h"
#include "platform/listbox.h"

namespace tessit {

class DocumentWindow {
public:
    virtual ~DocumentWindow() = default;

    virtual const Listbox& level_table() = 0;
    virtual int last_level_row() = 0;           // levels are rows 1 to this one
    virtual EncodingRules encoding_rules() = 0; // how this window's texts become bytes
};

// The printed report's column widths and alignments, which every level table sets when it opens.
void set_up_report_columns(AppState& state);

} // namespace tessit
