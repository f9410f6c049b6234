// SPDX-License-Identifier: MIT
// How a running emulated generator tells the program of its pseudo-terminal: a link "NAME" to the device in a
// per-user folder that nobody else can write to ($XDG_RUNTIME_DIR/tessit-control, else
// /tmp/tessit-control-UID with mode 0700). A folder that another user owns or may write to is not used. Beside the link
// the generator keeps a lock on a hidden file ".NAME.lock", which the system lets go however the generator ends: the
// number of a killed one's pseudo-terminal is soon another's.
#pragma once

#include "platform/serial.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace tessit {

// Makes the folder where it is missing; none when it can't be had or can't be trusted.
std::optional<std::filesystem::path> announcement_folder();

// Present while this object lives. A name in use by a running generator gets a number behind it.
class PortAnnouncement {
public:
    PortAnnouncement(const std::string& name, const std::string& device);
    ~PortAnnouncement();
    PortAnnouncement(const PortAnnouncement&) = delete;
    PortAnnouncement& operator=(const PortAnnouncement&) = delete;

    bool announced() const { return !link_.empty(); }
    std::string name() const { return link_.filename().string(); }

private:
    std::filesystem::path link_; // empty when it could not be made
    int lock_ = -1;
};

// In alphabetical order. Links whose device is gone are left out; those whose generator is gone are removed.
std::vector<SerialPort> announced_ports();

// False for a port that was listed above and whose generator is gone by now: its device may be another's already.
bool announcement_holds(const SerialPort& port);

} // namespace tessit
