// SPDX-License-Identifier: MIT
// Any bytes are a whole recovery copy or none, and any values are put back as they can be kept again, or told to be
// none.
#include "device/read_window.h"
#include "recovery/recovery_copy.h"
#include "support/quiet_program.h"
#include "tools/fuzzing/target.h"

namespace tessit::fuzzing {

std::string put_back(DocumentWindow& window, const std::string& values) {
    ArchiveReader reader(values);
    window.archive_document(reader);
    ArchiveWriter writer;
    window.archive_document(writer);
    return writer.values();
}

void try_input(const std::string& input) {
    const auto copy = read_recovery_copy(input);
    require(!copy || recovery_bytes(*copy) == input, "a copy is written as it was read");
    testing::QuietProgram program;
    DocumentWindow& window = program.app.ReadZPWindow.get();
    try {
        const std::string kept = put_back(window, copy ? copy->values : input);
        require(put_back(window, kept) == kept, "what was put back is put back once more");
    } catch (const Fault& fault) {
        require(fault.kind() == FaultKind::read_failed, "what can't be put back is told as such");
    }
}

} // namespace tessit::fuzzing
