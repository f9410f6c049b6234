// SPDX-License-Identifier: MIT
// The settings file ZP2Settings.fig: one line of fields "key,value;". Format: docs/file-formats.md.
#pragma once

#include "core/app_state.h"
#include "platform/array.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace tessit {

inline constexpr const char* settings_file_name = "ZP2Settings.fig";
inline constexpr std::size_t most_settings_bytes = 1'000'000; // a thousand times what is saved

// The one line of a program that never saved its settings. The folder is written and never read.
std::string first_run_settings(const std::string& program_folder);

// All fourteen fields "key,value;" in their order, and as a line without its end.
std::vector<std::string> settings_fields(const AppState& state);
std::string settings_text(const AppState& state);

// The line to be saved at the program's end, `file` being what the file holds by then. Where another program has
// changed it since `state.known_settings`, its fields stay but for those that this program has changed too; none where
// there are none of these: the file is left alone.
std::optional<std::string> settings_at_end(const AppState& state, const std::optional<std::string>& file);

enum class SettingEffect { none, serial_port_chosen };

// Stores one field, split at ",", in the state. Keys match in either case; an unknown key is skipped; a known key
// with no value behind it is Fault out_of_bounds. Items behind the second are ignored.
SettingEffect apply_setting(AppState& state, const Array<std::string>& items);

} // namespace tessit
