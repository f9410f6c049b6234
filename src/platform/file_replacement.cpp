// SPDX-License-Identifier: MIT
#include "platform/file_replacement.h"

#include "platform/fault.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace tessit {

namespace fs = std::filesystem;

namespace {

constexpr mode_t any_write_bit = S_IWUSR | S_IWGRP | S_IWOTH;

// Through links to the file itself, there or not yet, so that a link stays a link.
fs::path resolved(const fs::path& target) {
    constexpr int most_links = 40; // as many as the system follows
    std::error_code error;
    fs::path file = target;
    for (int links = 0; links < most_links && fs::is_symlink(file, error); ++links) {
        file = file.parent_path() / fs::read_symlink(file, error);
    }
    fs::path result = fs::weakly_canonical(file, error);
    return error ? target : result;
}

mode_t default_mode() {
    const mode_t mask = umask(0);
    umask(mask);
    return 0666 & ~mask;
}

void sync_folder(const fs::path& folder) {
    const int descriptor = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor >= 0) {
        fsync(descriptor);
        close(descriptor);
    }
}

} // namespace

std::unique_ptr<FileReplacement> FileReplacement::create(const fs::path& target) {
    const fs::path file = resolved(target);
    struct stat status {};
    const bool exists = stat(file.c_str(), &status) == 0;
    if (exists && !S_ISREG(status.st_mode)) {
        const int descriptor = S_ISCHR(status.st_mode) ? open(file.c_str(), O_WRONLY | O_CLOEXEC) : -1;
        return descriptor < 0 ? nullptr
                              : std::unique_ptr<FileReplacement>(new FileReplacement(descriptor, file, fs::path()));
    }
    if (exists && ((status.st_mode & any_write_bit) == 0 || access(file.c_str(), W_OK) != 0)) {
        return nullptr;
    }
    std::string beside = (file.parent_path() / ".tessit-XXXXXX").string();
    const int descriptor = mkostemp(beside.data(), O_CLOEXEC);
    if (descriptor < 0) {
        return nullptr;
    }
    fchmod(descriptor, exists ? status.st_mode & 07777 : default_mode());
    return std::unique_ptr<FileReplacement>(new FileReplacement(descriptor, file, beside));
}

FileReplacement::FileReplacement(int descriptor, fs::path target, fs::path beside)
    : descriptor_(descriptor), target_(std::move(target)), beside_(std::move(beside)) {}

FileReplacement::~FileReplacement() {
    discard();
}

void FileReplacement::write(std::span<const std::uint8_t> bytes) {
    while (!bytes.empty()) {
        const ssize_t written = ::write(descriptor_, bytes.data(), bytes.size());
        if (written < 0 && errno != EINTR) {
            fail(errno);
        }
        bytes = bytes.subspan(written < 0 ? 0 : static_cast<std::size_t>(written));
    }
}

void FileReplacement::commit() {
    if (fsync(descriptor_) != 0 && !beside_.empty()) {
        fail(errno);
    }
    if (close(std::exchange(descriptor_, -1)) != 0) {
        fail(errno);
    }
    if (!beside_.empty()) {
        if (rename(beside_.c_str(), target_.c_str()) != 0) {
            fail(errno);
        }
        beside_.clear();
        sync_folder(target_.parent_path());
    }
}

void FileReplacement::discard() {
    if (descriptor_ >= 0) {
        close(std::exchange(descriptor_, -1));
    }
    if (!beside_.empty()) {
        unlink(std::exchange(beside_, fs::path()).c_str());
    }
}

void FileReplacement::fail(int error) {
    discard();
    throw Fault(FaultKind::write_failed,
                "The file \"" + target_.string() + "\" could not be written: " + std::strerror(error) + ".");
}

} // namespace tessit
