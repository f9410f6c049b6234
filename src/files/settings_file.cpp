// SPDX-License-Identifier: MIT
#include "files/settings_file.h"

#include "level/number.h"
#include "platform/text.h"

namespace tessit {

namespace {

using IntegerProperty = std::int32_t AppState::*;
using TextProperty = std::string AppState::*;

struct IntegerSetting {
    const char* key;
    IntegerProperty property;
};

struct TextSetting {
    const char* key;
    TextProperty property;
};

constexpr const char* serial_port_key = "serial port";
constexpr const char* use_euro_key = "use_euro";

constexpr IntegerSetting list_settings[] = {
    {"dutycycle", &AppState::defaultduty}, {"output", &AppState::defaultoutput}, {"pulse", &AppState::defaultpulse},
    {"shape", &AppState::defaultshape},    {"wave", &AppState::defaultwave},     {"width", &AppState::defaultwidth},
};

constexpr TextSetting text_settings[] = {
    {"rate", &AppState::default_rate},           {"sf_time_ms", &AppState::default_sf_time_ms},
    {"sf_time_s", &AppState::default_sf_time_s}, {"wp_time_ms", &AppState::default_wp_time_ms},
    {"wp_time_s", &AppState::default_wp_time_s},
};

constexpr IntegerSetting time_format_setting = {"timeformat", &AppState::default_timeformat};

std::int32_t integer(const std::string& text) {
    return truncate(read_number(text));
}

const std::string& value_of(const Array<std::string>& items) {
    if (items.count() < 2) {
        throw Fault(FaultKind::out_of_bounds, "The settings file has no value behind \"" + items[0] +
                                                  "\". What stands behind it in the file has not been read.");
    }
    return items[1];
}

void apply_use_euro(AppState& state, const std::string& value) {
    if (same_text(value, "True")) {
        state.use_euro = true;
    } else if (same_text(value, "False")) {
        state.use_euro = false;
    }
}

std::string field(const char* key, const std::string& value) {
    return std::string(key) + "," + value + ";";
}

} // namespace

std::string first_run_settings(const std::string& program_folder) {
    return "serial port,X,filepath," + program_folder;
}

std::string settings_text(const AppState& state) {
    std::string text = field(serial_port_key, Str(state.portnum));
    for (const auto& setting : list_settings) {
        text += field(setting.key, Str(state.*setting.property));
    }
    for (const auto& setting : text_settings) {
        text += field(setting.key, state.*setting.property);
    }
    text += field(time_format_setting.key, Str(state.*time_format_setting.property));
    return text + field(use_euro_key, state.use_euro ? "True" : "False");
}

SettingEffect apply_setting(AppState& state, const Array<std::string>& items) {
    const std::string& key = items[0];
    if (same_text(key, serial_port_key)) {
        state.portnum = integer(value_of(items));
        return SettingEffect::serial_port_chosen;
    }
    for (const auto& setting : list_settings) {
        if (same_text(key, setting.key)) {
            state.*setting.property = integer(value_of(items));
        }
    }
    for (const auto& setting : text_settings) {
        if (same_text(key, setting.key)) {
            state.*setting.property = value_of(items);
        }
    }
    if (same_text(key, time_format_setting.key)) {
        state.*time_format_setting.property = integer(value_of(items));
    }
    if (same_text(key, use_euro_key)) {
        apply_use_euro(state, value_of(items));
    }
    return SettingEffect::none;
}

} // namespace tessit
