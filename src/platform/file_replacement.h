// SPDX-License-Identifier: MIT
// A file that is replaced whole or not at all: the new content is written beside the old file, checked, flushed to
// disk and renamed over it. Guarantees:
// - until `commit` returns, the old file is untouched, byte for byte, whatever happens to the program;
// - after `commit` returns, the new content and its name are on disk;
// - without `commit`, or after a failed write, nothing is left behind.
#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <span>
#include <string>

namespace tessit {

class FileReplacement {
public:
    // Never null. Raises Fault write_failed with the reason when the file can't be created: no such folder, no right to
    // write there, a file marked read-only (for root too), a name too long, a folder or a pipe in its place. A
    // character device is written in place.
    static std::unique_ptr<FileReplacement> create(const std::filesystem::path& target);

    FileReplacement(const FileReplacement&) = delete;
    FileReplacement& operator=(const FileReplacement&) = delete;
    ~FileReplacement();

    // Both raise Fault write_failed when the system refuses; the old file is then still there.
    void write(std::span<const std::uint8_t> bytes);
    void commit();

private:
    FileReplacement(int descriptor, std::filesystem::path target, std::filesystem::path beside);
    void discard();
    [[noreturn]] void fail(int error);

    int descriptor_;
    std::filesystem::path target_;
    std::filesystem::path beside_; // empty when written in place
};

} // namespace tessit
