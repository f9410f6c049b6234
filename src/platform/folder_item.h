// SPDX-License-Identifier: MIT
// A place in the file system, and the file types of dialogs.
#pragma once

#include "platform/ref.h"
#include "platform/streams.h"

#include <cstddef>
#include <filesystem>
#include <limits>
#include <string>

namespace tessit {

// A filter of the open and save dialogs.
struct FileType {
    std::string Name;       // as shown
    std::string MacType;    // kept with the file type; no file system here stores it
    std::string Extensions; // with its point, such as ".zp2"
};

class FolderItem {
public:
    FolderItem() = default;
    explicit FolderItem(std::filesystem::path path) : path_(std::move(path)) {}

    std::string AbsolutePath() const { return std::filesystem::absolute(path_).string(); }
    std::string DisplayName() const { return path_.filename().string(); } // with its extension
    FolderItem Parent() const { return FolderItem(path_.parent_path()); }
    FolderItem Child(const std::string& name) const { return FolderItem(path_ / name); }
    bool Exists() const; // also where the system can't tell: opening it then gives the reason
    const std::filesystem::path& path() const { return path_; }

    // Raise Fault read_failed with the reason when the file can't be read. Of a binary file no more than `most` bytes
    // are taken; a text is read whole or, where it is longer, not at all.
    Ref<BinaryInputStream> OpenAsBinaryFile(std::size_t most = any_length) const;
    Ref<TextInputStream> OpenAsTextFile(std::size_t most = any_length) const;
    static constexpr std::size_t any_length = std::numeric_limits<std::size_t>::max() / 2;

    // Never nil; raise Fault write_failed with the reason when the file can't be created. The type tells other systems
    // what the file is; nothing here stores it.
    Ref<BinaryOutputStream> CreateBinaryFile(const std::string& type) const;
    Ref<TextOutputStream> CreateTextFile() const;

private:
    std::filesystem::path path_;
};

} // namespace tessit
