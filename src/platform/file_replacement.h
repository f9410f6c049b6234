// SPDX-License-Identifier: MIT
// A file that is replaced whole or not at all: the new content is written beside the old file (unfinished_file.h),
// flushed to disk and renamed over it. Guarantees:
// - until `commit` returns, the old file is untouched, byte for byte, whatever happens to the program;
// - after `commit` returns, the new content and its name are on disk, and owner, group, mode and access list are the
//   old file's, as far as the system allows (file_attributes.h);
// - without `commit`, or after a failed one, nothing is left behind.
//
// Where the user may write the file but nothing beside it, it is written in place. A copy of the old file is made in
// the user's recovery folder (user_folders.h) first and flushed to disk; it goes when the new content is on disk. It
// stays when the process is killed in between, and when the write fails, whose fault then names it. Its name is the
// file's with six characters in front of the extension: "night-a8Xk2P.zp2".
#pragma once

#include "platform/unfinished_file.h"

#include <cstdint>
#include <filesystem>
#include <memory>
#include <span>
#include <string>
#include <vector>

namespace tessit {

class FileReplacement {
public:
    // Never null. Raises Fault write_failed with the reason when the file can't be created: no such folder, no right to
    // write there, a file marked read-only (for root too), a name too long, a folder or a pipe in its place. A
    // character device is written in place.
    static std::unique_ptr<FileReplacement> create(const std::filesystem::path& target);

    FileReplacement(const FileReplacement&) = delete;
    FileReplacement& operator=(const FileReplacement&) = delete;

    void write(std::span<const std::uint8_t> bytes); // kept until `commit`
    void commit();                                   // once; raises Fault write_failed when the system refuses

private:
    FileReplacement(std::filesystem::path target, std::unique_ptr<UnfinishedFile> beside);
    bool replace_by(UnfinishedFile& beside) const;
    void write_in_place() const;
    std::filesystem::path copied() const;
    [[noreturn]] void fail(const std::error_code& error, const std::string& advice = "") const;

    const std::filesystem::path target_;
    std::unique_ptr<UnfinishedFile> beside_; // null where nothing can be made beside the target
    std::vector<std::uint8_t> bytes_;
};

} // namespace tessit
