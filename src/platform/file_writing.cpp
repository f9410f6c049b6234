// SPDX-License-Identifier: MIT
#include "platform/file_writing.h"

#include <array>
#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

namespace tessit {

namespace fs = std::filesystem;

namespace {

// A file that is open, closed with it.
struct OpenFile {
    explicit OpenFile(int opened) : descriptor(opened) {
        if (descriptor < 0) {
            throw std::system_error(last_error());
        }
    }
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;
    ~OpenFile() { close(descriptor); }

    const int descriptor;
};

std::error_code flush(int descriptor) {
    const bool flushed = fsync(descriptor) == 0 || errno == EINVAL; // as devices say that keep nothing
    return flushed ? std::error_code() : last_error();
}

std::error_code write_unflushed(int descriptor, std::span<const std::uint8_t> bytes) {
    while (!bytes.empty()) {
        const ssize_t written = write(descriptor, bytes.data(), bytes.size());
        if (written < 0 && errno != EINTR) {
            return last_error();
        }
        bytes = bytes.subspan(written < 0 ? 0 : static_cast<std::size_t>(written));
    }
    return {};
}

std::error_code copy_content(int from, int to) {
    std::array<std::uint8_t, 65536> block{};
    for (;;) {
        const ssize_t count = read(from, block.data(), block.size());
        if (count <= 0) {
            return count == 0 ? flush(to) : last_error();
        }
        if (const auto error = write_unflushed(to, {block.data(), static_cast<std::size_t>(count)})) {
            return error;
        }
    }
}

std::error_code cut_to(int descriptor, std::size_t size) {
    struct stat status = {};
    const bool cut = fstat(descriptor, &status) == 0 &&
                     (!S_ISREG(status.st_mode) || ftruncate(descriptor, static_cast<off_t>(size)) == 0);
    return cut ? std::error_code() : last_error();
}

void make_for_the_user_alone(const fs::path& folder) {
    if (fs::create_directories(folder)) {
        fs::permissions(folder, fs::perms::owner_all);
    }
}

} // namespace

std::error_code last_error() {
    return {errno, std::generic_category()};
}

std::error_code write_all(int descriptor, std::span<const std::uint8_t> bytes) {
    const std::error_code error = write_unflushed(descriptor, bytes);
    return error ? error : flush(descriptor);
}

void flush_folder(const fs::path& folder) {
    const int descriptor = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor >= 0) {
        fsync(descriptor);
        close(descriptor);
    }
}

std::error_code write_over(const fs::path& file, std::span<const std::uint8_t> bytes) {
    const int descriptor = open(file.c_str(), O_WRONLY | O_CLOEXEC);
    if (descriptor < 0) {
        return last_error();
    }
    std::error_code error = write_unflushed(descriptor, bytes);
    if (!error) {
        error = cut_to(descriptor, bytes.size());
    }
    if (!error) {
        error = flush(descriptor);
    }
    if (close(descriptor) != 0 && !error) {
        error = last_error();
    }
    return error;
}

fs::path copy_into(const fs::path& folder, const fs::path& file) {
    constexpr std::size_t longest_stem = 200; // of the 255 bytes that a name may have
    constexpr std::size_t longest_extension = 40;
    make_for_the_user_alone(folder);
    const OpenFile from(open(file.c_str(), O_RDONLY | O_CLOEXEC));
    const std::string extension = file.extension().string().substr(0, longest_extension);
    std::string copy = (folder / (file.stem().string().substr(0, longest_stem) + "-XXXXXX" + extension)).string();
    const OpenFile to(mkostemps(copy.data(), static_cast<int>(extension.size()), O_CLOEXEC));
    if (const auto error = copy_content(from.descriptor, to.descriptor)) {
        unlink(copy.c_str());
        throw std::system_error(error);
    }
    flush_folder(folder);
    return copy;
}

} // namespace tessit
