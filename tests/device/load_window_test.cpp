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

#include <gtest/gtest.h>

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

class LoadTest : public ::testing::Test {
protected:
    Program program;
    App& app = program.app;
    Generator generator;
    EmulatedPorts ports{generator, program.desktop.simulated_clock};

    void SetUp() override {
        program.desktop.connect(ports);
        generator.press_receive();
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
        program.desktop.expect_message(std::string("Ready to load: Untitled\rInto Bank: 07") + press_keys, answer);
        window.LoadButton.click();
    }

    void load_bank_7_failing(const Failure& failure, const std::string& message) {
        generator.set_failure(failure);
        LoadDirectWindow& window = ready_to_load(7);
        program.desktop.expect_message(std::string("Ready to load: Untitled\rInto Bank: 07") + press_keys);
        program.desktop.expect_message(message);
        window.LoadButton.click();
        EXPECT_FALSE(window.loadcompleted.Visible());
        EXPECT_FALSE(app.popupwindow.exists());
        EXPECT_TRUE(window.LoadButton.Enabled());
        EXPECT_EQ(program.levels(), 2);
    }
};

TEST_F(LoadTest, a_port_is_chosen_and_set_up) {
    choose_port();
    EXPECT_TRUE(app.serialselected);
    EXPECT_EQ(app.portnum, 0);
    EXPECT_EQ(app.settings_window->connectField.Text(), "Serial Port:  Zephon emulator  Connected");
    SerialSettings expected;
    expected.RequestToSend = true;
    EXPECT_EQ(ports.settings(), expected);
    EXPECT_EQ(expected.Baud, 19200);

    program.desktop.expect_message("No Port Selected");
    app.settings_window->Serial_box.choose(0);
    EXPECT_TRUE(app.serialselected); // "Select" leaves everything as it was
    EXPECT_EQ(app.Window1->serial_port.SerialPort().Name, "Zephon emulator");
}

TEST_F(LoadTest, a_restored_port_is_not_opened_and_not_set_up) {
    ScriptedDesktop desktop;
    EmulatedPorts other(generator, desktop.simulated_clock);
    desktop.connect(other);
    write_file(desktop.folder / "ZP2Settings.fig", "serial port,0;\n");
    App restored(desktop, test_version);
    restored.start();
    EXPECT_TRUE(restored.serialselected);
    EXPECT_FALSE(other.in_use());
    EXPECT_FALSE(restored.Window1->serial_port.settings().RequestToSend);
    EXPECT_EQ(restored.load_direct_window->connectField.Text(),
              "No port selectedSerial Port:  Zephon emulator  Connected"); // added to what the field says
    EXPECT_EQ(restored.settings_window->connectField.Text(), "Serial Port:  Zephon emulator  Connected");
}

TEST_F(LoadTest, ports_beyond_the_fourth_are_listed_and_choosing_them_changes_no_port) {
    choose_port();
    EmulatedPorts six(generator, program.desktop.simulated_clock,
                      {{"Zephon emulator", "emulated"}, {"b", "b"}, {"c", "c"}, {"d", "d"}, {"e", "e"}, {"f", "f"}});
    program.desktop.connect(six);
    app.Window1->activate();
    app.choose_menu("SettingsSetSerialPort"); // lists what has been plugged in since
    EXPECT_EQ(app.settings_window->Serial_box.ListCount(), 7);
    app.settings_window->Serial_box.choose(5);
    EXPECT_EQ(app.portnum, 0);
    EXPECT_EQ(app.settings_window->connectField.Text(), "Serial Port:  Zephon emulator  Connected");
}

TEST_F(LoadTest, a_port_that_does_not_open_says_so_and_another_choice_works) {
    generator.hang_up(AfterHangUp::stays_away);
    program.desktop.expect_message("The Serial Port Could Not Be Opened");
    choose_port();
    EXPECT_FALSE(app.serialselected);
    generator.plug_in();
    program.desktop.expect_message("No Port Selected");
    app.settings_window->Serial_box.choose(0);
    app.settings_window->Serial_box.choose(1);
    EXPECT_TRUE(app.serialselected);
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
    EXPECT_TRUE(window.loadcompleted.Visible());
    EXPECT_FALSE(app.popupwindow.exists());
    EXPECT_EQ(app.addresshi, 18); // the working copy is local
    EXPECT_EQ(app.addresslo, 192);
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
        program.desktop.expect_message("Ready to load: \rInto Bank: 0" + Str(bank) + press_keys);
        app.load_direct_window->LoadButton.click();
        EXPECT_EQ(app.front_window(), &app.load_direct_window.get());
        EXPECT_EQ(stored(generator, bank, 1), "00 1e 96 08 00 03 15 07 00 00 01 24 ff ff ff ff");
        app.load_direct_window->close_by_user();
        EXPECT_EQ(app.front_window(), &app.composewindow.get()); // and not the editor that came up with its name
        generator.press_receive();
    }
}

