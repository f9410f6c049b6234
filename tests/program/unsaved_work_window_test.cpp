// SPDX-License-Identifier: MIT
// Recovery copies: when there are some, what comes back of them, and the ends of the program that keep them.
#include "composer/compose_window.h"
#include "consolidator/consolidator_window.h"
#include "device/read_window.h"
#include "program/unsaved_work.h"
#include "recovery/recovery_copy.h"
#include "support/full_disk.h"
#include "support/program.h"

#include <algorithm>
#include <chrono>
#include <thread>

using namespace tessit;
using namespace tessit::testing;

namespace {

namespace fs = std::filesystem;

struct KeepingDesktop : ScriptedDesktop {
    explicit KeepingDesktop(const fs::path& copies) : recovery(copies) {
        write_file(folder / "ZP2Settings.fig", quiet_settings);
    }
    std::optional<FolderItem> recovery_folder() override { return FolderItem(recovery); }

    const fs::path recovery;
};

struct KeepingProgram {
    explicit KeepingProgram(const fs::path& folder) : desktop(folder) { app.start(); }

    KeepingDesktop desktop;
    App app{desktop, test_version};

    void enter_level(const std::string& frequency) {
        app.editwindow->FreqField.type(frequency);
        app.editwindow->FreqField.press(keys::return_);
    }
};

// Endings of the copies' names, those of damaged ones too.
std::string copies_in(const fs::path& folder) {
    std::vector<std::string> found;
    std::error_code none_yet;
    for (const auto& entry : fs::directory_iterator(folder, none_yet)) {
        const std::string name = entry.path().filename().string();
        if (entry.path().extension() != ".lock") {
            found.push_back(name.substr(name.find('.') + 1));
        }
    }
    std::sort(found.begin(), found.end());
    std::string all;
    for (const std::string& name : found) {
        all += (all.empty() ? "" : " ") + name;
    }
    return all;
}

std::string values_of(DocumentWindow& window) {
    ArchiveWriter writer;
    window.archive(writer); // its controls, whatever it keeps of them
    window.archive_document(writer);
    return writer.values();
}

class UnsavedWorkTest : public ::testing::Test {
protected:
    // The copies that there are once the writing thread has got as far; it is given ten seconds.
    std::string copies_become(const std::string& expected) {
        for (int i = 0; i < 10'000 && copies_in(recovery) != expected; ++i) {
            program.desktop.run_event_loop();
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
        return copies_in(recovery);
    }

    // What a program that dies now leaves behind: no lock holds on to it.
    fs::path as_after_death(const char* name) {
        const fs::path left = place / name;
        fs::copy(recovery, left);
        return left;
    }

    void expect_restored(const fs::path& left, const std::string& explanation) {
        KeepingProgram next(left);
        next.desktop.expect_message("Unsaved work was found");
        if (app.ReadZPWindow.exists()) {
            next.desktop.expect_message("No Serial Port Selected");
        }
        EXPECT_TRUE(next.app.offer_recovery());
        const std::string& told = next.desktop.dialogs.front().Explanation;
        EXPECT_EQ(told.substr(0, explanation.size()), explanation);
        compare(app.editwindow, next.app.editwindow);
        compare(app.consolidatorWindow, next.app.consolidatorWindow);
        compare(app.composewindow, next.app.composewindow);
        compare(app.ReadZPWindow, next.app.ReadZPWindow);
        EXPECT_EQ(copies_in(left), copies_in(recovery)); // now its own
    }

    template <class Instance> static void compare(Instance& before, Instance& after) {
        ASSERT_EQ(before.exists(), after.exists());
        if (before.exists()) {
            EXPECT_EQ(values_of(before.get()), values_of(after.get()));
            EXPECT_EQ(before->Visible(), after->Visible());
            EXPECT_TRUE(after->change_flag());
        }
    }

    TemporaryFolder place;
    fs::path recovery = place / "state" / "recovery";
    KeepingProgram program{recovery};
    App& app = program.app;
    ScriptedDesktop& desktop = program.desktop;
};

TEST_F(UnsavedWorkTest, copy_is_there_while_work_is_unsaved) {
    app.choose_menu("FileCreateNewFile");
    EXPECT_FALSE(fs::exists(recovery)); // nothing to be seen before there is a copy
    program.enter_level("7.83");
    EXPECT_EQ(copies_become("editwindow"), "editwindow");
    EXPECT_EQ(fs::status(recovery).permissions(), fs::perms::owner_all);

    desktop.choose_file(place / "night.zp2");
    app.choose_menu("FileSave");
    EXPECT_EQ(copies_become(""), "");

    app.editwindow->edit_displayBox.choose(1);
    app.choose_menu("EditDeleteRow"); // sets no flag, so closing would not ask
    EXPECT_EQ(copies_become("editwindow"), "editwindow");
    desktop.dismiss_file_dialog();
    app.choose_menu("FileSave");
    EXPECT_EQ(copies_become("editwindow"), "editwindow");

    app.editwindow->close_by_user();
    EXPECT_EQ(copies_become(""), "");
}

TEST_F(UnsavedWorkTest, editor_comes_back_as_it_was) {
    app.choose_menu("FileCreateNewFile");
    program.enter_level("7.83");
    app.editwindow->wave_box.choose(1);
    app.editwindow->isoDecimal.click();
    program.enter_level("20,5");
    app.editwindow->edit_displayBox.double_click(1);
    app.editwindow->namefield.type(" night");
    app.editwindow->rate_field.type("1");
    ASSERT_EQ(copies_become("editwindow"), "editwindow");
    app.ended_by_system();
    expect_restored(as_after_death("left"), "Zephon Protocol Editor: Untitled night, ");
}

TEST_F(UnsavedWorkTest, list_and_composer_come_back_as_they_were) {
    app.choose_menu("ConsolidatorNew");
    app.consolidatorWindow->entryField.type("20");
    app.consolidatorWindow->entryField.press(keys::return_);
    app.consolidatorWindow->composebutton.click();
    app.composewindow->freq_listBox.click_cell(0, 0);
    app.composewindow->allbutton.click();
    app.composewindow->compose_displayBox.double_click(1);
    app.ended_by_system();
    expect_restored(as_after_death("left"), "Frequency Consolidator: untitled, ");
}

TEST_F(UnsavedWorkTest, bank_that_was_read_comes_back_as_it_was) {
    desktop.expect_message("No Serial Port Selected");
    app.choose_menu("ZephonReadZephon");
    app.ReadZPWindow->displaybox.AddRow("1");
    app.ReadZPWindow->bankfield.edit("Bank_7");
    app.readchanged = true;
    app.ended_by_system();
    expect_restored(as_after_death("left"), "Read Zephon Data: Bank_7, ");
}

TEST_F(UnsavedWorkTest, left_copies_are_kept_discarded_or_put_aside) {
    app.choose_menu("FileCreateNewFile");
    program.enter_level("7.83");
    app.ended_by_system();
    {
        KeepingProgram beside(recovery); // this one lives, so there is nothing to be asked
        EXPECT_FALSE(beside.app.offer_recovery());
    }
    const fs::path left = as_after_death("left");
    KeepingProgram later(left);
    later.desktop.expect_message("Unsaved work was found", DialogAnswer::cancel);
    EXPECT_FALSE(later.app.offer_recovery());
    EXPECT_EQ(copies_in(left), "editwindow");
    later.desktop.expect_message("Unsaved work was found", DialogAnswer::alternate);
    EXPECT_FALSE(later.app.offer_recovery());
    EXPECT_FALSE(later.app.offer_recovery());
    EXPECT_TRUE(fs::is_empty(left));
    EXPECT_EQ(copies_in(recovery), "editwindow");

    const fs::path full = as_after_death("full");
    {
        KeepingProgram next(full);
        next.desktop.expect_message("Unsaved work was found");
        const FullDisk disk(10);
        EXPECT_TRUE(next.app.offer_recovery());
    }
    EXPECT_EQ(copies_in(full), "editwindow"); // no other copy could be written, so the old one stays

    const fs::path damaged = as_after_death("damaged");
    for (const auto& entry : fs::directory_iterator(damaged)) {
        if (entry.path().extension() == ".editwindow") {
            // The values of another window, with a good checksum: part of them fits.
            auto copy = *read_recovery_copy(file_bytes(entry.path()));
            copy.values.resize(copy.values.size() / 2);
            write_file(entry.path(), recovery_bytes(copy));
        }
    }
    KeepingProgram wrong(damaged);
    wrong.desktop.expect_message("Unsaved work was found");
    wrong.desktop.expect_message("Unsaved work was found");
    wrong.app.offer_recovery();
    EXPECT_FALSE(wrong.app.editwindow.exists());
    EXPECT_EQ(copies_in(damaged), "editwindow.damaged");
}

TEST_F(UnsavedWorkTest, end_of_the_session_asks_and_is_stopped_by_cancel) {
    app.choose_menu("FileCreateNewFile");
    program.enter_level("7.83");
    const std::string question = "Data in the Edit window has not been saved to file\rDo you want to save it?";
    desktop.expect_message(question, DialogAnswer::cancel);
    EXPECT_FALSE(app.session_may_end());
    desktop.expect_message(question);
    desktop.choose_file(place / "night.zp2");
    EXPECT_TRUE(app.session_may_end());
    EXPECT_EQ(file_bytes(place / "night.zp2").size(), 12);
    program.enter_level("20");
    desktop.expect_message(question, DialogAnswer::alternate);
    EXPECT_TRUE(app.session_may_end());
    app.ended_by_system();
    EXPECT_EQ(copies_in(recovery), "");
}

TEST_F(UnsavedWorkTest, end_by_the_system_saves_the_settings) {
    app.default_rate = "42";
    app.ended_by_system();
    EXPECT_NE(file_bytes(desktop.folder / "ZP2Settings.fig").find("rate,42;"), std::string::npos);
}

} // namespace
