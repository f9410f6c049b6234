// SPDX-License-Identifier: MIT
// A recovery copy: the unsaved work of one document window as bytes. Format: docs/file-formats.md.
#pragma once

#include <ctime>
#include <optional>
#include <string>
#include <string_view>

namespace tessit {

struct RecoveryCopy {
    std::string window;      // the name of the document window, such as "editwindow"
    std::string document;    // what its name field says
    std::time_t kept_at = 0; // seconds since 1970
    std::string values;      // of the window, as an ArchiveWriter wrote them

    bool operator==(const RecoveryCopy&) const = default;
};

std::string recovery_bytes(const RecoveryCopy& copy);
std::optional<RecoveryCopy> read_recovery_copy(std::string_view bytes); // none: damaged, or of another version

} // namespace tessit
