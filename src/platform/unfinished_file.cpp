// SPDX-License-Identifier: MIT
#include "platform/unfinished_file.h"

#include "platform/file_writing.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <string>
#include <string_view>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tessit {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view name_begin = ".tessit-";
constexpr const char* name_template = ".tessit-XXXXXX";

enum class Lock { taken, held_by_another, unknown_here };

Lock lock(int descriptor) {
    if (flock(descriptor, LOCK_EX | LOCK_NB) == 0) {
        return Lock::taken;
    }
    return errno == EWOULDBLOCK ? Lock::held_by_another : Lock::unknown_here;
}

bool has_a_name(int descriptor) {
    struct stat status = {};
    return fstat(descriptor, &status) == 0 && status.st_nlink > 0;
}

bool is_own_file(const fs::path& path) {
    struct stat status = {};
    return lstat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode) && status.st_uid == geteuid();
}

// The lock is held until the file is gone, so that one who has just made it and waits for no lock makes another.
void remove_where_nobody_works_on_it(const fs::path& path) {
    const int descriptor = is_own_file(path) ? open(path.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC) : -1;
    if (descriptor >= 0) {
        if (lock(descriptor) == Lock::taken) {
            unlink(path.c_str());
        }
        close(descriptor);
    }
}

void remove_what_was_left_behind(const fs::path& folder) {
    std::error_code error;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
        const std::string name = entry->path().filename().string();
        if (name.starts_with(name_begin) && name.size() == std::strlen(name_template)) {
            remove_where_nobody_works_on_it(entry->path());
        }
    }
}

} // namespace

UnfinishedFile::UnfinishedFile(const fs::path& folder) {
    remove_what_was_left_behind(folder);
    const fs::path pattern = folder / name_template;
    bool mine = false;
    while (!mine) {
        std::string path = pattern.string();
        descriptor_ = mkostemp(path.data(), O_CLOEXEC);
        if (descriptor_ < 0) {
            throw std::system_error(last_error());
        }
        path_ = path;
        mine = lock(descriptor_) != Lock::held_by_another && has_a_name(descriptor_);
        if (!mine) { // another process takes it for one that was left behind, in the moment before the lock
            close(descriptor_);
        }
    }
}

UnfinishedFile::~UnfinishedFile() {
    if (!path_.empty()) {
        unlink(path_.c_str());
    }
    close(descriptor_);
}

std::error_code UnfinishedFile::rename_to(const fs::path& file) {
    if (rename(path_.c_str(), file.c_str()) != 0) {
        return last_error();
    }
    path_.clear();
    flush_folder(file.parent_path());
    return {};
}

} // namespace tessit
