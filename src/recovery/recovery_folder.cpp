// SPDX-License-Identifier: MIT
#include "recovery/recovery_folder.h"

#include "platform/fault.h"
#include "platform/file_replacement.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <span>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace tessit {

namespace fs = std::filesystem;

namespace {

constexpr const char* lock_ending = ".lock";

[[noreturn]] void cannot_keep(const fs::path& folder, int error) {
    throw Fault(FaultKind::write_failed, "Unsaved work could not be kept in the folder \"" + folder.string() +
                                             "\": " + std::strerror(error) + ".");
}

// The user's own, whatever the mask; its parents as usual.
void make_folder(const fs::path& folder) {
    std::error_code error;
    fs::create_directories(folder.parent_path(), error);
    if (mkdir(folder.c_str(), S_IRWXU) != 0 && errno != EEXIST) {
        cannot_keep(folder, errno);
    }
    chmod(folder.c_str(), S_IRWXU);
}

} // namespace

FileLock::FileLock(const fs::path& file) : descriptor_(open(file.c_str(), O_RDWR | O_CLOEXEC | O_NOFOLLOW)) {
    struct stat status = {};
    // A file without a name has just been tidied away by another program.
    if (descriptor_ >= 0 && (flock(descriptor_, LOCK_EX | LOCK_NB) != 0 || fstat(descriptor_, &status) != 0 ||
                             !S_ISREG(status.st_mode) || status.st_nlink == 0)) {
        close(std::exchange(descriptor_, -1));
    }
}

FileLock::FileLock(FileLock&& other) noexcept : descriptor_(std::exchange(other.descriptor_, -1)) {}

FileLock& FileLock::operator=(FileLock&& other) noexcept {
    std::swap(descriptor_, other.descriptor_);
    return *this;
}

FileLock::~FileLock() {
    if (descriptor_ >= 0) {
        close(descriptor_);
    }
}

fs::path OwnCopies::copy_of(const std::string& window) const {
    return folder_ / (stem_ + "." + window);
}

void OwnCopies::begin() {
    make_folder(folder_);
    while (!lock_.holds()) {
        std::string name = (folder_ / (std::to_string(getpid()) + "-XXXXXX" + lock_ending)).string();
        const int made = mkostemps(name.data(), static_cast<int>(std::strlen(lock_ending)), O_CLOEXEC);
        if (made < 0) {
            cannot_keep(folder_, errno);
        }
        close(made);
        lock_ = FileLock(name);
        stem_ = lock_.holds() ? fs::path(name).stem().string() : "";
    }
}

void OwnCopies::write(const std::string& window, const std::string& bytes) {
    if (stem_.empty()) {
        begin();
    }
    const auto file = FileReplacement::create(copy_of(window));
    file->write({reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()});
    file->commit();
    if (std::find(windows_.begin(), windows_.end(), window) == windows_.end()) {
        windows_.push_back(window);
    }
}

void OwnCopies::remove(const std::string& window) {
    if (std::erase(windows_, window) > 0) {
        unlink(copy_of(window).c_str());
    }
}

void OwnCopies::remove_all() {
    while (!windows_.empty()) {
        remove(std::string(windows_.back()));
    }
    if (!stem_.empty()) {
        unlink((folder_ / (stem_ + lock_ending)).c_str());
        lock_ = FileLock();
        stem_.clear();
    }
}

void LeftCopies::remove() {
    for (const fs::path& copy : copies) {
        unlink(copy.c_str());
    }
    unlink(lock_file.c_str());
}

std::vector<LeftCopies> left_copies(const fs::path& folder) {
    std::vector<fs::path> files;
    std::error_code error;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
        files.push_back(entry->path());
    }
    std::vector<LeftCopies> all;
    for (const fs::path& file : files) {
        FileLock lock = file.extension() == lock_ending ? FileLock(file) : FileLock();
        if (!lock.holds()) {
            continue;
        }
        LeftCopies left{.lock = std::move(lock), .lock_file = file, .copies = {}};
        std::copy_if(files.begin(), files.end(), std::back_inserter(left.copies),
                     [&](const fs::path& other) { return other != file && other.stem() == file.stem(); });
        if (left.copies.empty()) {
            unlink(file.c_str());
        } else {
            all.push_back(std::move(left));
        }
    }
    return all;
}

} // namespace tessit
