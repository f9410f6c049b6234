// SPDX-License-Identifier: MIT
// Reading a bank: the program on the scripted desktop against the emulated generator, both on the simulated clock.
#include "device/bank_boxes.h"
#include "device/load_direct_window.h"
#include "device/read_window.h"
#include "device/settings_window.h"
#include "emulator/emulated_line.h"
#include "emulator/example_bank.h"
#include "support/program.h"

#include <map>

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

class ReadTest : public ProgramTest {
protected:
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
    EXPECT_EQ(joined(app.myactivewindow, w.connectfield.Text()), "4|Serial Port:  Zephon emulator  Connected");
    EXPECT_TRUE(w.naDecimal.Value() && !w.isoDecimal.Value());
    EXPECT_EQ(w.messagebox.Text(), "Click the Read button.\rPress 5 then 2 on Zephon to select transfer single bank\r"
                                   "Then enter bank number to transfer and press # to start the transfer");
    EXPECT_EQ(joined(w.displaybox.ListCount(), w.displaybox.Heading(0) + w.displaybox.Heading(11)), "1|LevelOutput");
    EXPECT_TRUE(w.displaybox.ColumnAlignment(2) == Align::right && w.displaybox.ColumnAlignment(10) == Align::center);
    EXPECT_FALSE(app.Window1->Visible());
    w.close_by_user(); // nothing was read, so nothing is asked
    EXPECT_TRUE(app.Window1->Visible());
}

