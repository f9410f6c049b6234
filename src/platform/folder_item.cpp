// SPDX-License-Identifier: MIT
#include "platform/folder_item.h"

#include "platform/file_kind.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tessit {

namespace {

[[noreturn]] void cannot_be_read(const std::filesystem::path& path, const std::string& reason) {
    throw Fault(FaultKind::read_failed, "The file \"" + path.string() + "\" could not be read: " + reason + ".");
}

// A pipe without a writer would never open, and a device need have no end.
int open_regular(const std::filesystem::path& path) {
    struct stat status = {};
    const char* reason = stat(path.c_str(), &status) == 0 ? why_no_ordinary_file(status.st_mode) : nullptr;
    if (reason != nullptr) {
        cannot_be_read(path, reason);
    }
    return open(path.c_str(), O_RDONLY | O_CLOEXEC);
}

template <class Container> Container content_of(const std::filesystem::path& path, std::size_t most) {
    Container content;
    const int descriptor = open_regular(path);
    ssize_t count = descriptor < 0 ? -1 : 1;
    while (count > 0 && content.size() < most) {
        char block[65536];
        count = read(descriptor, block, std::min(sizeof block, most - content.size()));
        if (count > 0) {
            content.insert(content.end(), block, block + count);
        }
    }
    const int error = errno;
    if (descriptor >= 0) {
        close(descriptor);
    }
    if (count < 0) {
        cannot_be_read(path, std::strerror(error));
    }
    return content;
}

} // namespace

bool FolderItem::Exists() const {
    std::error_code error;
    return std::filesystem::exists(path_, error) || error; // what can't be looked at must not be taken for missing
}

Ref<BinaryInputStream> FolderItem::OpenAsBinaryFile(std::size_t most) const {
    return std::make_unique<BinaryInputStream>(content_of<std::vector<std::uint8_t>>(path_, most));
}

Ref<TextInputStream> FolderItem::OpenAsTextFile(std::size_t most) const {
    auto text = content_of<std::string>(path_, most + 1);
    if (text.size() > most) {
        cannot_be_read(path_, "It is longer than " + std::to_string(most) + " bytes");
    }
    return std::make_unique<TextInputStream>(std::move(text));
}

Ref<BinaryOutputStream> FolderItem::CreateBinaryFile(const std::string&) const {
    return std::make_unique<BinaryOutputStream>(FileReplacement::create(path_));
}

Ref<TextOutputStream> FolderItem::CreateTextFile() const {
    return std::make_unique<TextOutputStream>(FileReplacement::create(path_));
}

} // namespace tessit
