// SPDX-License-Identifier: MIT
#include "platform/announced_ports.h"

#include <algorithm>
#include <cstdlib>
#include <sys/stat.h>
#include <unistd.h>

namespace tessit {

namespace fs = std::filesystem;

std::optional<fs::path> announcement_folder() {
    const char* runtime = std::getenv("XDG_RUNTIME_DIR");
    const fs::path folder = runtime != nullptr && *runtime != '\0'
                                ? fs::path(runtime) / "tessit-control"
                                : fs::path("/tmp") / ("tessit-control-" + std::to_string(getuid()));
    mkdir(folder.c_str(), S_IRWXU);
    struct stat status {};
    const bool ours = lstat(folder.c_str(), &status) == 0 && S_ISDIR(status.st_mode) && status.st_uid == getuid() &&
                      (status.st_mode & (S_IWGRP | S_IWOTH)) == 0;
    return ours ? std::optional(folder) : std::nullopt;
}

PortAnnouncement::PortAnnouncement(const std::string& name, const std::string& device) {
    const auto folder = announcement_folder();
    if (!folder) {
        return;
    }
    for (int number = 1; number < 100; ++number) {
        const fs::path link = *folder / (number == 1 ? name : name + " " + std::to_string(number));
        std::error_code error;
        if (!fs::exists(link, error)) {
            fs::remove(link, error); // a generator that was killed leaves a link to nowhere
            fs::create_symlink(device, link, error);
            if (!error) {
                link_ = link;
                return;
            }
        }
    }
}

PortAnnouncement::~PortAnnouncement() {
    std::error_code error;
    if (announced()) {
        fs::remove(link_, error);
    }
}

std::vector<SerialPort> announced_ports() {
    std::vector<SerialPort> ports;
    const auto folder = announcement_folder();
    if (!folder) {
        return ports;
    }
    std::error_code error;
    for (const auto& entry : fs::directory_iterator(*folder, error)) {
        if (fs::exists(entry.path(), error)) {
            ports.push_back({.Name = entry.path().filename().string(), .device = entry.path().string()});
        }
    }
    std::sort(ports.begin(), ports.end(), [](const auto& a, const auto& b) { return a.Name < b.Name; });
    return ports;
}

} // namespace tessit