TEST_F(ReadTest, all_twelve_columns_are_shown_as_the_generator_holds_them) {
    const char* const cases[][2] = {
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
        store(i + 1, cases[i][0]);
    }
    read_bank();
    ASSERT_EQ(window().displaybox.ListCount(), 51);
    for (int level = 1; level <= 50; ++level) {
        EXPECT_EQ(row(level), level <= count ? cases[level - 1][1] : blank_row) << level;
        EXPECT_EQ(window().displaybox.Cell(level, 0), std::to_string(level));
    }
    EXPECT_EQ(joined(window().bankfield, window().BankFreqField, window().BankTimeField),
              "Bank_7|729|01:46:43"); // without the 21 hours of single levels
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
    EXPECT_EQ(app.errorchk[0] * 100 + app.errorchk[1], 415);
    EXPECT_EQ(app.hi_add[50] * 256 + app.lo_add[50], 5600); // what follows the bank: bank 8
    EXPECT_EQ(app.fbyte0[50], 0x96);
    EXPECT_TRUE(app.changed && app.readchanged && !app.insert && !ports.in_use());
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

TEST_F(ReadTest, without_an_answer_the_file_stays_empty_and_the_flags_are_set) {
    open_window();
    write_file(transfer_file(), "from the last time");
    desktop.expect_message("No Connection Found");
    window().Readbutton.click();
    EXPECT_EQ(desktop.simulated_clock.idled(), 1001 * 500 + 1000 * 10'000);
    ASSERT_TRUE(fs::exists(transfer_file()));
    EXPECT_EQ(joined(file_bytes(transfer_file()), window().displaybox.ListCount(), window().bankfield.Text()), "|1|");
    EXPECT_TRUE(app.changed && app.readchanged && !ports.in_use());
    desktop.expect_message(unsaved, DialogAnswer::alternate); // asked although there is nothing to save
    window().close_by_user();
}

TEST_F(ReadTest, without_a_port_the_read_goes_on_and_finds_nothing) {
    desktop.expect_message("No Serial Port Selected");
    app.choose_menu("ZephonReadZephon");
    EXPECT_EQ(joined(window().displaybox.ListCount(), window().messagebox.Text()), "0|");
    desktop.expect_message("No Serial Port Selected"); // the window opens anew
    desktop.expect_message("No Serial Port Selected"); // and the button
    desktop.expect_message("No Connection Found");
    window().Readbutton.click();
    EXPECT_TRUE(app.readchanged);
}

TEST_F(ReadTest, what_is_wrong_on_the_line_shows_as_it_came) {
    constexpr int second_levels_fbyte2 = 19 + 2;
    const std::string too_early = "|Single Frequency|||1|21:03|00:21:03|ON|511|Square||Negative";
    const std::string too_late = "|Single Frequency|||1|0:08|00:00:08|ON|0|Square||Negative";
    const std::string zeros = "|Spread Contracting|007.830|0|1|0:00|00:00:00|ON|0|Square||Negative"; // missing bytes
    const std::tuple<FailureMode, int, std::map<int, std::string>> cases[] = {
        {FailureMode::sending_extra_calls, 1, {{1, hz_7_83_row}, {50, hz_7_83_row}}},  // they are skipped
        {FailureMode::sending_extra_calls, 40, {{1, hz_7_83_row}, {50, hz_7_83_row}}}, // 950 of 990 reads are left
        {FailureMode::sending_byte_lost, second_levels_fbyte2, {{1, hz_7_83_row}, {2, too_early}, {49, too_early}}},
        {FailureMode::sending_byte_doubled, second_levels_fbyte2, {{1, hz_7_83_row}, {2, too_late}, {49, too_late}}},
        {FailureMode::sending_byte_flipped, second_levels_fbyte2, {{2, hz_7_83_row}}}, // a high byte of 255 counts as 0
        {FailureMode::sending_stops, 26 * 19 + 6, {{26, hz_7_83_row}, {27, zeros}, {28, blank_row}, {50, blank_row}}},
        {FailureMode::sending_hang_up, 500, {{24, hz_7_83_row}, {28, blank_row}}},
    };
    store_in_all(hz_7_83);
    for (const auto& [mode, offset, rows] : cases) {
        read_failing(mode, offset);
        for (const auto& [level, expected] : rows) {
            EXPECT_EQ(row(level), expected) << emulator::name(mode) << " " << level;
        }
        EXPECT_EQ(window().bankfield.Text(), "Bank_7");
        EXPECT_TRUE(generator.violations().empty() && !app.Window1->serial_port.is_open());
        app.readchanged = false;
        window().close_by_user();
    }
    read_bank(); // works again
    EXPECT_EQ(row(50), hz_7_83_row);
}

TEST_F(ReadTest, reading_again_asks_and_then_empties_the_table_first) {
    store_in_all(hz_7_83);
    read_bank();
    generator.store(7, 1, in_memory(sweep_at_rate_300));
    desktop.expect_message(unsaved, DialogAnswer::cancel);
    const Microseconds before = desktop.simulated_clock.idled();
    click_read();
    EXPECT_EQ(desktop.simulated_clock.idled(), before);
    EXPECT_EQ(row(1), hz_7_83_row);
    EXPECT_TRUE(app.readchanged);
    desktop.expect_message(unsaved, DialogAnswer::alternate);
    click_read();
    EXPECT_EQ(window().displaybox.ListCount(), 51);
    EXPECT_EQ(window().displaybox.Cell(1, column::rate) + window().BankFreqField.Text(), "300250");
    EXPECT_TRUE(!app.Window1->Visible() && app.readchanged);
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
    EXPECT_FALSE(app.changed || app.readchanged || app.insert || app.ReadZPWindow.exists());
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
    EXPECT_TRUE(!app.readchanged && app.changed);
}

// Edit Protocol

TEST_F(ReadTest, edit_protocol_takes_the_levels_over_and_skips_blank_ones) {
    store(1, hz_7_83);
    store(3, sweep_at_rate_300);
    store(50, "001e960800012f03090001"); // code 7 became 5, so the editor can show it
    read_bank();
    desktop.expect_message(unsaved, DialogAnswer::alternate);
    app.choose_menu("EditEditProtocol");
    EXPECT_EQ(joined(app.editwindow->namefield.Text(), program.levels()), "Bank_7|3");
    EXPECT_EQ(program.row(1), std::string("1") + hz_7_83_row);
    EXPECT_EQ(program.row(2), "2|Sweep Increasing|1234.56|200|201|1:30|05:01:30|ON|300|Sine||Negative");
    EXPECT_EQ(program.row(3), "3|Single Frequency|007.830||1|1:00|00:01:00|OFF|1|Square|30%|Offset");
    EXPECT_TRUE(app.changed && app.editchanged && !app.readchanged && !app.ReadZPWindow.exists());
}

TEST_F(ReadTest, edit_protocol_before_any_reading_is_a_fault) {
    open_window();
    desktop.expect_fault("_EditEditProtocol_Action");
    app.choose_menu("EditEditProtocol");
    ASSERT_EQ(desktop.faults.size(), 1U);
    EXPECT_EQ(desktop.faults[0].what, "No bank has been read yet.");
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
    EXPECT_EQ(joined(program.levels(), program.cell(48, column::rate) + program.cell(49, column::rate)), "50|1300");
    EXPECT_EQ(app.editwindow->namefield.Text(), "most; Bank_7");
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

TEST_F(ReadTest, a_full_bank_comes_back_as_it_was_loaded_but_for_the_duty_of_other_shapes) {
    std::string records;
    for (const auto& level : emulator::example_bank()) {
        records.append(level.begin(), level.begin() + 12);
    }
    write_file(desktop.folder / "example.zp2", records);
    open_window();
    program.open(desktop.folder / "example.zp2");
    app.choose_menu("ZephonLoadDirect");
    app.load_direct_window->bank_bt0.choose(9);
    generator.press_receive();
    desktop.expect_message("Ready to load: example\rInto Bank: 09\r\r"
                           "Immediately after clicking OK - Press 5 then 3 on the Zephon");
    app.load_direct_window->LoadButton.click();
    window().activate();
    click_read(9);
    for (int level = 1; level <= 50; ++level) {
        for (int i = 0; i < column::count; ++i) {
            const bool duty_unknown = i == column::duty_cycle && program.cell(level, column::wave_shape) != "Square";
            EXPECT_EQ(window().displaybox.Cell(level, i), duty_unknown ? "" : program.cell(level, i))
                << level << ", " << i;
        }
    }
    EXPECT_EQ(joined(window().BankFreqField, window().BankTimeField, window().bankfield),
              joined(app.editwindow->BankFreqField, app.editwindow->BankTimeField) + "|Bank_9");
    EXPECT_TRUE(generator.violations().empty());
}

} // namespace
} // namespace tessit::testing
