// SPDX-License-Identifier: MIT
// Open, Save, New and the closing prompt with real files.
#include "consolidator/consolidator_window.h"
#include "support/full_disk.h"
#include "support/program.h"

namespace tessit::testing {
namespace {

namespace fs = std::filesystem;

constexpr const char* too_large =
    "This Protocol requires more space than available in this bank\rSome data may have been dropped";
constexpr const char* unsaved = "Data in the Edit window has not been saved to file\rDo you want to save it?";

// A level of 7.83 Hz that its rate tells from others.
std::string record(int rate) {
    std::string bytes("\x00\x1e\x96\x08\x00\x03\x15\x07\x00\x00", 10);
    return bytes + static_cast<char>(rate) + static_cast<char>(37 - rate);
}

std::string records(int count) {
    std::string bytes;
    for (int rate = 1; rate <= count; ++rate) {
        bytes += record(rate);
    }
    return bytes;
}

const std::string blank_record(12, '\0');
const std::string unset_level(11, '\xff');
const std::string row_7_83 = "|Single Frequency|007.830||1|3:00|00:03:00|ON|1|Square|70%|Positive";

class ProtocolFile : public ProgramTest {
protected:
    fs::path file(const std::string& name, const std::string& bytes) {
        write_file(desktop.folder / name, bytes);
        return desktop.folder / name;
    }
    void open(const std::string& name, const std::string& bytes) { program.open(file(name, bytes)); }
    std::string name() { return app.editwindow->namefield.Text(); }
    std::string rate(int row) { return program.cell(row, column::rate); }
    std::string image(int level) {
        const LevelBytes bytes = app.bytes(level);
        return {bytes.begin(), bytes.end()};
    }
    void enter_one_level() {
        program.new_protocol();
        program.enter("7.83");
    }
    void close_editor(DialogAnswer answer) {
        desktop.expect_message(unsaved, answer);
        app.editwindow->close_by_user();
    }
};

// Open

TEST_F(ProtocolFile, a_full_file_fills_an_empty_table_without_a_word) {
    open("full.zp2", records(50));
    EXPECT_EQ(program.levels(), 50);
    EXPECT_EQ(program.row(1), "1" + row_7_83);
    EXPECT_EQ(program.row(50), "50|Single Frequency|007.830||1|3:00|00:03:00|ON|50|Square|70%|Positive");
    EXPECT_EQ(joined(name(), app.popupwindow->ProgressBar1.Value(), app.popupwindow->statusField.Text()),
              "full|100|  Loading file:  full");
    EXPECT_TRUE(!app.popupwindow->Visible() && app.changed && app.editchanged);
    EXPECT_EQ(app.front_window(), &app.editwindow.get());
    EXPECT_EQ(app.filepath->path(), desktop.folder / "full.zp2");
    const FileType& type = desktop.file_requests.back().type;
    EXPECT_EQ(type.Name + type.Extensions, "Zephon File.zp2");

    desktop.expect_message(too_large);
    open("one.zp2", record(99)); // a full table takes nothing more
    EXPECT_EQ(joined(program.levels(), rate(50)), "50|50");
    EXPECT_EQ(image(1), record(99));
    open("empty.zp2", ""); // has no record to drop
}

TEST_F(ProtocolFile, opening_adds_what_fits_and_tells_of_the_rest) {
    open("many.zp2", records(45));
    desktop.expect_message(too_large);
    open("more.zp2", records(10));
    EXPECT_EQ(desktop.dialogs.back().Icon, DialogIcon::caution);
    EXPECT_EQ(program.levels(), 50);
    EXPECT_EQ(program.row(46), "46" + row_7_83);
    EXPECT_EQ(rate(50), "5");
    EXPECT_EQ(image(6), record(6)); // read and not shown
    EXPECT_EQ(image(7).substr(0, 11), unset_level);
    EXPECT_EQ(name(), "many; more");
    EXPECT_FALSE(app.popupwindow->Visible());
}

TEST_F(ProtocolFile, a_name_is_appended_from_the_second_level_on) {
    open("a.zp2", record(1));
    open("b.zp2.zp2", record(2));
    EXPECT_EQ(name(), "b.zp2"); // the first ending is taken off
    open("c.txt", record(3));
    EXPECT_EQ(joined(name(), app.filename, program.levels()), "b.zp2; c.txt|c.txt|3");
}

TEST_F(ProtocolFile, odd_files_are_taken_as_records) {
    const std::tuple<const char*, std::string, std::vector<std::string>> cases[] = {
        {"empty", "", {}},
        {"blank level", record(1) + blank_record + record(1), {"1" + row_7_83, "2" + row_7_83}},
        {"escape", "\xfd" + record(1) + "\xfd" + record(1), {"1" + row_7_83, "2" + row_7_83}},
        {"cut after 5 bytes",
         std::string("\x00\x1e\x96\x08\x0a", 5),
         {"1|Spread Contracting|007.830|0|1|0:10|00:00:10|ON|0|Square||Negative"}},
        {"cut after 2 bytes", record(1) + std::string("\x00\x1e", 2), {"1" + row_7_83}}, // scale 0
        {"foreign", "<!DOCTYPE ht", {"1|||69|1|84:67|01:25:07|OFF|8296|Sine||Positive"}},
    };
    for (const auto& [what, bytes, rows] : cases) {
        app.editchanged = false;
        app.editwindow.Close();
        open("odd.zp2", bytes);
        ASSERT_EQ(program.levels(), static_cast<int>(rows.size())) << what;
        for (int row = 1; row <= program.levels(); ++row) {
            EXPECT_EQ(program.row(row), rows[static_cast<std::size_t>(row - 1)]) << what;
        }
        EXPECT_EQ(name(), "odd");
        EXPECT_TRUE(app.changed && app.editchanged) << what;
    }
}

TEST_F(ProtocolFile, a_dismissed_open_dialog_empties_the_image_and_sets_both_flags) {
    app.fbyte0[1] = 7;
    desktop.dismiss_file_dialog();
    app.choose_menu("FileOpen");
    EXPECT_EQ(image(1).substr(0, 11), unset_level);
    EXPECT_TRUE(!app.filepath.has_value() && app.changed && app.editchanged && !app.editwindow.exists());
    EXPECT_FALSE(app.popupwindow->Visible());
}

TEST_F(ProtocolFile, more_than_fifty_records_end_in_the_fault_report_with_the_first_fifty_shown) {
    for (const std::size_t size : {601U, 612U, 10U * 1024 * 1024}) { // the last without a row among what is too much
        std::string bytes = records(50);
        bytes.resize(size, '\0');
        desktop.expect_fault("_FileOpen_Action");
        open("large.zp2", bytes);
        EXPECT_EQ(joined(program.levels(), rate(50)), "50|50");
        EXPECT_FALSE(app.popupwindow->Visible());
        app.editwindow.Close();
    }
    program.enter("7.83");
    EXPECT_EQ(program.levels(), 1);
    app.editchanged = false;
}

TEST_F(ProtocolFile, what_cannot_be_read_is_a_fault_and_the_table_stays) {
    open("a.zp2", records(3));
    const std::string last = program.row(3);
    app.editchanged = true;
    fs::create_directory(desktop.folder / "folder.zp2");
    const fs::path unreadable[] = {desktop.folder / "folder.zp2", desktop.folder / "gone.zp2", "/proc/self/mem"};
    for (const auto& path : unreadable) {
        desktop.expect_fault("_FileOpen_Action");
        program.open(path);
        EXPECT_EQ(desktop.faults.back().kind, FaultKind::read_failed) << path;
        EXPECT_EQ(program.levels(), 3);
        EXPECT_EQ(program.row(3), last);
        EXPECT_EQ(name(), "a");
        EXPECT_TRUE(!app.popupwindow->Visible() && app.editchanged);
    }
    program.enter("12");
    EXPECT_EQ(program.levels(), 4);
}

TEST_F(ProtocolFile, a_file_given_at_the_start_is_opened_as_if_it_had_been_chosen) {
    app.open_file(FolderItem(file("a.ZP2", records(2))));
    app.open_file(FolderItem(file("notes.txt", record(3)))); // anything but a list
    EXPECT_EQ(program.levels(), 3);
    EXPECT_TRUE(desktop.file_requests.empty());
    close_editor(DialogAnswer::alternate);
    app.open_file(FolderItem(file("b.CSV", "5, 6")));
    EXPECT_EQ(app.consolidatorWindow->freqdisplayfield.Text(), "5, 6");
    EXPECT_EQ(app.front_window(), &app.consolidatorWindow.get());
    app.open_file(FolderItem(desktop.folder / "a.ZP2")); // which that window's menu does not allow
    app.consolidatorWindow.Close();
    open("one.zp2", record(1)); // nor is it kept for the next dialog
    EXPECT_EQ(program.levels(), 1);
}

// Save

TEST_F(ProtocolFile, a_protocol_is_saved_as_these_bytes_and_comes_back) {
    enter_one_level();
    app.composechanged = app.readchanged = true; // the first flag is cleared whichever table is saved
    EXPECT_EQ(hex(program.save_as("a.zp2")), "00 1e 96 08 00 03 15 07 00 00 01 24");
    EXPECT_EQ(desktop.file_requests.back().default_name, "Untitled.zp2");
    EXPECT_EQ(desktop.file_requests.back().type.Name, "Zephon File/zp2");
    EXPECT_EQ(app.filename, (desktop.folder / "a.zp2").string());
    EXPECT_EQ(app.filepath->path(), desktop.folder.path());
    EXPECT_TRUE(!app.changed && !app.editchanged && !app.composechanged && app.readchanged);
    app.editwindow->close_by_user(); // asks nothing
    program.open(desktop.folder / "a.zp2");
    EXPECT_EQ(program.row(1), "1" + row_7_83);
}

// The file that docs/file-formats.md takes apart.
TEST_F(ProtocolFile, three_levels_are_saved_as_the_documented_dump) {
    const std::tuple<int, int, const char*, const char*, const char*, int, int, int> levels[] = {
        {0, 0, "7.83", "3:00", "1", 0, 0, 0},      // Single Frequency, ON, Square, Positive
        {3, 4, "1234.56", "0:10", "20", 1, 1, 1},  // Sweep Increasing, OFF, Sine, Negative
        {2, 9, "10000.5", "1:30", "300", 0, 2, 0}, // Spread Expanding, ON, Triangle, Positive
    };
    program.new_protocol();
    EditWindow& editor = app.editwindow.get();
    for (const auto& [wave, width, frequency, time, rate, pulse, shape, output] : levels) {
        editor.wave_box.choose(wave);
        editor.WidthMenu.choose(width);
        editor.PulseMenu.choose(pulse);
        editor.shape_box.choose(shape);
        editor.output_box.choose(output);
        editor.time_field.edit(time);
        editor.rate_field.edit(rate);
        program.enter(frequency);
    }
    EXPECT_EQ(hex(program.save_as("three.zp2")), "00 1e 96 08 00 03 15 07 00 00 01 24 "
                                                 "01 e2 40 04 0a 00 4e 07 04 00 14 62 "
                                                 "01 86 a5 02 1e 01 94 07 09 01 2c e2");
    app.editwindow->close_by_user();
    program.open(desktop.folder / "three.zp2");
    EXPECT_EQ(program.row(1), "1" + row_7_83);
    EXPECT_EQ(program.row(2), "2|Sweep Increasing|1234.56|4|5|0:10|00:00:50|OFF|20|Sine||Negative");
    EXPECT_EQ(program.row(3), "3|Spread Expanding|10000.5|9|19|1:30|00:28:30|ON|300|Triangle||Positive");
}

TEST_F(ProtocolFile, a_dismissed_save_dialog_writes_nothing_and_clears_the_flag) {
    enter_one_level();
    desktop.dismiss_file_dialog();
    app.choose_menu("FileSave");
    EXPECT_TRUE(!app.editchanged && app.changed);
    EXPECT_EQ(app.filename, "Untitled");
    desktop.choose_file(desktop.folder / "front.zp2");
    app.writezpFile();
    EXPECT_TRUE(fs::exists(desktop.folder / "front.zp2"));
    app.editwindow->close_by_user(); // asks nothing: the level is lost
    EXPECT_FALSE(app.editwindow.exists());
}

TEST_F(ProtocolFile, save_leaves_out_low_bytes_of_255_and_the_closing_prompt_writes_them) {
    program.new_protocol();
    for (const char* frequency : {"0.511", "7.83", "0.767", "1.023"}) {
        program.enter(frequency);
    }
    EXPECT_EQ(program.save_as("saved.zp2").size(), 12U);
    app.editchanged = true;
    desktop.choose_file(desktop.folder / "closed.zp2");
    close_editor(DialogAnswer::action);
    const std::string closed = file_bytes(desktop.folder / "closed.zp2");
    ASSERT_EQ(closed.size(), 48U);
    EXPECT_EQ(hex(closed.substr(0, 4)), "00 01 ff 08");
    program.open(desktop.folder / "saved.zp2");
    EXPECT_EQ(joined(program.levels(), program.cell(1, column::base)), "1|007.830");
    app.editchanged = false;
}

TEST_F(ProtocolFile, writing_without_a_name_or_a_file_is_told_in_these_words) {
    auto stream = FolderItem(desktop.folder / "a.zp2").CreateBinaryFile(".zp2");
    app.filename = "";
    app.changed = true;
    desktop.expect_message("No file identified - Please try again\r"
                           "if this problem continues please notify support@tessit.example");
    app.writefile(stream);
    app.filename = "a.zp2";
    desktop.expect_message("Unable to identify file - Please try again\r"
                           "if this problem continues please notify support@tessit.example");
    Ref<BinaryOutputStream> nil;
    app.writefile(nil);
    EXPECT_TRUE(app.changed && !fs::exists(desktop.folder / "a.zp2"));
}

TEST_F(ProtocolFile, only_one_type_has_content) {
    app.fbyte0[1] = 7;
    app.filename = "a";
    for (const auto& [type, size] : {std::pair{".zp2", 12U}, {".ZP2", 12U}, {".csv", 0U}, {".tab", 0U}}) {
        app.filetype = type;
        auto stream = FolderItem(desktop.folder / type).CreateBinaryFile(type);
        app.writefile(stream);
        EXPECT_TRUE(fs::exists(desktop.folder / type)) << type;
        EXPECT_EQ(file_bytes(desktop.folder / type).size(), size) << type;
    }
}

TEST_F(ProtocolFile, a_failed_save_ends_in_the_fault_report_with_the_old_file_the_table_and_the_flag_intact) {
    enter_one_level();
    const fs::path target = file("a.zp2", "old"); // fails for want of room, the others can't be created
    fs::permissions(file("read-only.zp2", "old"), fs::perms::owner_read);
    for (const fs::path& path : {target, fs::path("/dev/full"), desktop.folder / "read-only.zp2", desktop.folder.path(),
                                 desktop.folder / "missing/a.zp2"}) {
        desktop.expect_fault("_FileSave_Action");
        desktop.choose_file(path);
        {
            const FullDisk full;
            app.choose_menu("FileSave");
        }
        EXPECT_EQ(desktop.faults.back().kind, FaultKind::write_failed);
        EXPECT_EQ(program.levels(), 1);
        EXPECT_TRUE(app.editchanged);
        EXPECT_EQ(file_bytes(target), "old");
    }
    EXPECT_EQ(program.save_as("a.zp2"), record(1)); // and once there is room
}

// The closing prompt

TEST_F(ProtocolFile, closing_saves_under_the_protocols_name) {
    enter_one_level();
    app.editwindow->namefield.SetText("My levels");
    app.insert = true;
    desktop.choose_file(desktop.folder / "mine.zp2");
    const fs::path before = app.filepath->path();
    close_editor(DialogAnswer::action);
    EXPECT_EQ(desktop.file_requests.back().default_name, "My levels.zp2");
    EXPECT_EQ(file_bytes(desktop.folder / "mine.zp2"), record(1));
    EXPECT_FALSE(app.editwindow.exists() || app.changed || app.editchanged || app.insert);
    EXPECT_EQ(app.filename, "My levels.zp2");
    EXPECT_EQ(app.filepath->path(), before);
}

TEST_F(ProtocolFile, closing_with_the_save_dialog_dismissed_loses_the_work) {
    enter_one_level();
    desktop.dismiss_file_dialog();
    close_editor(DialogAnswer::action);
    EXPECT_FALSE(app.editwindow.exists() || app.editchanged);
}

TEST_F(ProtocolFile, a_save_that_fails_while_closing_keeps_the_window_and_the_work) {
    enter_one_level();
    const fs::path target = file("read-only.zp2", "old");
    fs::permissions(target, fs::perms::owner_read);
    for (const fs::path& path : {target, fs::path("/dev/full")}) {
        desktop.expect_fault("editwindow.Event_CancelClose");
        desktop.choose_file(path);
        close_editor(DialogAnswer::action);
        EXPECT_TRUE(app.editwindow->Visible());
        EXPECT_EQ(program.levels(), 1);
        EXPECT_TRUE(app.editchanged);
    }
    EXPECT_EQ(file_bytes(target), "old");
    desktop.choose_file(desktop.folder / "a.zp2");
    close_editor(DialogAnswer::action);
    EXPECT_EQ(file_bytes(desktop.folder / "a.zp2"), record(1));
}

// New

TEST_F(ProtocolFile, new_starts_over_with_a_window_of_its_own) {
    open("a.zp2", records(3));
    desktop.expect_message(unsaved, DialogAnswer::alternate);
    app.from_user("test", [this] { app._FileCreateNewFile_Action(); });
    EXPECT_EQ(joined(program.levels(), name()), "0|Untitled");
    EXPECT_EQ(app.front_window(), &app.editwindow.get());
}

TEST_F(ProtocolFile, new_goes_on_after_a_veto_and_renames_the_table_that_stayed) {
    open("a.zp2", records(3));
    app.editwindow->wave_box.SetFocus();
    desktop.expect_message(unsaved, DialogAnswer::cancel);
    app.from_user("test", [this] { app._FileCreateNewFile_Action(); });
    EXPECT_EQ(joined(program.levels(), name()), "3|Untitled");
    EXPECT_EQ(app.editwindow->focus_control(), &app.editwindow->FreqField);
    EXPECT_EQ(image(1).substr(0, 11), unset_level);
    EXPECT_TRUE(app.editchanged);
}

} // namespace
} // namespace tessit::testing
