// SPDX-License-Identifier: MIT
#include "platform/file_replacement.h"

#include "platform/fault.h"
#include "platform/file_attributes.h"
#include "platform/file_kind.h"
#include "platform/file_writing.h"
#include "platform/user_folders.h"

#include <cerrno>
#include <cstring>
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

[[noreturn]] void cannot_be_created(const fs::path& target, const std::string& reason) {
    throw Fault(FaultKind::write_failed, "The file \"" + target.string() + "\" could not be created: " + reason + ".");
}

enum class Old { none, file, device };

Old what_is_there(const fs::path& target, const fs::path& file) {
    struct stat status = {};
    if (stat(file.c_str(), &status) != 0) {
        if (errno != ENOENT) {
            cannot_be_created(target, std::strerror(errno));
        }
        return Old::none;
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
    return reason == nullptr ? Old::file : Old::device;
}

// A folder that is not the user's to change, by its rights or by its "sticky" mark, or a file that is mounted there.
bool is_about_the_folder(const std::error_code& error) {
    return error == std::errc::permission_denied || error == std::errc::operation_not_permitted ||
           error == std::errc::device_or_resource_busy;
}

std::unique_ptr<UnfinishedFile> unfinished_beside(const fs::path& target, const fs::path& file, Old old) {
    try {
        auto beside = std::make_unique<UnfinishedFile>(file.parent_path());
        if (old == Old::file) {
            keep_attributes(file, beside->descriptor());
        } else {
            set_mode_of_new_file(beside->descriptor());
        }
        return beside;
    } catch (const std::system_error& error) {
        if (old == Old::none || user_recovery_folder().empty() || !is_about_the_folder(error.code())) {
            cannot_be_created(target, error.code().message());
        }
        return nullptr;
    }
}

} // namespace

std::unique_ptr<FileReplacement> FileReplacement::create(const fs::path& target) {
    const fs::path file = resolved(target);
    const Old old = what_is_there(target, file);
    auto beside = old == Old::device ? nullptr : unfinished_beside(target, file, old);
    return std::unique_ptr<FileReplacement>(new FileReplacement(file, std::move(beside)));
}

FileReplacement::FileReplacement(fs::path target, std::unique_ptr<UnfinishedFile> beside)
    : target_(std::move(target)), beside_(std::move(beside)) {}

void FileReplacement::write(std::span<const std::uint8_t> bytes) {
    bytes_.insert(bytes_.end(), bytes.begin(), bytes.end());
}

void FileReplacement::commit() {
    const auto beside = std::move(beside_);
    if (beside == nullptr || !replace_by(*beside)) {
        write_in_place();
    }
}

// False where the system lets the user make files in the folder but not replace this one.
bool FileReplacement::replace_by(UnfinishedFile& beside) const {
    if (const std::error_code error = write_all(beside.descriptor(), bytes_)) {
        fail(error);
    }
    const std::error_code error = beside.rename_to(target_);
    if (error && (user_recovery_folder().empty() || !is_about_the_folder(error))) {
        fail(error);
    }
    return !error;
}

void FileReplacement::write_in_place() const {
    const bool device = fs::is_character_file(target_);
    const fs::path copy = device ? fs::path() : copied();
    if (const std::error_code error = write_over(target_, bytes_)) {
        fail(error, device ? "" : " A copy of the file as it was is in \"" + copy.string() + "\".");
    }
    if (!device) {
        unlink(copy.c_str());
    }
}

fs::path FileReplacement::copied() const {
    const fs::path copy_folder = user_recovery_folder();
    try {
        return copy_into(copy_folder, target_);
    } catch (const std::system_error& error) {
        fail(error.code(), " No copy of the old file could be made in \"" + copy_folder.string() + "\" first.");
    }
}

void FileReplacement::fail(const std::error_code& error, const std::string& advice) const {
    throw Fault(FaultKind::write_failed,
                "The file \"" + target_.string() + "\" could not be written: " + error.message() + "." + advice);
}

} // namespace tessit
