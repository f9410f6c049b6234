// SPDX-License-Identifier: MIT
// The keys that enter what stands in an entry field.
#pragma once

#include "platform/control.h"
#include "platform/text.h"

#include <string_view>

namespace tessit {

// Return, the keypad's Enter, and byte 76: compared without regard to case, so the letters L and l enter too.
inline bool is_enter_key(std::string_view key) {
    return key == ChrB(keys::enter) || key == ChrB(keys::return_) || same_text(key, ChrB(76));
}

} // namespace tessit
