// SPDX-License-Identifier: MIT
// What stands where an ordinary file is expected.
#pragma once

#include <sys/stat.h>

namespace tessit {

// The reason why it can't be used as a file, such as "Is a folder", for messages beside the system's own; null for an
// ordinary file.
constexpr const char* why_no_ordinary_file(mode_t mode) {
    switch (mode & S_IFMT) {
    case S_IFREG:
        return nullptr;
    case S_IFDIR:
        return "Is a folder";
    case S_IFIFO:
        return "Is a pipe";
    case S_IFSOCK:
        return "Is a socket";
    case S_IFBLK:
        return "Is a block device";
    case S_IFCHR:
        return "Is a device";
    default:
        return "Is no file";
    }
}

} // namespace tessit
