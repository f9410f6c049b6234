// SPDX-License-Identifier: MIT
// The settings file from the program's start to its end.
#include "device/load_direct_window.h"
#include "device/settings_window.h"
#include "platform/text.h"
#include "support/full_disk.h"
#include "support/program.h"

#include <memory>

namespace tessit::testing {
namespace {

namespace fs = std::filesystem;

struct TwoPorts : SerialPorts {
    std::vector<SerialPort> list() override {
        return {{.Name = "ttyS0", .device = "/dev/ttyS0"}, {.Name = "ttyUSB0", .device = "/dev/ttyUSB0"}};
    }
    std::unique_ptr<SerialLine> open(const SerialPort&, const SerialSettings&) override {
        ADD_FAILURE() << "a port was opened at the start";
        return nullptr;
    }
};

// A machine on which the program is started, once or again.
class Settings : public ::testing::Test {
protected:
    App& start() {
        app.reset();
        app = std::make_unique<App>(desktop, test_version);
        app->start();
        return *app;
    }
    App& start_with(const std::string& settings) {
        write_file(file, settings);
        return start();
    }
    TwoPorts ports;
    ScriptedDesktop desktop;
    const fs::path file = desktop.folder / "ZP2Settings.fig";
    std::unique_ptr<App> app;
};

TEST_F(Settings, first_start_says_so_and_leaves_one_line_and_the_next_finds_no_port) {
    desktop.expect_message("No configuration file found");
    start();
    EXPECT_EQ(file_bytes(file), "serial port,X,filepath," + desktop.folder.path().string() + "\n");
    EXPECT_EQ(joined(app->portnum, app->defaultduty, app->Window1->versiontext.Text()), "15|7|Version  Beta  1.2.3");
    desktop.expect_message("No Serial Port Selected");
    start();
    EXPECT_EQ(app->portnum, 0);
    EXPECT_FALSE(app->serialselected);
}

TEST_F(Settings, the_first_line_selects_the_first_port_where_there_is_one) {
    desktop.connect(ports);
    start_with("serial port,X,filepath,/a\n");
    EXPECT_TRUE(app->serialselected);
    EXPECT_EQ(app->Window1->serial_port.SerialPort().Name, "ttyS0");
}

TEST_F(Settings, an_empty_file_counts_as_none_and_stays_empty) {
    desktop.expect_message("No configuration file found");
    start_with("");
    EXPECT_EQ(joined(file_bytes(file), app->portnum), "|15");
}

TEST_F(Settings, fields_come_in_any_order_and_empty_or_unknown_ones_are_skipped) {
    start_with("rate,3;;colour,blue;WAVE,4;;use_euro,True;\n");
    EXPECT_EQ(joined(app->default_rate, app->defaultwave), "3|4");
    EXPECT_TRUE(app->use_euro);
    EXPECT_EQ(app->defaultwidth, 9);
}

TEST_F(Settings, a_key_without_value_ends_in_the_fault_report_and_the_program_starts_all_the_same) {
    desktop.expect_fault("Window1.Event_Open");
    start_with("rate,3;wave;shape,2;\n");
    EXPECT_EQ(app->default_rate, "3"); // what stood before
    EXPECT_EQ(app->defaultshape, 0);   // and not what stood behind
    EXPECT_EQ(app->fbyte0[50], 255);   // the image was reset
    EXPECT_EQ(app->port, 465);
    EXPECT_FALSE(app->Window1->StatusField.Visible());
    app->choose_menu("FileCreateNewFile");
    EXPECT_TRUE(app->editwindow->Visible());
}

TEST_F(Settings, what_cannot_be_read_is_a_fault_and_the_program_starts_all_the_same) {
    fs::create_directory(file);
    desktop.expect_fault("Window1.Event_Open");
    start();
    EXPECT_EQ(desktop.faults.front().kind, FaultKind::read_failed);
    EXPECT_EQ(app->portnum, 15);
}

TEST_F(Settings, a_program_folder_that_takes_no_file_is_a_fault_and_the_program_starts_all_the_same) {
    fs::remove(desktop.folder.path());
    desktop.expect_fault("Window1.Event_Open");
    start();
    EXPECT_EQ(desktop.faults.front().what,
              "The file \"" + file.string() + "\" could not be created: No such file or directory.");
    app->choose_menu("FileExitProgram"); // no folder: nothing to save to, and no fault
    EXPECT_TRUE(desktop.has_quit);
}

TEST_F(Settings, a_saved_port_is_chosen_and_not_opened) {
    desktop.connect(ports);
    start_with("serial port,1;rate,3;\n");
    EXPECT_TRUE(app->serialselected && !app->Window1->serial_port.is_open());
    EXPECT_EQ(app->Window1->serial_port.SerialPort(), ports.list()[1]);
    EXPECT_EQ(app->settings_window->connectField.Text(), "Serial Port:  ttyUSB0  Connected");
    const std::string& shown = app->load_direct_window->connectField.Text();
    EXPECT_EQ(shown.substr(shown.size() - 32), "Serial Port:  ttyUSB0  Connected"); // behind what it says anyway
    EXPECT_FALSE(app->load_direct_window->Visible() || app->settings_window->Visible());
}

TEST_F(Settings, a_port_beyond_the_list_is_told_and_kept) {
    desktop.connect(ports);
    desktop.expect_message("No Serial Port Selected");
    start_with("serial port,2;rate,3;\n");
    EXPECT_FALSE(app->serialselected);
    EXPECT_EQ(joined(app->portnum, app->default_rate), "2|3");
}

TEST_F(Settings, saving_writes_the_one_line_and_closes_the_window_it_came_from) {
    start_with(quiet_settings);
    app->choose_menu("SettingsSetSerialPort");
    app->choose_menu("SettingsSaveSettings");
    EXPECT_EQ(file_bytes(file), default_settings);
    EXPECT_FALSE(app->settings_window->Visible());
    EXPECT_EQ(app->settings_window->outputfield.Text(), "serial port,15");
    app->default_rate = "2,5"; // a decimal comma
    app->savesettings();
    desktop.expect_message("No Serial Port Selected");
    start();
    EXPECT_EQ(app->default_rate, "2"); // is where the next start cuts it
}

TEST_F(Settings, nothing_is_saved_after_an_open_dialog_was_dismissed_until_a_file_is_named_again) {
    start_with(quiet_settings);
    desktop.dismiss_file_dialog();
    app->choose_menu("FileOpen");
    app->savesettings();
    EXPECT_EQ(file_bytes(file), quiet_settings);
    app->choose_menu("FileCreateNewFile");
    desktop.choose_file(desktop.folder / "a.zp2");
    app->choose_menu("FileSave");
    app->savesettings();
    EXPECT_EQ(file_bytes(file), default_settings);
}

TEST_F(Settings, both_ways_out_save_and_quit) {
    start_with(quiet_settings);
    app->Window1->close_by_user();
    EXPECT_TRUE(desktop.has_quit);
    EXPECT_EQ(file_bytes(file), default_settings);

    desktop.has_quit = false;
    start_with(quiet_settings);
    app->choose_menu("FileExitProgram");
    EXPECT_TRUE(desktop.has_quit);
    EXPECT_EQ(file_bytes(file), default_settings);
}

TEST_F(Settings, the_end_of_one_program_keeps_what_another_has_saved_meanwhile) {
    const std::string theirs = "rate,8;dutycycle,3;";
    const std::tuple<const char*, std::function<void()>, std::string> cases[] = {
        {"nothing changed here", [] {}, theirs},
        {"one changed here", [&] { app->defaultduty = 5; },
         Replace(Replace(default_settings, "dutycycle,7", "dutycycle,5"), "rate,1", "rate,8")},
        {"a text with the file's own marks", [&] { app->default_rate = "1;2"; },
         Replace(Replace(default_settings, "dutycycle,7", "dutycycle,3"), "rate,1", "rate,1;2")},
        {"saved by command", [&] { app->savesettings(); }, default_settings},
        {"gone", [&] { fs::remove(file); }, default_settings}};
    for (const auto& [what, change, left] : cases) {
        SCOPED_TRACE(what);
        start_with(quiet_settings);
        write_file(file, theirs);
        change();
        app->Window1->close_by_user();
        EXPECT_EQ(file_bytes(file), left);
    }
}

TEST_F(Settings, settings_that_cannot_be_written_are_told_and_the_program_quits) {
    start_with(quiet_settings);
    fs::permissions(file, fs::perms::owner_read);
    app->choose_menu("SettingsSetSerialPort");
    desktop.expect_fault("_SettingsSaveSettings_Action");
    app->choose_menu("SettingsSaveSettings");
    EXPECT_FALSE(desktop.has_quit);
    fs::permissions(file, fs::perms(0644));
    desktop.expect_fault("App.savesettings");
    {
        const FullDisk full;
        app->Window1->close_by_user();
    }
    EXPECT_TRUE(desktop.has_quit);
    EXPECT_EQ(desktop.faults.back().kind, FaultKind::write_failed);
    EXPECT_EQ(file_bytes(file), quiet_settings);
}

} // namespace
} // namespace tessit::testing
