// SPDX-License-Identifier: MIT
// The desktop's clipboard, plain text alone.
#pragma once

#include "platform/desktop.h"

#include <string>

namespace tessit {

class Clipboard {
public:
    explicit Clipboard(Desktop& desktop) : desktop_(desktop) {}

    bool TextAvailable() const { return desktop_.clipboard_text().has_value(); }
    std::string Text() const { return desktop_.clipboard_text().value_or(""); }
    void SetText(const std::string& text) { desktop_.set_clipboard_text(text); }
    void Close() {}

private:
    Desktop& desktop_;
};

} // namespace tessit
