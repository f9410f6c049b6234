// SPDX-License-Identifier: MIT
// Folders of the user's, by the environment.
#pragma once

#include <cstdlib>
#include <filesystem>

namespace tessit {

// Where the program keeps what is the user's and neither a document nor a setting: $XDG_STATE_HOME, or ~/.local/state,
// and in it tessit-control. Empty where the environment tells of no home. It is made by who needs it.
inline std::filesystem::path user_state_folder() {
    const auto variable = [](const char* name) {
        const char* value = std::getenv(name);
        return std::filesystem::path(value == nullptr ? "" : value);
    };
    std::filesystem::path state = variable("XDG_STATE_HOME");
    if (!state.is_absolute()) {
        const std::filesystem::path home = variable("HOME");
        state = home.empty() ? home : home / ".local/state";
    }
    return state.empty() ? state : state / "tessit-control";
}

// Where it keeps what the user may get back; made for the user alone. Empty as above.
inline std::filesystem::path user_recovery_folder() {
    const std::filesystem::path state = user_state_folder();
    return state.empty() ? state : state / "recovery";
}

} // namespace tessit
