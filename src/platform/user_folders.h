// SPDX-License-Identifier: MIT
// Folders of the user's, by the environment.
#pragma once

#include <cstdlib>
#include <filesystem>

namespace tessit {

// Where the program keeps what the user may get back: $XDG_STATE_HOME, or ~/.local/state, and in it
// tessit-control/recovery. Empty where the environment tells of no home. It is made by who needs it, for the user
// alone.
inline std::filesystem::path user_recovery_folder() {
    const auto variable = [](const char* name) {
        const char* value = std::getenv(name);
        return std::filesystem::path(value == nullptr ? "" : value);
    };
    std::filesystem::path state = variable("XDG_STATE_HOME");
    if (!state.is_absolute()) {
        const std::filesystem::path home = variable("HOME");
        state = home.empty() ? home : home / ".local/state";
    }
    return state.empty() ? state : state / "tessit-control/recovery";
}

} // namespace tessit
