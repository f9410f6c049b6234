// SPDX-License-Identifier: MIT
// Reading a bank: the program on the scripted desktop against the emulated generator, both on the simulated clock.
#include "device/bank_boxes.h"
#include "device/load_direct_window.h"
#include "device/read_window.h"
#include "device/settings_window.h"
#include "emulator/emulated_line.h"
#include "emulator/example_bank.h"
#include "support/program.h"

#include <gtest/gtest.h>

namespace tessit::testing {
namespace {

namespace fs = std::filesystem;
using emulator::EmulatedPorts;
using emulator::FailureMode;
using emulator::Generator;

constexpr const char* unsaved = "Data just read from the Zephon has not been saved to file\rDo you want to save it?";
constexpr const char* too_large =
    "This Protocol requires more space than available in this bank\rSome data may have been dropped";

// Levels are written as their first eleven bytes; the check byte is one that nobody looks at.
constexpr const char* hz_7_83 = "001e960800031507000001";
constexpr const char* hz_7_83_row = "|Single Frequency|007.830||1|3:00|00:03:00|ON|1|Square|70%|Positive";
constexpr const char* sweep_at_rate_300 = "01e240041e014605c8012c";

emulator::LevelBytes in_memory(const std::string& record) {
    emulator::LevelBytes bytes;
    bytes.fill(255);
    for (std::size_t i = 0; i < record.size() / 2; ++i) {
        bytes[i] = static_cast<std::uint8_t>(std::stoi(record.substr(2 * i, 2), nullptr, 16));
    }
    return bytes;
}

class ReadTest : public ::testing::Test {
protected:
    Program program;
    App& app = program.app;
    ScriptedDesktop& desktop = program.desktop;
    Generator generator;
    EmulatedPorts ports{generator, desktop.simulated_clock};

    void SetUp() override { desktop.connect(ports); }
    void TearDown() override {
        app.readchanged = false;
        app.editchanged = false;
    }

    ReadWindow& window() { return app.ReadZPWindow.get(); }
    fs::path transfer_file() { return desktop.folder / "zpdat.tmp"; }
    void store(int level, const std::string& record) { generator.store(7, level, in_memory(record)); }
    void store_in_all(const std::string& record) {
        for (int level = 1; level <= 50; ++level) {
            store(level, record);
        }
    }

    void open_window() {
        app.choose_menu("SettingsSetSerialPort");
        app.settings_window->Serial_box.choose(1);
        app.settings_window->close_by_user();
        app.choose_menu("ZephonReadZephon");
    }
    void click_read(int bank = 7) {
        generator.press_send(bank);
        window().Readbutton.click();
    }
    void read_bank(int bank = 7) {
        open_window();
        click_read(bank);
    }
    void read_failing(FailureMode mode, int offset) {
        generator.set_failure({.mode = mode, .offset = offset, .times = 1});
        read_bank();
    }

