// SPDX-License-Identifier: MIT
// Choosing a port and loading a bank: the program on the scripted desktop against the emulated generator, both on
// the simulated clock.
#include "composer/compose_window.h"
#include "consolidator/consolidator_window.h"
#include "device/load_direct_window.h"
#include "device/load_zephon_window.h"
#include "device/settings_window.h"
#include "emulator/emulated_line.h"
#include "support/program.h"

namespace tessit::testing {
namespace {

using emulator::AfterHangUp;
using emulator::EmulatedPorts;
using emulator::Failure;
using emulator::FailureMode;
using emulator::Generator;

constexpr const char* press_keys = "\r\rImmediately after clicking OK - Press 5 then 3 on the Zephon";
const LevelBytes unset_level{255, 255, 255, 255, 255, 255, 255, 255, 255, 255, 255, 0};

// The twelve bytes and the padding of a level in the generator's memory.
std::string stored(const Generator& generator, int bank, int level) {
    const auto bytes = generator.level(bank, level);
    return hex({bytes.begin(), bytes.end()});
}

class LoadTest : public ProgramTest {
protected:
    Generator generator;
    EmulatedPorts ports{generator, desktop.simulated_clock};

    void SetUp() override {
        desktop.connect(ports);
        generator.press_receive();
    }

    void quit_editor() {
        app.editchanged = false;
        app.choose_menu("FileQuitEditor");
    }

    void choose_port() {
        app.choose_menu("SettingsSetSerialPort");
        app.settings_window->Serial_box.choose(1);
    }

    // A protocol of two levels, ready for the Load button.
    LoadDirectWindow& ready_to_load(int bank) {
        choose_port();
        app.Window1->activate();
        program.new_protocol();
        program.enter("7.83");
        program.enter("1234.5");
        app.choose_menu("ZephonLoadDirect");
        app.load_direct_window->bank_bt1.choose(bank / 10);
        app.load_direct_window->bank_bt0.choose(bank % 10);
        return app.load_direct_window.get();
    }

    void load_bank_7(DialogAnswer answer = DialogAnswer::action) {
        LoadDirectWindow& window = ready_to_load(7);
        desktop.expect_message(std::string("Ready to load: Untitled\rInto Bank: 07") + press_keys, answer);
        window.LoadButton.click();
    }

