// SPDX-License-Identifier: MIT
#include "platform/port_lock.h"

#include <cerrno>
#include <cstdio>
#include <fstream>
#include <sstream>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>

namespace tessit {

namespace {

// As the system's list of locks names a file: "00:18:5".
std::string name_in_list(const struct stat& file) {
    char name[64];
    std::snprintf(name, sizeof name, "%02x:%02x:%llu", major(file.st_dev), minor(file.st_dev),
                  static_cast<unsigned long long>(file.st_ino));
    return name;
}

std::string program_of(int process) {
    std::string name;
    std::getline(std::ifstream("/proc/" + std::to_string(process) + "/comm"), name);
    return name;
}

} // namespace

bool lock_port(int descriptor) {
    return flock(descriptor, LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK;
}

// A line of the list: "1: FLOCK  ADVISORY  WRITE 708 00:18:5 0 EOF".
std::optional<PortHolder> lock_holder(const SerialPort& port) {
    struct stat device = {};
    if (stat(port.device.c_str(), &device) != 0) {
        return std::nullopt;
    }
    std::ifstream locks("/proc/locks");
    for (std::string line; std::getline(locks, line);) {
        std::istringstream words(line);
        std::string number, kind, strictness, access, file;
        int process = 0;
        if (words >> number >> kind >> strictness >> access >> process >> file && process > 0 &&
            file == name_in_list(device)) {
            return PortHolder{.program = program_of(process), .process = process};
        }
    }
    return std::nullopt;
}

} // namespace tessit
