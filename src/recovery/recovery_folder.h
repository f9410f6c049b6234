// SPDX-License-Identifier: MIT
// Recovery copies on the disk. Each program that keeps copies holds a lock on a file PROCESS-RANDOM.lock as long as it
// lives, and its copies lie beside it as PROCESS-RANDOM.WINDOW. A lock that can be had is that of a program that is no
// more.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace tessit {

// A file that is locked for this process, or nothing.
class FileLock {
public:
    FileLock() = default;
    explicit FileLock(const std::filesystem::path& file); // holds nothing where the file can't be opened or is locked
    FileLock(FileLock&& other) noexcept;
    FileLock& operator=(FileLock&& other) noexcept;
    ~FileLock();

    bool holds() const { return descriptor_ >= 0; }

private:
    int descriptor_ = -1;
};

// This program's own copies. Folder and lock come with the first one.
class OwnCopies {
public:
    explicit OwnCopies(std::filesystem::path folder) : folder_(std::move(folder)) {}
    ~OwnCopies() { remove_all(); }
    OwnCopies(const OwnCopies&) = delete;
    OwnCopies& operator=(const OwnCopies&) = delete;

    void write(const std::string& window, const std::string& bytes); // whole and on the disk, or Fault write_failed
    void remove(const std::string& window);
    void remove_all(); // and the lock

private:
    std::filesystem::path copy_of(const std::string& window) const;
    void begin();

    std::filesystem::path folder_;
    std::string stem_; // of the file names; empty before the first copy
    FileLock lock_;
    std::vector<std::string> windows_;
};

// What one program that is no more left behind; no other program takes it as long as this object lives.
struct LeftCopies {
    FileLock lock;
    std::filesystem::path lock_file;
    std::vector<std::filesystem::path> copies;

    void remove(); // from the disk
};

std::vector<LeftCopies> left_copies(const std::filesystem::path& folder); // in no order; empty locks are tidied away

} // namespace tessit
