// SPDX-License-Identifier: MIT
#include "platform/file_replacement.h"

#include "platform/fault.h"
#include "platform/file_kind.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <optional>
#include <string>
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

[[noreturn]] void cannot_be_created(const fs::path& target, const std::string& reason) {
    throw Fault(FaultKind::write_failed, "The file \"" + target.string() + "\" could not be created: " + reason + ".");
}

// The mode of the file that is to be replaced; none where nothing is yet.
std::optional<mode_t> mode_to_keep(const fs::path& target, const fs::path& file) {
    struct stat status = {};
    if (stat(file.c_str(), &status) != 0) {
        if (errno != ENOENT) {
            cannot_be_created(target, std::strerror(errno));
        }
        return std::nullopt;
    }
    const char* reason = why_no_ordinary_file(status.st_mode);
    if (reason != nullptr && !S_ISCHR(status.st_mode)) {
        cannot_be_created(target, reason);
    }
    if (reason == nullptr && (status.st_mode & any_write_bit) == 0) {
        cannot_be_created(target, std::strerror(EACCES));
    }
    if (access(file.c_str(), W_OK) != 0) {
        cannot_be_created(target, std::strerror(errno));
    }
    return status.st_mode;
}

} // namespace

std::unique_ptr<FileReplacement> FileReplacement::create(const fs::path& target) {
    const fs::path file = resolved(target);
    const auto old_mode = mode_to_keep(target, file);
    const bool in_place = old_mode && S_ISCHR(*old_mode);
    std::string beside = in_place ? "" : (file.parent_path() / ".tessit-XXXXXX").string();
    const int descriptor = in_place ? open(file.c_str(), O_WRONLY | O_CLOEXEC) : mkostemp(beside.data(), O_CLOEXEC);
    if (descriptor < 0) {
        cannot_be_created(target, std::strerror(errno));
    }
    if (!in_place) {
        fchmod(descriptor, old_mode ? *old_mode & 07777 : default_mode());
    }
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
