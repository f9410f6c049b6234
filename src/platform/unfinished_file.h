// SPDX-License-Identifier: MIT
// The work on a file before it takes its place: a file of its own in the same folder, named like ".tessit-a8Xk2P", with
// a lock (flock) on it from its making until it is renamed or removed. The system drops the lock with the process,
// however that ends, so a file of this name without one was left behind by a dead process. The next file made in the
// folder removes it, where it is the user's own. A file system that knows no locks keeps what was left behind.
#pragma once

#include <filesystem>
#include <system_error>

namespace tessit {

class UnfinishedFile {
public:
    // Readable by the user alone. Raises std::system_error with the system's reason when it can't be made.
    explicit UnfinishedFile(const std::filesystem::path& folder);
    UnfinishedFile(const UnfinishedFile&) = delete;
    UnfinishedFile& operator=(const UnfinishedFile&) = delete;
    ~UnfinishedFile(); // removed, where it was not renamed

    int descriptor() const { return descriptor_; }
    std::error_code rename_to(const std::filesystem::path& file); // and the folder flushed to disk

private:
    std::filesystem::path path_; // empty once it is renamed
    int descriptor_ = -1;
};

} // namespace tessit
