// SPDX-License-Identifier: MIT
// Any file is opened as a protocol and saved; what was saved comes back as it was.
#include "support/quiet_program.h"
#include "tools/fuzzing/target.h"

namespace tessit::fuzzing {

std::string saved_again(const std::string& file) {
    testing::QuietProgram program;
    testing::write_file(program.desktop.file, file);
    program.app.choose_menu("FileOpen");
    require(program.app.editwindow->edit_displayBox.ListCount() <= 51, "row 0 and at most fifty levels");
    program.app.choose_menu("FileSave");
    require(program.faults_are_of(FaultKind::out_of_bounds), "the faults are those of an odd level and of a 51st");
    return testing::file_bytes(program.desktop.file);
}

// Rates come back larger, and with them the check byte.
std::string without_rates(std::string file) {
    for (std::size_t i = 0; i < file.size(); ++i) {
        file[i] = i % 12 < 9 ? file[i] : '-';
    }
    return file;
}

// A word that no frequency has takes two savings to become one of a frequency.
void try_input(const std::string& input) {
    const std::string first = saved_again(input);
    require(first == input || (first.size() <= 600 && first.size() % 12 == 0), "whole records, fifty at most");
    const std::string saved = saved_again(first);
    require(without_rates(saved_again(saved)) == without_rates(saved), "what was saved is opened and saved as it is");
}

} // namespace tessit::fuzzing
