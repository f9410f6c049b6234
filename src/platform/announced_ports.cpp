// SPDX-License-Identifier: MIT
#include "platform/announced_ports.h"

#include <algorithm>
#include <cstdlib>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tessit {

namespace fs = std::filesystem;

namespace {

constexpr int nothing_open = -1;

// Alone in the folder for as long as this object lives, which is never long: else one could remove what another is
// just making.
class FolderTurn {
public:
    explicit FolderTurn(const fs::path& folder)
        : descriptor_(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {
        flock(descriptor_, LOCK_EX);
    }
    ~FolderTurn() { close(descriptor_); }
    FolderTurn(const FolderTurn&) = delete;
    FolderTurn& operator=(const FolderTurn&) = delete;

private:
    int descriptor_;
};

fs::path lock_file(const fs::path& link) {
    return link.parent_path() / ("." + link.filename().string() + ".lock");
}

// The lock's descriptor; `nothing_open` while a running generator holds it.
int take_lock(const fs::path& link) {
    const int descriptor = open(lock_file(link).c_str(), O_RDWR | O_CREAT | O_NOFOLLOW | O_CLOEXEC, S_IRUSR | S_IWUSR);
    if (descriptor >= 0 && flock(descriptor, LOCK_EX | LOCK_NB) != 0) {
        close(descriptor);
        return nothing_open;
    }
    return descriptor;
}

void remove_announcement(const fs::path& link, int lock) {
    std::error_code error;
    fs::remove(link, error);
    fs::remove(lock_file(link), error);
    close(lock);
}

bool generator_runs(const fs::path& link) {
    const int lock = take_lock(link);
    if (lock != nothing_open) {
        remove_announcement(link, lock);
    }
    return lock == nothing_open;
}

} // namespace

std::optional<fs::path> announcement_folder() {
    const char* runtime = std::getenv("XDG_RUNTIME_DIR");
    const fs::path folder = runtime != nullptr && *runtime != '\0'
                                ? fs::path(runtime) / "tessit-control"
                                : fs::path("/tmp") / ("tessit-control-" + std::to_string(getuid()));
    mkdir(folder.c_str(), S_IRWXU);
    struct stat status = {};
    const bool ours = lstat(folder.c_str(), &status) == 0 && S_ISDIR(status.st_mode) && status.st_uid == getuid() &&
                      (status.st_mode & (S_IWGRP | S_IWOTH)) == 0;
    return ours ? std::optional(folder) : std::nullopt;
}

PortAnnouncement::PortAnnouncement(const std::string& name, const std::string& device) {
    const auto folder = announcement_folder();
    if (!folder) {
        return;
    }
    const FolderTurn turn(*folder);
    for (int number = 1; number < 100 && !announced(); ++number) {
        const fs::path link = *folder / (number == 1 ? name : name + " " + std::to_string(number));
        const int lock = take_lock(link);
        if (lock == nothing_open) {
            continue;
        }
        std::error_code error;
        fs::remove(link, error); // a generator that was killed leaves its link behind
        fs::create_symlink(device, link, error);
        if (error) {
            remove_announcement(link, lock);
        } else {
            link_ = link;
            lock_ = lock;
        }
    }
}

PortAnnouncement::~PortAnnouncement() {
    if (announced()) {
        const FolderTurn turn(link_.parent_path());
        remove_announcement(link_, lock_);
    }
}

std::vector<SerialPort> announced_ports() {
    std::vector<SerialPort> ports;
    const auto folder = announcement_folder();
    if (!folder) {
        return ports;
    }
    const FolderTurn turn(*folder);
    std::error_code error;
    for (const auto& entry : fs::directory_iterator(*folder, error)) {
        if (entry.is_symlink(error) && generator_runs(entry.path()) && fs::exists(entry.path(), error)) {
            ports.push_back({.Name = entry.path().filename().string(), .device = entry.path().string()});
        }
    }
    std::sort(ports.begin(), ports.end(), [](const auto& a, const auto& b) { return a.Name < b.Name; });
    return ports;
}

bool announcement_holds(const SerialPort& port) {
    const fs::path link = port.device;
    const auto folder = announcement_folder();
    if (!folder || link.parent_path() != *folder) {
        return true; // a port of the system
    }
    const FolderTurn turn(*folder);
    return generator_runs(link);
}

} // namespace tessit
