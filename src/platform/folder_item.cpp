// SPDX-License-Identifier: MIT
#include "platform/folder_item.h"

#include "platform/file_kind.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tessit {

namespace {

[[noreturn]] void cannot_be_read(const std::filesystem::path& path, const char* reason) {
    throw Fault(FaultKind::read_failed, "The file \"" + path.string() + "\" could not be read: " + reason + ".");
}

// A pipe without a writer would never open, and a device need have no end.
int open_regular(const std::filesystem::path& path) {
    struct stat status {};
    const char* reason = stat(path.c_str(), &status) == 0 ? why_no_ordinary_file(status.st_mode) : nullptr;
    if (reason != nullptr) {
        cannot_be_read(path, reason);
    }
    return open(path.c_str(), O_RDONLY | O_CLOEXEC);
}

template <class Container> Container content_of(const std::filesystem::path& path) {
    Container content;
    const int descriptor = open_regular(path);
    ssize_t count = descriptor < 0 ? -1 : 1;
    while (count > 0) {
        char block[65536];
        count = read(descriptor, block, sizeof block);
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
    return std::filesystem::exists(path_, error);
}

Ref<BinaryInputStream> FolderItem::OpenAsBinaryFile() const {
    return std::make_unique<BinaryInputStream>(content_of<std::vector<std::uint8_t>>(path_));
}

Ref<TextInputStream> FolderItem::OpenAsTextFile() const {
    return std::make_unique<TextInputStream>(content_of<std::string>(path_));
}

Ref<BinaryOutputStream> FolderItem::CreateBinaryFile(const std::string&) const {
    return std::make_unique<BinaryOutputStream>(FileReplacement::create(path_));
}

Ref<TextOutputStream> FolderItem::CreateTextFile() const {
    return std::make_unique<TextOutputStream>(FileReplacement::create(path_));
}

} // namespace tessit
