// SPDX-License-Identifier: MIT
// The program with an empty consolidator in front, and short ways to drive consolidator and composer.
#pragma once

#include "composer/compose_window.h"
#include "consolidator/consolidator_window.h"
#include "support/program.h"

#include <string>

namespace tessit::testing {

class ListTest : public ProgramTest {
protected:
    void SetUp() override { app.choose_menu("ConsolidatorNew"); }

    ConsolidatorWindow& consolidator() { return app.consolidatorWindow.get(); }
    ComposeWindow& composer() { return app.composewindow.get(); }
    const std::string& list() { return consolidator().freqdisplayfield.Text(); }

    void enter(const std::string& frequency) {
        consolidator().entryField.type(frequency);
        consolidator().entryField.press(keys::return_);
    }

    void open_list(const std::string& text) {
        write_file(desktop.folder / "night.csv", text);
        desktop.choose_file(desktop.folder / "night.csv");
        app.choose_menu("ConsolidatorOpen");
    }

    void compose(const std::string& text) {
        consolidator().freqdisplayfield.edit(text);
        consolidator().composebutton.click();
    }

    // Rows of freq_listBox joined by " ", their cells by "|".
    std::string primes() {
        std::string text;
        const Listbox& table = composer().freq_listBox;
        for (int row = 0; row < table.ListCount(); ++row) {
            text += (row == 0 ? "" : " ") + table.Cell(row, 0) + "|" + table.Cell(row, 1) + "|" + table.Cell(row, 2);
        }
        return text;
    }

    // A composed row's twelve cells joined by "|".
    std::string level(int row) {
        std::string text;
        for (const std::string& cell : cells_of(composer().compose_displayBox, row)) {
            text += (text.empty() ? "" : "|") + cell;
        }
        return text;
    }
    int levels() { return composer().compose_displayBox.ListCount() - 1; }
};

} // namespace tessit::testing