TEST_F(LoadTest, cancelling_the_question_sends_nothing) {
    load_bank_7(DialogAnswer::cancel);
    EXPECT_EQ(stored(generator, 7, 1), hex(std::string(16, '\xff')));
    EXPECT_EQ(program.desktop.simulated_clock.idled(), 0);
}

TEST_F(LoadTest, banks_outside_1_to_40_are_refused) {
    LoadDirectWindow& window = ready_to_load(41);
    program.desktop.expect_message("Invalid, Bank 41 selected\rChoose a bank 1 to 40");
    window.LoadButton.click();
    window.bank_bt1.choose(0);
    window.bank_bt0.choose(0);
    program.desktop.expect_message("Invalid, Bank 00 selected");
    window.LoadButton.click();
}

TEST_F(LoadTest, a_text_of_the_users_own_in_a_bank_box_is_refused_and_no_other_bank_is_loaded) {
    LoadDirectWindow& window = ready_to_load(40);
    window.bank_bt0.edit("x"); // counts as -1, which would make it bank 39
    program.desktop.expect_message("Invalid, Bank 4x selected\rChoose a bank 1 to 40");
    window.LoadButton.click();
    window.bank_bt1.edit("");
    window.bank_bt0.edit("7");
    program.desktop.expect_message("Invalid, Bank 7 selected\rChoose a bank 1 to 40");
    window.LoadButton.click();
    EXPECT_EQ(program.desktop.simulated_clock.idled(), 0);
}

TEST_F(LoadTest, closing_the_load_window_only_hides_it) {
    LoadDirectWindow& window = ready_to_load(39);
    window.close_by_user();
    EXPECT_FALSE(window.Visible());
    EXPECT_EQ(&app.load_direct_window.get(), &window);
    EXPECT_EQ(window.bank_bt_hi, 3);
    EXPECT_EQ(window.bank_bt_lo, 9);
}

