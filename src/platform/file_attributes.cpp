// SPDX-License-Identifier: MIT
#include "platform/file_attributes.h"

#include <string>
#include <string_view>
#include <sys/stat.h>
#include <sys/types.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace tessit {

namespace {

// What belongs to the system is left to it: some of it vouches for the old content.
bool is_kept(std::string_view attribute) {
    return attribute.starts_with("user.") || attribute == "system.posix_acl_access";
}

void keep_attribute(const char* old, int descriptor, const char* attribute) {
    const ssize_t size = getxattr(old, attribute, nullptr, 0);
    std::string value(size > 0 ? static_cast<std::size_t>(size) : 0, '\0');
    if (size >= 0 && getxattr(old, attribute, value.data(), value.size()) == size) {
        fsetxattr(descriptor, attribute, value.data(), value.size(), 0);
    }
}

void keep_extended_attributes(const char* old, int descriptor) {
    const ssize_t size = listxattr(old, nullptr, 0);
    std::string names(size > 0 ? static_cast<std::size_t>(size) : 0, '\0');
    if (names.empty() || listxattr(old, names.data(), names.size()) != size) {
        return;
    }
    for (std::size_t at = 0; at < names.size(); at = names.find('\0', at) + 1) { // each ends in a 0
        const char* name = names.data() + at;
        if (is_kept(name)) {
            keep_attribute(old, descriptor, name);
        }
    }
}

// The mode for a file whose owner or group may be another now.
mode_t mode_for(const struct stat& now, const struct stat& old) {
    if (now.st_gid != old.st_gid) {
        const mode_t of_others = old.st_mode & S_IRWXO;
        return (old.st_mode & S_IRWXU) | (old.st_mode & of_others << 3U) | of_others;
    }
    return old.st_mode & (now.st_uid == old.st_uid ? 07777U : 0777U);
}

} // namespace

void keep_attributes(const std::filesystem::path& old, int descriptor) {
    struct stat status = {};
    struct stat now = {};
    if (stat(old.c_str(), &status) != 0) {
        return;
    }
    keep_extended_attributes(old.c_str(), descriptor);
    if (fchown(descriptor, status.st_uid, status.st_gid) != 0 &&
        fchown(descriptor, static_cast<uid_t>(-1), status.st_gid) != 0) {
        // another owner and group, and the mode sees to it
    }
    fstat(descriptor, &now);
    fchmod(descriptor, mode_for(now, status));
}

void set_mode_of_new_file(int descriptor) {
    const mode_t mask = umask(0);
    umask(mask);
    fchmod(descriptor, 0666 & ~mask);
}

} // namespace tessit