    void load_bank_7_failing(const Failure& failure, const std::string& message) {
        generator.set_failure(failure);
        LoadDirectWindow& window = ready_to_load(7);
        desktop.expect_message(std::string("Ready to load: Untitled\rInto Bank: 07") + press_keys);
        desktop.expect_message(message);
        window.LoadButton.click();
        EXPECT_TRUE(!window.loadcompleted.Visible() && !app.popupwindow.exists() && window.LoadButton.Enabled());
        EXPECT_EQ(program.levels(), 2);
    }
};

TEST_F(LoadTest, a_port_is_chosen_and_set_up) {
    choose_port();
    EXPECT_TRUE(app.serialselected);
    EXPECT_EQ(app.portnum, 0);
    EXPECT_EQ(app.settings_window->connectField.Text(), "Serial Port:  Zephon emulator  Connected");
    EXPECT_EQ(ports.settings(), (SerialSettings{.Baud = 19200, .RequestToSend = true}));

    desktop.expect_message("No Port Selected");
    app.settings_window->Serial_box.choose(0);
    EXPECT_TRUE(app.serialselected); // "Select" leaves everything as it was
    EXPECT_EQ(app.Window1->serial_port.SerialPort().Name, "Zephon emulator");
}

TEST_F(LoadTest, ports_beyond_the_fourth_are_listed_and_choosing_them_changes_no_port) {
    choose_port();
    EmulatedPorts six(generator, desktop.simulated_clock,
                      {{"Zephon emulator", "emulated"}, {"b", "b"}, {"c", "c"}, {"d", "d"}, {"e", "e"}, {"f", "f"}});
    desktop.connect(six);
    app.Window1->activate();
    app.choose_menu("SettingsSetSerialPort"); // lists what has been plugged in since
    EXPECT_EQ(app.settings_window->Serial_box.ListCount(), 7);
    app.settings_window->Serial_box.choose(5);
    EXPECT_EQ(app.portnum, 0);
    EXPECT_EQ(app.settings_window->connectField.Text(), "Serial Port:  Zephon emulator  Connected");
}

TEST_F(LoadTest, a_port_that_does_not_open_says_so_and_another_choice_works) {
    generator.hang_up(AfterHangUp::stays_away);
    desktop.expect_message("The Serial Port Could Not Be Opened");
    choose_port();
    EXPECT_FALSE(app.serialselected);
    generator.plug_in();
    desktop.expect_message("No Port Selected");
    app.settings_window->Serial_box.choose(0);
    app.settings_window->Serial_box.choose(1);
    EXPECT_TRUE(app.serialselected);
}

TEST_F(LoadTest, a_port_that_another_program_has_is_told_with_its_holder) {
    struct TakenPorts : SerialPorts {
        std::vector<SerialPort> list() override { return {{"ttyUSB0", "taken"}}; }
        std::unique_ptr<SerialLine> open(const SerialPort&, const SerialSettings&) override { return nullptr; }
        std::optional<PortHolder> holder(const SerialPort&) override { return PortHolder{"minicom", 708}; }
    } taken;
    desktop.connect(taken);
    desktop.expect_message("The Serial Port Could Not Be Opened");
    desktop.expect_message("No Serial Port Selected");
    load_bank_7_failing({}, "No Connection Found");
    EXPECT_EQ(app.load_direct_window->connectField.Text(), "Port in use by minicom, process 708");
    EXPECT_EQ(joined(desktop.dialogs.front().Explanation, desktop.dialogs.back().Explanation),
              "The port is in use by minicom, process 708.|The port is in use by minicom, process 708.");
}

TEST_F(LoadTest, a_table_goes_to_its_bank_and_the_generator_has_nothing_to_complain_about) {
    load_bank_7();
    EXPECT_EQ(stored(generator, 7, 1), "00 1e 96 08 00 03 15 07 00 00 01 24 ff ff ff ff");
    EXPECT_EQ(stored(generator, 7, 2), "01 e2 3a 04 00 03 15 07 00 00 01 bf ff ff ff ff");
    EXPECT_EQ(stored(generator, 7, 3), hex(std::string(11, '\xff') + '\0' + std::string(4, '\xff')));
    EXPECT_EQ(stored(generator, 7, 50), stored(generator, 7, 3));
    EXPECT_EQ(stored(generator, 6, 50), hex(std::string(16, '\xff')));
    EXPECT_TRUE(generator.violations().empty());
    LoadDirectWindow& window = app.load_direct_window.get();
    EXPECT_EQ(window.loadcompleted.Text(), "Zephon loaded in 4 seconds");
    EXPECT_TRUE(window.loadcompleted.Visible() && !app.popupwindow.exists());
    EXPECT_EQ(app.addresshi * 256 + app.addresslo, 4800); // the working copy is local
}

TEST_F(LoadTest, a_composed_table_goes_out_alike_each_time_it_is_loaded) {
    choose_port();
    app.Window1->activate();
    app.choose_menu("ConsolidatorNew");
    app.consolidatorWindow->freqdisplayfield.edit("7.83");
    app.consolidatorWindow->composebutton.click();
    app.composewindow->allbutton.click();
    for (int bank = 7; bank <= 8; ++bank) {
        app.choose_menu("ZephonLoadDirect");
        app.load_direct_window->bank_bt0.choose(bank);
        desktop.expect_message("Ready to load: \rInto Bank: 0" + Str(bank) + press_keys);
        app.load_direct_window->LoadButton.click();
        EXPECT_EQ(app.front_window(), &app.load_direct_window.get());
        EXPECT_EQ(stored(generator, bank, 1), "00 1e 96 08 00 03 15 07 00 00 01 24 ff ff ff ff");
        app.load_direct_window->close_by_user();
        EXPECT_EQ(app.front_window(), &app.composewindow.get()); // and not the editor that came up with its name
        generator.press_receive();
    }
}

TEST_F(LoadTest, what_is_cancelled_or_refused_sends_nothing) {
    load_bank_7(DialogAnswer::cancel);
    LoadDirectWindow& window = app.load_direct_window.get();
    const char* const cases[][3] = {
        {"4", "1", "Invalid, Bank 41 selected\rChoose a bank 1 to 40"},
        {"0", "0", "Invalid, Bank 00 selected"},
        {"4", "x", "Invalid, Bank 4x selected\rChoose a bank 1 to 40"}, // counts as -1, which would make it bank 39
        {"", "7", "Invalid, Bank 7 selected\rChoose a bank 1 to 40"},
    };
    for (const auto& [tens, ones, message] : cases) {
        window.bank_bt1.edit(tens);
        window.bank_bt0.edit(ones);
        desktop.expect_message(message);
        window.LoadButton.click();
    }
    EXPECT_EQ(stored(generator, 7, 1), hex(std::string(16, '\xff')));
    EXPECT_EQ(desktop.simulated_clock.idled(), 0);
}

TEST_F(LoadTest, closing_the_load_window_only_hides_it) {
    LoadDirectWindow& window = ready_to_load(39);
    window.close_by_user();
    EXPECT_FALSE(window.Visible());
    EXPECT_EQ(&app.load_direct_window.get(), &window);
    EXPECT_EQ(joined(window.bank_bt_hi, window.bank_bt_lo), "3|9");
}

TEST_F(LoadTest, a_silent_generator_is_asked_a_thousand_times) {
    load_bank_7_failing({.mode = FailureMode::handshake_silent}, "No Connection Found");
    EXPECT_EQ(desktop.simulated_clock.idled(), 1000 * 10'000);
}

TEST_F(LoadTest, an_answer_in_two_parts_or_a_wrong_one_is_a_miss) {
    using enum FailureMode;
    for (const auto mode : {handshake_split, handshake_wrong_first, handshake_wrong_second, address_ack_wrong,
                            address_ack_too_late, data_ack_wrong, data_ack_too_late}) {
        load_bank_7_failing({.mode = mode}, mode < address_ack_lost ? "No Connection Found"
                                            : mode < data_ack_lost  ? "Bank 07\rAddress 18  192 Not Acknowledged"
                                                                    : "Data not Accepted. Level: 1");
        generator.press_receive();
        quit_editor();
    }
}

TEST_F(LoadTest, late_acknowledges_and_stray_bytes_within_the_tries_do_no_harm) {
    for (const Failure& failure : {Failure{.mode = FailureMode::handshake_stale_bytes, .level = 1, .times = 1},
                                   Failure{.mode = FailureMode::handshake_late, .level = 1, .times = 1},
                                   Failure{.mode = FailureMode::address_ack_late, .level = 2},
                                   Failure{.mode = FailureMode::data_ack_late, .level = 50},
                                   Failure{.mode = FailureMode::address_stray_bytes, .level = 9},
                                   Failure{.mode = FailureMode::data_stray_bytes, .level = 1}}) {
        generator.set_failure(failure);
        generator.press_receive();
        load_bank_7();
        EXPECT_TRUE(app.load_direct_window->loadcompleted.Visible()) << emulator::name(failure.mode);
        EXPECT_EQ(stored(generator, 7, 1), "00 1e 96 08 00 03 15 07 00 00 01 24 ff ff ff ff");
        quit_editor();
        app.load_direct_window->loadcompleted.SetVisible(false);
    }
}

TEST_F(LoadTest, a_lost_acknowledge_ends_the_load_at_every_level) {
    choose_port();
    app.Window1->activate();
    program.new_protocol();
    for (int level = 1; level <= 50; ++level) {
        program.enter("7.83");
    }
    app.loadfile = false;
    app.addresshi = 18;
    app.addresslo = 192;
    app.load_direct_window->bank_bt0.SetListIndex(7);
    app.load_data_array();
    Serial& line = app.Window1->serial_port;
    line.Close();
    for (int failing = 1; failing <= 50; ++failing) {
        for (const auto mode : {FailureMode::address_ack_lost, FailureMode::data_ack_lost}) {
            Generator fresh;
            EmulatedPorts fresh_ports(fresh, desktop.simulated_clock);
            desktop.connect(fresh_ports);
            fresh.press_receive();
            fresh.set_failure({.mode = mode, .level = failing});
            ASSERT_TRUE(line.Open());
            const bool address = mode == FailureMode::address_ack_lost;
            const Microseconds before = desktop.simulated_clock.idled();
            desktop.expect_message(address ? "Bank 07\rAddress 18  192 Not Acknowledged"
                                           : "Data not Accepted. Level: " + std::to_string(failing));
            app.sendzephon();
            EXPECT_EQ(desktop.simulated_clock.idled() - before,
                      10'000 + (failing - 1) * 95'000 + (address ? 10'000 : 95'000) + 101 * 1'000);
            line.Close();
            const int last = address ? failing - 1 : failing; // levels already sent stay in the generator
            for (int level = 1; level <= 50; ++level) {
                EXPECT_EQ(stored(fresh, 7, level).substr(0, 5), level <= last ? "00 1e" : "ff ff") << level;
            }
        }
    }
}

TEST_F(LoadTest, a_hang_up_at_any_step_is_told_and_the_port_can_be_chosen_again) {
    const std::pair<FailureMode, const char*> cases[] = {
        {FailureMode::handshake_hang_up, "No Connection Found"},
        {FailureMode::address_hang_up, "Bank 07\rAddress 18  192 Not Acknowledged"},
        {FailureMode::data_hang_up, "Data not Accepted. Level: 3"},
        {FailureMode::between_levels_hang_up, "Bank 07\rAddress 18  192 Not Acknowledged"},
    };
    for (const auto& [mode, message] : cases) {
        generator.press_receive();
        load_bank_7_failing({.mode = mode, .level = 3, .times = 1}, message);
        EXPECT_TRUE(generator.hung_up()) << emulator::name(mode);
        quit_editor();
        desktop.expect_message("No Port Selected");
        app.choose_menu("SettingsSetSerialPort");
        app.settings_window->Serial_box.choose(0);
        generator.set_failure({});
        generator.press_receive();
        load_bank_7();
        EXPECT_TRUE(app.load_direct_window->loadcompleted.Visible());
        quit_editor();
    }
}

TEST_F(LoadTest, a_file_goes_to_its_bank_without_an_editor) {
    choose_port();
    app.settings_window->close_by_user();
    write_file(desktop.folder / "night.zp2", std::string("\x00\x1e\x96\x08\x00\x03\x15\x07\x00\x00\x01\x24", 12));
    app.choose_menu("ZephonLoadFromFile");
    LoadZephonWindow& window = app.loadzephonWindow.get();
    EXPECT_EQ(window.connectfield.Text(), "Serial Port:  Zephon emulator  Connected");
    EXPECT_FALSE(window.bankbox0.Enabled() || window.StaticText1.Enabled());
    desktop.choose_file(desktop.folder / "night.zp2");
    window.cb1.click();
    EXPECT_EQ(window.fn1.Text(), "night");
    EXPECT_EQ(window.Fname, (desktop.folder / "night.zp2").string());
    EXPECT_FALSE(window.cb1.Visible());
    window.bankbox1.choose(4);
    window.bankbox0.choose(3);
    desktop.expect_message("Invalid, bank 43 selected\rChoose a bank 1 to 40"); // a small b here
    window.loadbutton.click();
    window.bankbox0.choose(0);
    desktop.expect_message(std::string("Ready to load: night\rInto Bank: 40") + press_keys);
    window.loadbutton.click();
    EXPECT_EQ(window.zephonloadcomplete.Text(), "Zephon loaded in 4 seconds");
    EXPECT_TRUE(window.zephonloadcomplete.Visible());
    EXPECT_EQ(stored(generator, 40, 1), "00 1e 96 08 00 03 15 07 00 00 01 24 ff ff ff ff");
    EXPECT_TRUE(generator.violations().empty() && !app.editwindow.exists());
}

TEST_F(LoadTest, loading_a_file_without_a_port_closes_its_window_again) {
    desktop.expect_message("No Serial Port Selected");
    app.choose_menu("ZephonLoadFromFile");
    EXPECT_TRUE(!app.loadzephonWindow.exists() && app.Window1->Visible());
}

TEST_F(LoadTest, a_dismissed_file_dialog_leaves_an_empty_image_to_load) {
    choose_port();
    app.Window1->activate();
    app.choose_menu("ZephonLoadFromFile");
    desktop.dismiss_file_dialog();
    app.loadzephonWindow->cb1.click();
    EXPECT_TRUE(!app.loadzephonWindow->cb1.Visible() && app.loadzephonWindow->bankbox1.Enabled());
    EXPECT_EQ(app.bytes(1), unset_level);
}

} // namespace
} // namespace tessit::testing