TEST_F(LoadTest, without_a_port_the_load_says_so_and_ends_after_a_thousand_tries) {
    program.new_protocol();
    program.enter("7.83");
    program.desktop.expect_message("No Serial Port Selected");
    app.choose_menu("ZephonLoadDirect");
    app.load_direct_window->bank_bt0.choose(1);
    program.desktop.expect_message(std::string("Ready to load: Untitled\rInto Bank: 01") + press_keys);
    program.desktop.expect_message("No Connection Found");
    app.load_direct_window->LoadButton.click();
    EXPECT_EQ(program.desktop.simulated_clock.idled(), 1000 * 10'000);
}

TEST_F(LoadTest, a_silent_generator_is_asked_a_thousand_times) {
    load_bank_7_failing({.mode = FailureMode::handshake_silent}, "No Connection Found");
    EXPECT_EQ(program.desktop.simulated_clock.idled(), 1000 * 10'000);
}

TEST_F(LoadTest, an_answer_in_two_parts_or_a_wrong_one_is_a_miss) {
    for (const auto mode :
         {FailureMode::handshake_split, FailureMode::handshake_wrong_first, FailureMode::handshake_wrong_second}) {
        load_bank_7_failing({.mode = mode}, "No Connection Found");
        app.editchanged = false;
        app.choose_menu("FileQuitEditor");
    }
}

TEST_F(LoadTest, late_acknowledges_and_stray_bytes_within_the_tries_do_no_harm) {
    for (const Failure& failure : {Failure{.mode = FailureMode::handshake_stale_bytes, .level = 1, .times = 1},
                                   Failure{.mode = FailureMode::address_ack_late, .level = 2},
                                   Failure{.mode = FailureMode::data_ack_late, .level = 50},
                                   Failure{.mode = FailureMode::address_stray_bytes, .level = 9},
                                   Failure{.mode = FailureMode::data_stray_bytes, .level = 1}}) {
        generator.set_failure(failure);
        generator.press_receive();
        load_bank_7();
        EXPECT_TRUE(app.load_direct_window->loadcompleted.Visible()) << emulator::name(failure.mode);
        EXPECT_EQ(stored(generator, 7, 1), "00 1e 96 08 00 03 15 07 00 00 01 24 ff ff ff ff");
        app.editchanged = false;
        app.choose_menu("FileQuitEditor");
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
            EmulatedPorts fresh_ports(fresh, program.desktop.simulated_clock);
            program.desktop.connect(fresh_ports);
            fresh.press_receive();
            fresh.set_failure({.mode = mode, .level = failing});
            ASSERT_TRUE(line.Open());
            const bool address = mode == FailureMode::address_ack_lost;
            program.desktop.expect_message(address ? "Bank 07\rAddress 18  192 Not Acknowledged"
                                                   : "Data not Accepted. Level: " + std::to_string(failing));
            app.sendzephon();
            line.Close();
            const int last = address ? failing - 1 : failing; // levels already sent stay in the generator
            for (int level = 1; level <= 50; ++level) {
                EXPECT_EQ(stored(fresh, 7, level).substr(0, 5), level <= last ? "00 1e" : "ff ff") << level;
            }
        }
    }
}

TEST_F(LoadTest, a_hang_up_at_any_step_is_told_and_the_port_can_be_chosen_again) {
    struct Case {
        FailureMode mode;
        const char* message;
    };
    const Case cases[] = {
        {FailureMode::handshake_hang_up, "No Connection Found"},
        {FailureMode::address_hang_up, "Bank 07\rAddress 18  192 Not Acknowledged"},
        {FailureMode::data_hang_up, "Data not Accepted. Level: 3"},
        {FailureMode::between_levels_hang_up, "Bank 07\rAddress 18  192 Not Acknowledged"},
    };
    for (const auto& c : cases) {
        generator.press_receive();
        load_bank_7_failing({.mode = c.mode, .level = 3, .times = 1}, c.message);
        EXPECT_TRUE(generator.hung_up()) << emulator::name(c.mode);
        app.editchanged = false;
        app.choose_menu("FileQuitEditor");
        program.desktop.expect_message("No Port Selected");
        app.choose_menu("SettingsSetSerialPort");
        app.settings_window->Serial_box.choose(0);
        generator.set_failure({});
        generator.press_receive();
        load_bank_7();
        EXPECT_TRUE(app.load_direct_window->loadcompleted.Visible());
        app.editchanged = false;
        app.choose_menu("FileQuitEditor");
    }
}

TEST_F(LoadTest, a_file_goes_to_its_bank_without_an_editor) {
    choose_port();
    app.settings_window->close_by_user();
    write_file(program.desktop.folder / "night.zp2",
               std::string("\x00\x1e\x96\x08\x00\x03\x15\x07\x00\x00\x01\x24", 12));
    app.choose_menu("ZephonLoadFromFile");
    LoadZephonWindow& window = app.loadzephonWindow.get();
    EXPECT_EQ(window.connectfield.Text(), "Serial Port:  Zephon emulator  Connected");
    EXPECT_FALSE(window.bankbox0.Enabled());
    program.desktop.choose_file(program.desktop.folder / "night.zp2");
    window.cb1.click();
    EXPECT_EQ(window.fn1.Text(), "night");
    EXPECT_EQ(window.Fname, (program.desktop.folder / "night.zp2").string());
    EXPECT_FALSE(window.cb1.Visible());
    window.bankbox1.choose(4);
    window.bankbox0.choose(3);
    program.desktop.expect_message("Invalid, bank 43 selected\rChoose a bank 1 to 40"); // a small b here
    window.loadbutton.click();
    window.bankbox0.choose(0);
    program.desktop.expect_message(std::string("Ready to load: night\rInto Bank: 40") + press_keys);
    window.loadbutton.click();
    EXPECT_EQ(window.zephonloadcomplete.Text(), "Zephon loaded in 4 seconds");
    EXPECT_TRUE(window.zephonloadcomplete.Visible());
    EXPECT_EQ(stored(generator, 40, 1), "00 1e 96 08 00 03 15 07 00 00 01 24 ff ff ff ff");
    EXPECT_TRUE(generator.violations().empty());
    EXPECT_FALSE(app.editwindow.exists());
}

TEST_F(LoadTest, loading_a_file_without_a_port_closes_its_window_again) {
    program.desktop.expect_message("No Serial Port Selected");
    app.choose_menu("ZephonLoadFromFile");
    EXPECT_FALSE(app.loadzephonWindow.exists());
    EXPECT_TRUE(app.Window1->Visible());
}

TEST_F(LoadTest, a_dismissed_file_dialog_leaves_an_empty_image_to_load) {
    choose_port();
    app.Window1->activate();
    app.choose_menu("ZephonLoadFromFile");
    program.desktop.dismiss_file_dialog();
    app.loadzephonWindow->cb1.click();
    EXPECT_FALSE(app.loadzephonWindow->cb1.Visible());
    EXPECT_TRUE(app.loadzephonWindow->bankbox1.Enabled());
    EXPECT_EQ(app.bytes(1), unset_level);
}

} // namespace
} // namespace tessit::testing
