// SPDX-License-Identifier: MIT
// Any file is read as the settings and saved; what was saved is read and saved as it is.
#include "support/quiet_program.h"
#include "tools/fuzzing/target.h"

#include <regex>

namespace tessit::fuzzing {

std::string saved_again(const std::string& settings) {
    testing::QuietProgram program(settings);
    program.save_settings();
    require(program.faults_are_of(FaultKind::out_of_bounds), "the one fault is a key without a value");
    return testing::file_bytes(program.settings_file);
}

void try_input(const std::string& input) {
    const std::string saved = saved_again(input);
    require(saved.size() <= input.size() + 500, "nothing but the fourteen fields");
    // Numbers are of single precision: from eight digits on they need not come back.
    require(std::regex_search(saved, std::regex("[0-9]{8}")) || saved_again(saved) == saved, "it is read as it was");
}

} // namespace tessit::fuzzing
