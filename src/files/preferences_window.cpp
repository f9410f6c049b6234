// SPDX-License-Identifier: MIT
#include "files/preferences_window.h"

#include "core/enable_rules.h"
#include "files/time_defaults.h"

namespace tessit {

void PreferencesWindow::Event_Open() {
    (app.use_euro ? isoDecimal : naDecimal).SetValue(true);
    defaultwavebox.SetListIndex(app.defaultwave);
    defaultwidthbox.SetListIndex(app.defaultwidth);
    defaultformatbox.SetListIndex(app.default_timeformat);
    DEFAULTPULSEBOX.SetListIndex(app.defaultpulse);
    defaultdutybox.SetListIndex(app.defaultduty);
    defaultshapebox.SetListIndex(app.defaultshape);
    defaultoutputbox.SetListIndex(app.defaultoutput);
    defaultformatbox_Change();
    defaultratefield.SetText(app.default_rate);
}

void PreferencesWindow::Event_EnableMenuItems() {
    settings_window_rules.apply(app.MenuBar1);
}

void PreferencesWindow::defaultformatbox_Change() {
    if (defaultformatbox.ListIndex() == 0) { // the stored texts, not what was typed in the other form
        sftimefield.SetText(app.default_sf_time_s);
        wptimefield.SetText(app.default_wp_time_s);
    } else if (defaultformatbox.ListIndex() == 1) {
        sftimefield.SetText(app.default_sf_time_ms);
        wptimefield.SetText(app.default_wp_time_ms);
    }
}

void PreferencesWindow::setbutton_Action() {
    app.defaultwave = defaultwavebox.ListIndex();
    app.defaultwidth = defaultwidthbox.ListIndex();
    app.default_timeformat = defaultformatbox.ListIndex();
    if (app.default_timeformat == 0 || app.default_timeformat == 1) {
        const TimeForm form = time_form_of(app.default_timeformat);
        const auto sf = set_time_default({app.default_sf_time_s, app.default_sf_time_ms}, sftimefield.Text(), form);
        const auto wp = set_time_default({app.default_wp_time_s, app.default_wp_time_ms}, wptimefield.Text(), form);
        app.default_sf_time_s = sf.seconds;
        app.default_sf_time_ms = sf.minutes;
        app.default_wp_time_s = wp.seconds;
        app.default_wp_time_ms = wp.minutes;
    }
    app.defaultpulse = DEFAULTPULSEBOX.ListIndex();
    app.default_rate = defaultratefield.Text();
    app.defaultduty = defaultdutybox.ListIndex();
    app.defaultshape = defaultshapebox.ListIndex();
    app.defaultoutput = defaultoutputbox.ListIndex();
    app.use_euro = isoDecimal.Value();
    app.savesettings(); // closes this window too
    Close();
}

bool App::_SettingsSetPreferences_Action() {
    SetPreferencesWindow->Show();
    return true;
}

} // namespace tessit
