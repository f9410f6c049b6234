// SPDX-License-Identifier: MIT
// The tab-separated export.
#include "device/read_window.h"
#include "device/settings_window.h"
#include "support/program.h"

namespace tessit::testing {
namespace {

const std::string headings = "Level\tWaveform\tBase\tWidth\t# Freqs.\tTime each\tTotal Time\tPulse\tRate\tWaveShape\t"
                             "Duty Cycle\tOutput\r";

class ExportTest : public EditorTest {
protected:
    std::string exported() {
        desktop.choose_file(desktop.folder / "table.tab");
        app.choose_menu("FileExport");
        return file_bytes(desktop.folder / "table.tab");
    }
};

TEST_F(ExportTest, rows_go_out_as_they_stand_with_cr_and_one_line_end) {
    EXPECT_EQ(exported(), headings + "\n"); // an empty table
    app.editwindow->isoDecimal.click();
    program.enter("7,83");
    EXPECT_EQ(exported(),
              headings + "1\tSingle Frequency\t7,83\t\t1\t3:00\t00:03:00\tON\t1\tSquare\t70%\tPositive\r\n");
    EXPECT_TRUE(app.editchanged); // an export does not count as saving
    EXPECT_EQ(joined(app.filetype, app.settings_window->outputfield.Text()), ".tab|serial port,15");
}

TEST_F(ExportTest, behind_an_insertion_the_rows_below_it_are_missing) {
    for (const char* frequency : {"10", "20", "30"}) {
        program.enter(frequency);
    }
    app.editwindow->edit_displayBox.choose(2);
    app.choose_menu("EditInsertRow");
    const std::string text = exported();
    EXPECT_NE(text.find("\r2\t\t\t"), std::string::npos);
    EXPECT_EQ(text.find("30"), std::string::npos);
}

TEST_F(ExportTest, another_window_in_front_exports_the_headings_alone) {
    program.enter("10");
    app.myactivewindow = document::reader;
    desktop.choose_file(desktop.folder / "table.tab");
    app._FileExport_Action();
    EXPECT_EQ(file_bytes(desktop.folder / "table.tab"), headings + "\n");
}

TEST_F(ExportTest, the_proposed_name_is_the_protocols_and_a_dismissed_dialog_writes_nothing) {
    app.filename = "night";
    desktop.dismiss_file_dialog();
    app.choose_menu("FileExport");
    EXPECT_EQ(desktop.file_requests.back().default_name, "night.tab");
    EXPECT_EQ(joined(desktop.file_requests.back().type.Extensions, app.filename), ".tab|night");
}

} // namespace
} // namespace tessit::testing