    // Cells 1 to 11, each behind a "|".
    std::string row(int row) {
        std::string text;
        for (int i = 1; i < column::count; ++i) {
            text += "|" + window().displaybox.Cell(row, i);
        }
        return text;
    }
    static inline const std::string blank_row = "|blank||||||||||";
};

TEST_F(ReadTest, the_window_is_set_up_when_it_opens) {
    open_window();
    ReadWindow& w = window();
    EXPECT_EQ(app.myactivewindow, 4);
    EXPECT_EQ(w.connectfield.Text(), "Serial Port:  Zephon emulator  Connected");
    EXPECT_TRUE(w.naDecimal.Value());
    EXPECT_FALSE(w.isoDecimal.Value());
    EXPECT_EQ(w.messagebox.Text(), "Click the Read button.\rPress 5 then 2 on Zephon to select transfer single bank\r"
                                   "Then enter bank number to transfer and press # to start the transfer");
    EXPECT_EQ(w.displaybox.ListCount(), 1);
    EXPECT_EQ(w.displaybox.Heading(0), "Level");
    EXPECT_EQ(w.displaybox.Heading(11), "Output");
    EXPECT_EQ(w.displaybox.ColumnAlignment(2), Align::right);
    EXPECT_EQ(w.displaybox.ColumnAlignment(10), Align::center);
    EXPECT_FALSE(app.Window1->Visible());
    w.close_by_user(); // nothing was read, so nothing is asked
    EXPECT_TRUE(app.Window1->Visible());
}

TEST_F(ReadTest, all_twelve_columns_are_shown_as_the_generator_holds_them) {
    struct Case {
        const char* record;
        const char* row;
    };
    const Case cases[] = {
        {hz_7_83, hz_7_83_row},
        {sweep_at_rate_300, "|Sweep Increasing|1234.56|200|201|1:30|05:01:30|ON|300|Sine|50%|Negative"},
        {"01e240020500aa01ff0000", "|Sweep Decreasing|12345.6|255|256|0:05|00:21:20|OFF|0|Triangle|10%|Offset"},
        {"01e24001000314098000ff", "|Spread Expanding|123456|128|257|3:00|12:51:00|ON|255|Square|90%|Positive"},
        {"0001f4083b0000000302fe", "|Spread Contracting|.500|3|7|0:59|00:06:53|ON|766|Square||Negative"},
        {"001e960800011103090001", "|Single Frequency|007.830||1|1:00|00:01:00|ON|1|Square|30%|Positive"},
        {"001e960800015303090001", "|Single Frequency|007.830||1|1:00|00:01:00|ON|1|Sine|30%|Positive"},
        {"001e960800012f03090001", "|Single Frequency|007.830||1|1:00|00:01:00|OFF|1|Square|30%|Offset"},
        {"0000000801001503000001", "|Single Frequency|||1|0:01|00:00:01|ON|1|Square|30%|Positive"},
        {"0000000800001503070101", "|blank||||||||||"},
        {"001e9608ffff1503000001", "|blank||||||||||"},
        {"001e96083bff1503000001", "|Single Frequency|007.830||1|255:59|04:15:59|ON|1|Square|30%|Positive"},
        {"ff0100080002f50a000001", "|Single Frequency|.256||1|2:00|00:02:00|ON|1|||"},
        {"001e960000021503000001", "|Single Frequency|||1|2:00|00:02:00|ON|1|Square|30%|Positive"},
    };
    const int count = static_cast<int>(std::size(cases));
    for (int i = 0; i < count; ++i) {
        store(i + 1, cases[i].record);
    }
    read_bank();
    ASSERT_EQ(window().displaybox.ListCount(), 51);
    for (int level = 1; level <= 50; ++level) {
        EXPECT_EQ(row(level), level <= count ? cases[level - 1].row : blank_row) << level;
        EXPECT_EQ(window().displaybox.Cell(level, 0), std::to_string(level));
    }
    EXPECT_EQ(window().bankfield.Text(), "Bank_7");
    EXPECT_EQ(window().BankFreqField.Text(), "729");
    EXPECT_EQ(window().BankTimeField.Text(), "01:46:43"); // without the 21 hours of single levels
    for (const int index : {5, 6, 7}) {
        EXPECT_EQ(app.db6[index] & 7, 5) << index; // codes 1, 3 and 7
    }
    EXPECT_EQ(app.db6[7], 0x2d);
    EXPECT_TRUE(generator.violations().empty());
}

TEST_F(ReadTest, seconds_form_counts_minutes_once_and_hours_too) {
    app.default_timeformat = 0;
    store(1, sweep_at_rate_300);
    store(2, "01e24001000314098000ff");
    read_bank();
    EXPECT_EQ(row(1), "|Sweep Increasing|1234.56|200|201|90|24090|ON|300|Sine|50%|Negative");
    EXPECT_EQ(row(2), "|Spread Expanding|123456|128|257|180|43380|ON|255|Square|90%|Positive");
    EXPECT_EQ(window().BankTimeField.Text(), "00:52:30");
}

TEST_F(ReadTest, the_decimal_comma_goes_to_the_base_alone_and_both_ways) {
    app.use_euro = true;
    store(1, hz_7_83);
    read_bank();
    EXPECT_TRUE(window().isoDecimal.Value());
    EXPECT_EQ(row(1), "|Single Frequency|007,830||1|3:00|00:03:00|ON|1|Square|70%|Positive");
    window().naDecimal.click();
    EXPECT_FALSE(app.use_euro);
    EXPECT_EQ(row(1), hz_7_83_row);
    window().isoDecimal.click();
    EXPECT_TRUE(app.use_euro);
    EXPECT_EQ(window().displaybox.Cell(1, column::base), "007,830");
}

TEST_F(ReadTest, the_file_holds_the_bytes_and_the_image_the_count_byte) {
    store(1, hz_7_83);
    generator.store(8, 1, in_memory(hz_7_83));
    read_bank();
    const std::string bytes = file_bytes(transfer_file());
    ASSERT_EQ(bytes.size(), 969u);
    EXPECT_EQ(hex(bytes.substr(0, 19)), "12 c0 00 1e 96 08 00 03 15 07 00 00 01 ff ff ff ff ff 04");
    EXPECT_EQ(hex(bytes.substr(19, 19)), "12 d0 ff ff ff ff ff ff ff ff ff ff ff ff ff ff ff ff 0f");
    EXPECT_EQ(app.errorchk[0], 4);
    EXPECT_EQ(app.errorchk[1], 15);
    EXPECT_EQ(app.hi_add[50] * 256 + app.lo_add[50], 5600); // what follows the bank: bank 8
    EXPECT_EQ(app.fbyte0[50], 0x96);
    EXPECT_TRUE(app.changed && app.readchanged);
    EXPECT_FALSE(app.insert);
    EXPECT_FALSE(ports.in_use());
    EXPECT_EQ(app.load_direct_window->connectField.Text(), "Serial Port:  Zephon emulator  Connected");
    constexpr int misses = 5; // the first call is lost when the line is emptied; the second comes 50 ms later
    EXPECT_EQ(desktop.simulated_clock.idled(), misses * 10'500 + 500 + 5'000 + 55 * 12'010);
}

TEST_F(ReadTest, every_bank_is_told_by_its_first_address) {
    open_window();
    for (int bank = 1; bank <= 40; ++bank) {
        click_read(bank);
        EXPECT_EQ(window().bankfield.Text(), "Bank_" + std::to_string(bank));
        app.readchanged = false;
    }
    EXPECT_TRUE(generator.violations().empty());
}

TEST_F(ReadTest, calls_before_the_first_record_are_skipped) {
    for (const int calls : {1, 5, 40}) { // 950 of the 990 reads are left then
        store_in_all(hz_7_83);
        read_failing(FailureMode::sending_extra_calls, calls);
        EXPECT_EQ(file_bytes(transfer_file()).substr(0, static_cast<std::size_t>(calls) + 1),
                  std::string(static_cast<std::size_t>(calls), 'V') + '\x12');
        for (int level = 1; level <= 50; ++level) {
            EXPECT_EQ(row(level), hz_7_83_row) << level;
        }
        EXPECT_EQ(window().bankfield.Text(), "Bank_7");
        app.readchanged = false;
        window().close_by_user();
    }
}

TEST_F(ReadTest, without_an_answer_the_file_stays_empty_and_the_flags_are_set) {
    open_window();
    write_file(transfer_file(), "from the last time");
    desktop.expect_message("No Connection Found");
    window().Readbutton.click();
    EXPECT_EQ(desktop.simulated_clock.idled(), 1001 * 500 + 1000 * 10'000);
    ASSERT_TRUE(fs::exists(transfer_file()));
    EXPECT_EQ(file_bytes(transfer_file()), "");
    EXPECT_EQ(window().displaybox.ListCount(), 1);
    EXPECT_EQ(window().bankfield.Text(), "");
    EXPECT_TRUE(app.changed && app.readchanged);
    EXPECT_FALSE(ports.in_use());
    desktop.expect_message(unsaved, DialogAnswer::alternate); // asked although there is nothing to save
    window().close_by_user();
}

TEST_F(ReadTest, without_a_port_the_read_goes_on_and_finds_nothing) {
    desktop.expect_message("No Serial Port Selected");
    app.choose_menu("ZephonReadZephon");
    EXPECT_EQ(window().displaybox.ListCount(), 0);
    EXPECT_EQ(window().messagebox.Text(), "");
    desktop.expect_message("No Serial Port Selected"); // the window opens anew
    desktop.expect_message("No Serial Port Selected"); // and the button
    desktop.expect_message("No Connection Found");
    window().Readbutton.click();
    EXPECT_TRUE(app.readchanged);
}

TEST_F(ReadTest, one_byte_wrong_on_the_line_shows_as_it_came) {
    constexpr int second_levels_fbyte2 = 19 + 2;
    constexpr const char* too_early = "|Single Frequency|||1|21:03|00:21:03|ON|511|Square||Negative";
    constexpr const char* too_late = "|Single Frequency|||1|0:08|00:00:08|ON|0|Square||Negative";
    struct Case {
        FailureMode mode;
        const char* second;
        const char* others; // behind it
    };
    const Case cases[] = {
        {FailureMode::sending_byte_lost, too_early, too_early},
        {FailureMode::sending_byte_doubled, too_late, too_late},
        {FailureMode::sending_byte_flipped, hz_7_83_row, hz_7_83_row}, // a high byte of 255 counts as 0
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(emulator::name(c.mode));
        store_in_all(hz_7_83);
        read_failing(c.mode, second_levels_fbyte2);
        EXPECT_EQ(row(1), hz_7_83_row);
        EXPECT_EQ(row(2), c.second);
        EXPECT_EQ(row(3), c.others);
        EXPECT_EQ(row(49), c.others);
        app.readchanged = false;
        window().close_by_user();
    }
}

TEST_F(ReadTest, a_line_that_stops_leaves_the_rest_blank_without_a_word) {
    store_in_all(hz_7_83);
    read_failing(FailureMode::sending_stops, 26 * 19 + 6);
    EXPECT_EQ(file_bytes(transfer_file()).size(), 500u);
    EXPECT_EQ(row(26), hz_7_83_row);
    EXPECT_EQ(row(27), "|Spread Contracting|007.830|0|1|0:00|00:00:00|ON|0|Square||Negative"); // missing bytes are 0
    EXPECT_EQ(row(28), blank_row);
    EXPECT_EQ(row(50), blank_row);
    EXPECT_TRUE(generator.violations().empty());
}

TEST_F(ReadTest, a_hang_up_leaves_the_rest_blank_and_the_next_read_works) {
    store_in_all(hz_7_83);
    read_failing(FailureMode::sending_hang_up, 500);
    EXPECT_EQ(row(24), hz_7_83_row);
    EXPECT_EQ(row(28), blank_row);
    EXPECT_FALSE(app.Window1->serial_port.is_open());
    app.readchanged = false;
    click_read();
    EXPECT_EQ(row(50), hz_7_83_row);
}

TEST_F(ReadTest, reading_again_empties_the_table_first) {
    store_in_all(hz_7_83);
    read_bank();
    generator.store(7, 1, in_memory(sweep_at_rate_300));
    desktop.expect_message(unsaved, DialogAnswer::alternate);
    click_read();
    EXPECT_EQ(window().displaybox.ListCount(), 51);
    EXPECT_EQ(window().displaybox.Cell(1, column::rate), "300");
    EXPECT_EQ(window().BankFreqField.Text(), "250");
    EXPECT_FALSE(app.Window1->Visible());
    EXPECT_TRUE(app.readchanged);
}

TEST_F(ReadTest, reading_again_after_cancel_reads_nothing) {
    store_in_all(hz_7_83);
    read_bank();
    generator.store(7, 1, in_memory(sweep_at_rate_300));
    desktop.expect_message(unsaved, DialogAnswer::cancel);
    const Microseconds before = desktop.simulated_clock.idled();
    click_read();
    EXPECT_EQ(desktop.simulated_clock.idled(), before);
    EXPECT_EQ(window().displaybox.ListCount(), 51);
    EXPECT_EQ(row(1), hz_7_83_row);
    EXPECT_TRUE(app.readchanged);
}

// Saving encodes the table anew, by rules of its own.

TEST_F(ReadTest, saving_encodes_the_table_with_the_windows_own_rate_rule) {
    store(1, sweep_at_rate_300);
    store(3, "001e96080003150700000a");
    const std::string expected = "01 e2 40 04 1e 01 46 05 c8 1e ff 8a" // the rate 300 is 30 and an unset low byte
                                 " 00 1e 96 08 00 03 15 07 00 00 0a 1b";
    read_bank();
    EXPECT_EQ(hex(program.save_as("menu.zp2")), expected);
    EXPECT_EQ(desktop.file_requests.back().default_name, "Bank_7.zp2");
    EXPECT_FALSE(app.readchanged);
    click_read(); // nothing is asked
    desktop.expect_message(unsaved, DialogAnswer::action);
    desktop.choose_file(desktop.folder / "prompt.zp2");
    app.insert = true;
    window().close_by_user();
    EXPECT_EQ(hex(file_bytes(desktop.folder / "prompt.zp2")), expected);
    EXPECT_EQ(desktop.dialogs.back().Explanation, "If you don't save, your changes will be lost");
    EXPECT_FALSE(app.changed || app.readchanged || app.insert);
    EXPECT_FALSE(app.ReadZPWindow.exists());
    EXPECT_TRUE(app.Window1->Visible());
    EXPECT_EQ(app.fbyte0[1], 255); // the close resets the image
}

TEST_F(ReadTest, a_comma_is_one_more_character_when_saved) {
    app.use_euro = true;
    store(1, "01e240041e014605c80001"); // 1234,56
    read_bank();
    EXPECT_EQ(hex(program.save_as("comma.zp2")).substr(0, 11), "03 92 48 ff"); // 234056, no scale
}

TEST_F(ReadTest, a_dismissed_save_clears_the_flag_all_the_same) {
    store(1, hz_7_83);
    read_bank();
    desktop.dismiss_file_dialog();
    app.choose_menu("FileSave");
    EXPECT_FALSE(app.readchanged);
    EXPECT_TRUE(app.changed);
}

TEST_F(ReadTest, the_close_prompt_can_be_cancelled_or_declined) {
    store(1, hz_7_83);
    read_bank();
    app.insert = true;
    desktop.expect_message(unsaved, DialogAnswer::cancel);
    window().close_by_user();
    EXPECT_TRUE(app.ReadZPWindow.exists() && app.changed && app.readchanged && app.insert);
    EXPECT_EQ(row(1), hz_7_83_row);
    desktop.expect_message(unsaved, DialogAnswer::alternate);
    window().close_by_user();
    EXPECT_FALSE(app.ReadZPWindow.exists() || app.changed || app.readchanged || app.insert);
}

// Edit Protocol

TEST_F(ReadTest, edit_protocol_takes_the_levels_over_and_skips_blank_ones) {
    store(1, hz_7_83);
    store(3, sweep_at_rate_300);
    store(50, "001e960800012f03090001"); // code 7 became 5, so the editor can show it
    read_bank();
    desktop.expect_message(unsaved, DialogAnswer::alternate);
    app.choose_menu("EditEditProtocol");
    EXPECT_EQ(app.editwindow->namefield.Text(), "Bank_7");
    EXPECT_EQ(program.levels(), 3);
    EXPECT_EQ(program.row(1), std::string("1") + hz_7_83_row);
    EXPECT_EQ(program.row(2), "2|Sweep Increasing|1234.56|200|201|1:30|05:01:30|ON|300|Sine||Negative");
    EXPECT_EQ(program.row(3), "3|Single Frequency|007.830||1|1:00|00:01:00|OFF|1|Square|30%|Offset");
    EXPECT_TRUE(app.changed && app.editchanged);
    EXPECT_FALSE(app.readchanged);
    EXPECT_FALSE(app.ReadZPWindow.exists());
    EXPECT_TRUE(app.editwindow->Visible());
}

TEST_F(ReadTest, edit_protocol_stops_when_the_table_is_full) {
    std::string records;
    for (int i = 0; i < 48; ++i) {
        records += std::string("\x00\x1e\x96\x08\x00\x03\x15\x07\x00\x00\x01\x24", 12);
    }
    write_file(desktop.folder / "most.zp2", records);
    program.open(desktop.folder / "most.zp2");
    store_in_all(sweep_at_rate_300);
    read_bank();
    desktop.expect_message(too_large);
    desktop.expect_message(unsaved, DialogAnswer::alternate);
    app.choose_menu("EditEditProtocol");
    EXPECT_EQ(program.levels(), 50);
    EXPECT_EQ(program.cell(48, column::rate), "1");
    EXPECT_EQ(program.cell(49, column::rate), "300");
    EXPECT_EQ(program.cell(50, column::rate), "300");
    EXPECT_EQ(app.editwindow->namefield.Text(), "most; Bank_7");
}

TEST_F(ReadTest, edit_protocol_leaves_the_window_open_when_its_prompt_is_cancelled) {
    store(1, hz_7_83);
    read_bank();
    desktop.expect_message(unsaved, DialogAnswer::cancel);
    app.choose_menu("EditEditProtocol");
    EXPECT_TRUE(app.ReadZPWindow.exists());
    EXPECT_EQ(program.levels(), 1);
    EXPECT_TRUE(app.changed && app.editchanged && app.readchanged);
}

// Faults

TEST_F(ReadTest, a_transfer_file_that_cannot_be_made_is_a_fault_and_the_program_goes_on) {
    store_in_all(hz_7_83);
    fs::create_directory(transfer_file()); // this stops the superuser, too
    open_window();
    desktop.expect_fault("ReadZPWindow.Readbutton_Action");
    click_read();
    EXPECT_EQ(window().displaybox.ListCount(), 1);
    fs::remove(transfer_file());
    app.readchanged = false;
    click_read();
    EXPECT_EQ(row(50), hz_7_83_row);
}

// A bank that the program loads and reads back.

class RoundTrip : public ReadTest {
protected:
    void load_into_bank(int bank) {
        app.choose_menu("SettingsSetSerialPort");
        app.settings_window->Serial_box.choose(1);
        app.settings_window->close_by_user();
        app.editwindow->activate();
        app.choose_menu("ZephonLoadDirect");
        app.load_direct_window->bank_bt1.choose(bank / 10);
        app.load_direct_window->bank_bt0.choose(bank % 10);
        generator.press_receive();
        desktop.expect_message("Ready to load: " + app.editwindow->namefield.Text() + "\rInto Bank: 0" +
                               std::to_string(bank) +
                               "\r\rImmediately after clicking OK - Press 5 then 3 on the Zephon");
        app.load_direct_window->LoadButton.click();
        app.load_direct_window->close_by_user();
    }

    void read_back(int bank) {
        app.choose_menu("ZephonReadZephon");
        click_read(bank);
    }
};

TEST_F(RoundTrip, a_full_bank_comes_back_as_it_was_but_for_the_duty_of_other_shapes) {
    std::string records;
    for (const auto& level : emulator::example_bank()) {
        records.append(level.begin(), level.begin() + 12);
    }
    write_file(desktop.folder / "example.zp2", records);
    program.open(desktop.folder / "example.zp2");
    load_into_bank(9);
    read_back(9);
    for (int level = 1; level <= 50; ++level) {
        EXPECT_EQ(generator.level(9, level)[2], emulator::example_bank()[static_cast<std::size_t>(level - 1)][2]);
        for (int i = 0; i < column::count; ++i) {
            const bool duty_unknown = i == column::duty_cycle && program.cell(level, column::wave_shape) != "Square";
            EXPECT_EQ(window().displaybox.Cell(level, i), duty_unknown ? "" : program.cell(level, i))
                << level << ", " << i;
        }
    }
    EXPECT_EQ(window().BankFreqField.Text(), app.editwindow->BankFreqField.Text());
    EXPECT_EQ(window().BankTimeField.Text(), app.editwindow->BankTimeField.Text());
    EXPECT_EQ(window().bankfield.Text(), "Bank_9");
    EXPECT_TRUE(generator.violations().empty());
}

TEST_F(RoundTrip, what_a_bank_cannot_hold_comes_back_otherwise) {
    struct Case {
        int column;
        const char* typed;
        const char* row;
    };
    const Case cases[] = {
        {column::base, "7.83", "|Single Frequency|007.830||1|3:00|00:03:00|ON|1|Square|70%|Positive"},
        {column::base, "1234.567", "|Single Frequency|2345.67||1|3:00|00:03:00|ON|1|Square|70%|Positive"},
        {column::base, ".5", "|Single Frequency|||1|3:00|00:03:00|ON|1|Square|70%|Positive"},
        {column::rate, "509", "|Single Frequency|007.830||1|3:00|00:03:00|ON|509|Square|70%|Positive"},
        {column::rate, "510", "|Single Frequency|007.830||1|3:00|00:03:00|ON|766|Square|70%|Positive"},
        {column::output, "Offset", "|Single Frequency|007.830||1|3:00|00:03:00|OFF|1|Square|70%|Offset"},
        {column::width, "200", "|Single Frequency|007.830||1|3:00|00:03:00|ON|1|Square|70%|Positive"},
        {column::wave_shape, "Sine", "|Single Frequency|007.830||1|3:00|00:03:00|ON|1|Sine|70%|Positive"},
        {column::waveform, "Sweep", "|Single Frequency|007.830||1|3:00|00:03:00|ON|1|Square|70%|Positive"},
        {column::time_each, "0:00", "|Single Frequency|007.830||1|0:00|00:00:00|ON|1|Square|70%|Positive"},
    };
    program.new_protocol();
    for (const Case& c : cases) {
        program.enter("7.83");
        app.editwindow->edit_displayBox.SetCell(program.levels(), c.column, c.typed);
    }
    load_into_bank(7);
    read_back(7);
    for (int level = 1; level <= static_cast<int>(std::size(cases)); ++level) {
        EXPECT_EQ(row(level), cases[level - 1].row) << level;
    }
    EXPECT_EQ(row(static_cast<int>(std::size(cases)) + 1), blank_row);
}

} // namespace
} // namespace tessit::testing
