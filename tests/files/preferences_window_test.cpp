// SPDX-License-Identifier: MIT
// The preferences: what opening shows, what "Set Defaults" stores and saves, what the editor makes of it.
#include "files/preferences_window.h"

#include "files/settings_file.h"
#include "files/time_defaults.h"
#include "support/program.h"

namespace tessit::testing {
namespace {

class PreferencesTest : public ProgramTest {
protected:
    PreferencesWindow& window() { return app.SetPreferencesWindow.get(); }
    std::string saved() { return file_bytes(desktop.folder / settings_file_name); }

    void SetUp() override { app.choose_menu("SettingsSetPreferences"); }
};

TEST(TimeDefault, one_text_makes_the_other) {
    const std::tuple<TimeForm, const char*, TimeDefault> cases[] = {
        {TimeForm::seconds, "45", {"45", "00:45"}},      {TimeForm::seconds, "5", {"5", "00:05"}},
        {TimeForm::seconds, "59.9", {"59.9", "00:59"}},  {TimeForm::seconds, "60", {"60", "3:001:00"}},
        {TimeForm::seconds, "150", {"150", "3:002:30"}}, // behind the old text: that is how it is meant
        {TimeForm::clock, "2:30", {"150", "2:30"}},      {TimeForm::clock, ":10", {"10", ":10"}},
        {TimeForm::clock, "230", {"150", "230"}},        {TimeForm::clock, "", {"0", ""}},
    };
    for (const auto& [form, typed, result] : cases) {
        EXPECT_EQ(set_time_default({"180", "3:00"}, typed, form), result) << typed;
    }
}

TEST_F(PreferencesTest, set_without_a_change_saves_the_factory_line) {
    EXPECT_EQ(joined(window().sftimefield, window().wptimefield, window().defaultdutybox, window().defaultwidthbox),
              "3:00|:10|70|9");
    EXPECT_TRUE(window().naDecimal.Value());
    window().setbutton.click();
    EXPECT_FALSE(app.SetPreferencesWindow.exists());
    EXPECT_EQ(saved(), default_settings);
}

TEST_F(PreferencesTest, every_control_is_stored_and_comes_back_in_the_next_run) {
    window().defaultwavebox.choose(3);
    window().defaultwidthbox.choose(4);
    window().DEFAULTPULSEBOX.choose(1);
    window().defaultratefield.edit("250");
    window().defaultdutybox.choose(2);
    window().defaultshapebox.choose(1);
    window().defaultoutputbox.choose(2);
    window().isoDecimal.click();
    window().sftimefield.edit("4:30");
    window().wptimefield.edit("0:20");
    window().setbutton.click();
    const std::string text = saved();
    EXPECT_EQ(text, "serial port,15;dutycycle,2;output,2;pulse,1;shape,1;wave,3;width,4;rate,250;sf_time_ms,4:30;"
                    "sf_time_s,270;wp_time_ms,0:20;wp_time_s,20;timeformat,1;use_euro,True;\n");

    Program next(text.substr(text.find("dutycycle")));
    EXPECT_EQ(settings_text(next.app), text.substr(0, text.size() - 1));
    next.new_protocol();
    EditWindow& editor = next.app.editwindow.get();
    EXPECT_EQ(joined(editor.wave_box, editor.WidthMenu, editor.time_field, editor.rate_field),
              "Sweep Increasing|4|0:20|250");
    EXPECT_TRUE(editor.isoDecimal.Value());
    EXPECT_EQ(editor.DutyMenu.Text(), "70"); // these four do not reach the editor
    EXPECT_EQ(joined(editor.PulseMenu, editor.shape_box, editor.output_box), "ON|Square|Positive");
}

TEST_F(PreferencesTest, the_time_format_brings_the_stored_texts_and_seconds_grow_the_minutes_text) {
    window().sftimefield.edit("9:99");
    window().defaultformatbox.choose(0);
    EXPECT_EQ(window().sftimefield.Text(), "180"); // what was typed is not converted
    EXPECT_EQ(window().wptimefield.Text(), "10");
    window().sftimefield.edit("150");
    window().setbutton.click();
    EXPECT_EQ(joined(app.default_sf_time_ms, app.default_wp_time_ms), "3:002:30|00:10");
    app.choose_menu("SettingsSetPreferences");
    window().setbutton.click();
    EXPECT_EQ(app.default_sf_time_ms, "3:002:302:30"); // and again at each setting
    program.new_protocol();
    EXPECT_EQ(joined(app.editwindow->time_field, app.editwindow->format_box), "150|Seconds");
}

TEST_F(PreferencesTest, cancel_keeps_everything_but_the_decimal_mark) {
    window().defaultwavebox.choose(3);
    window().isoDecimal.click();
    window().Cancelbutton.click();
    EXPECT_FALSE(app.SetPreferencesWindow.exists());
    EXPECT_EQ(app.defaultwave, 0);
    EXPECT_TRUE(app.use_euro);
    app.choose_menu("SettingsSetPreferences");
    EXPECT_TRUE(window().isoDecimal.Value());
}

} // namespace
} // namespace tessit::testing
