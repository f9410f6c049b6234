// SPDX-License-Identifier: MIT
#include "platform/folder_item.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tessit {

namespace {

// A pipe without a writer would never open, and a device need have no end.
int open_regular(const std::filesystem::path& path) {
    struct stat status {};
    if (stat(path.c_str(), &status) == 0 && !S_ISREG(status.st_mode)) {
        errno = S_ISDIR(status.st_mode) ? EISDIR : EINVAL;
        return -1;
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
        throw Fault(FaultKind::read_failed,
                    "The file \"" + path.string() + "\" could not be read: " + std::strerror(error) + ".");
    }
    return content;
}

template <class Stream> Ref<Stream> writer_to(const std::filesystem::path& path) {
    auto file = FileReplacement::create(path);
    if (file == nullptr) {
        return Ref<Stream>::nil("The file \"" + path.string() + "\" could not be created.");
    }
    return std::make_unique<Stream>(std::move(file));
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
    return writer_to<BinaryOutputStream>(path_);
}

Ref<TextOutputStream> FolderItem::CreateTextFile() const {
    return writer_to<TextOutputStream>(path_);
}

} // namespace tessit
