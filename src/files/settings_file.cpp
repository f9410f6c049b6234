// SPDX-License-Identifier: MIT
#include "files/settings_file.h"

#include "level/number.h"
#include "platform/text.h"

#include <numeric>

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

std::string line_of(const std::vector<std::string>& fields) {
    return std::accumulate(fields.begin(), fields.end(), std::string());
}

// As the next start would read them: up to a key without a value, and with the default for what is missing.
std::vector<std::string> fields_of(const std::string& file) {
    AppState state;
    try {
        for (const std::string& part : Split(file, ";")) {
            if (const auto items = Split(part, ","); items.count() > 0) {
                apply_setting(state, items);
            }
        }
    } catch (const Fault&) {
    }
    return settings_fields(state);
}

} // namespace

std::string first_run_settings(const std::string& program_folder) {
    return "serial port,X,filepath," + program_folder;
}

std::vector<std::string> settings_fields(const AppState& state) {
    std::vector<std::string> fields{field(serial_port_key, Str(state.portnum))};
    for (const auto& setting : list_settings) {
        fields.push_back(field(setting.key, Str(state.*setting.property)));
    }
    for (const auto& setting : text_settings) {
        fields.push_back(field(setting.key, state.*setting.property));
    }
    fields.push_back(field(time_format_setting.key, Str(state.*time_format_setting.property)));
    fields.push_back(field(use_euro_key, state.use_euro ? "True" : "False"));
    return fields;
}

std::string settings_text(const AppState& state) {
    return line_of(settings_fields(state));
}

std::optional<std::string> settings_at_end(const AppState& state, const std::optional<std::string>& file) {
    const KnownSettings& known = state.known_settings;
    const std::vector<std::string> own = settings_fields(state);
    if (!file || !known.file || *file == *known.file) {
        return line_of(own);
    }
    if (own == known.fields) {
        return std::nullopt;
    }
    std::vector<std::string> fields = fields_of(*file);
    for (std::size_t at = 0; at < fields.size(); ++at) {
        if (own[at] != known.fields[at]) {
            fields[at] = own[at];
        }
    }
    return line_of(fields);
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
