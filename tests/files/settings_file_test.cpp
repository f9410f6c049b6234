// SPDX-License-Identifier: MIT
#include "files/settings_file.h"

#include "platform/text.h"

#include <gtest/gtest.h>

namespace tessit {
namespace {

// The state after the fields of a text, as start-up takes them in.
AppState read(const std::string& text) {
    AppState state;
    for (const std::string& field : Split(text, ";")) {
        if (!field.empty()) {
            apply_setting(state, Split(field, ","));
        }
    }
    return state;
}

constexpr const char* default_line = "serial port,15;dutycycle,7;output,0;pulse,0;shape,0;wave,0;width,9;rate,1;"
                                     "sf_time_ms,3:00;sf_time_s,180;wp_time_ms,:10;wp_time_s,10;timeformat,1;"
                                     "use_euro,False;";

constexpr const char* other_line = "serial port,2;dutycycle,1;output,2;pulse,1;shape,3;wave,4;width,5;rate,7.5;"
                                   "sf_time_ms,3:002:30;sf_time_s,150;wp_time_ms,0:20;wp_time_s,20;timeformat,0;"
                                   "use_euro,True;";

TEST(SettingsFile, defaults_are_written_as_this_line) {
    EXPECT_EQ(settings_text(AppState()), default_line);
}

TEST(SettingsFile, every_field_is_read_back_into_its_own_property) {
    const AppState state = read(other_line);
    EXPECT_EQ(settings_text(state), other_line);
    const int numbers[] = {state.portnum,      state.defaultduty, state.defaultoutput, state.defaultpulse,
                           state.defaultshape, state.defaultwave, state.defaultwidth,  state.default_timeformat};
    EXPECT_EQ(std::vector(std::begin(numbers), std::end(numbers)), (std::vector{2, 1, 2, 1, 3, 4, 5, 0}));
    EXPECT_EQ(state.default_rate + "|" + state.default_sf_time_ms + "|" + state.default_sf_time_s, "7.5|3:002:30|150");
    EXPECT_EQ(state.default_wp_time_ms + "|" + state.default_wp_time_s, "0:20|20");
    EXPECT_TRUE(state.use_euro);
}

TEST(SettingsFile, odd_fields_have_the_effect_that_they_have) {
    // A field, and what of the default line it changes into what.
    const std::tuple<const char*, const char*, const char*> cases[] = {
        {"serial port,X", "serial port,15;", "serial port,0;"},
        {"serial port,X,filepath,/a", "serial port,15;", "serial port,0;"},
        {"serial port,", "serial port,15;", "serial port,0;"},
        {"serial port,-3", "serial port,15;", "serial port,3;"}, // a sign is no digit
        {"serial port,99999999999", "serial port,15;", "serial port,2147483647;"},
        {"wave, 4x", "wave,0;", "wave,4;"},
        {"dutycycle,2.9", "dutycycle,7;", "dutycycle,2;"},
        {"rate,", "rate,1;", "rate,;"},
        {"rate,2,5", "rate,1;", "rate,2;"},                      // cut at its comma
        {"sf_time_s, 20 ", "sf_time_s,180;", "sf_time_s, 20 ;"}, // texts stay as they stand
        {"use_euro,true", "use_euro,False;", "use_euro,True;"},
        {"use_euro,TRUE", "use_euro,False;", "use_euro,True;"},
        {"use_euro,1", "use_euro,False;", "use_euro,False;"},
        {"colour,blue", "", ""}, // unknown
        {" wave,4", "", ""},
        {"\n", "", ""}, // the file's line end
    };
    for (const auto& [field, changed, into] : cases) {
        EXPECT_EQ(settings_text(read(field)), Replace(default_line, changed, into)) << field;
    }
}

TEST(SettingsFile, use_euro_is_cleared_by_false_and_left_by_anything_else) {
    EXPECT_TRUE(!read("use_euro,True;use_euro,FALSE").use_euro && read("use_euro,True;use_euro,no").use_euro);
}

TEST(SettingsFile, a_known_key_without_a_value_is_a_fault) {
    for (const std::string& field : Split(default_line, ";")) {
        if (!field.empty()) {
            AppState state;
            EXPECT_THROW(apply_setting(state, {Split(field, ",")[0]}), Fault) << field;
        }
    }
}

TEST(SettingsFile, only_the_serial_port_has_more_to_it) {
    AppState state;
    EXPECT_EQ(apply_setting(state, {"Serial Port", "2"}), SettingEffect::serial_port_chosen);
    EXPECT_EQ(apply_setting(state, {"wave", "2"}), SettingEffect::none);
    EXPECT_EQ(apply_setting(state, {"colour"}), SettingEffect::none);
}

TEST(SettingsFile, the_first_line_names_no_port_and_has_no_end_of_field) {
    EXPECT_EQ(first_run_settings("/home/you/programs"), "serial port,X,filepath,/home/you/programs");
}

} // namespace
} // namespace tessit
