// SPDX-License-Identifier: MIT
// The settings file ZP2Settings.fig: one line of fields "key,value;". Format: docs/file-formats.md.
#pragma once

#include "core/app_state.h"
#include "platform/array.h"

#include <string>

namespace tessit {

inline constexpr const char* settings_file_name = "ZP2Settings.fig";

// The one line of a program that never saved its settings. The folder is written and never read.
std::string first_run_settings(const std::string& program_folder);

// All fourteen fields in their order, without a line end.
std::string settings_text(const AppState& state);

enum class SettingEffect { none, serial_port_chosen };

// Stores one field, split at ",", in the state. Keys match in either case; an unknown key is skipped; a known key
// with no value behind it is Fault out_of_bounds. Items behind the second are ignored.
SettingEffect apply_setting(AppState& state, const Array<std::string>& items);

} // namespace tessit
