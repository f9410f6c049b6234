// SPDX-License-Identifier: MIT
// Writes this program's recovery copies in a thread of its own, so that nobody waits for the disk.
#pragma once

#include "recovery/recovery_copy.h"
#include "recovery/recovery_folder.h"

#include <condition_variable>
#include <exception>
#include <filesystem>
#include <map>
#include <mutex>
#include <optional>
#include <set>
#include <string>
#include <thread>

namespace tessit {

class RecoveryWriter {
public:
    explicit RecoveryWriter(const std::filesystem::path& folder) : copies_(folder) {}
    ~RecoveryWriter(); // the program ends as it should: no copy stays

    // Both return at once. Of several orders for a window the last one counts.
    void keep(RecoveryCopy copy);
    void drop(const std::string& window) { order(window, std::nullopt); }

    bool finish();  // returns when nothing is left to be written; false: a window's last order could not be carried out
    void rethrow(); // the first fault since the last time, if there was one

private:
    using Order = std::optional<RecoveryCopy>; // none: remove the copy

    void order(const std::string& window, Order what);
    void work();
    void carry_out(const std::string& window, const Order& what);

    OwnCopies copies_; // the thread's alone, until it has ended
    std::mutex mutex_; // of what follows
    std::condition_variable changed_;
    std::map<std::string, Order> orders_;
    std::set<std::string> failed_; // windows
    std::exception_ptr fault_;
    bool writing_ = false;
    bool ending_ = false;
    std::thread thread_; // from the first order on
};

} // namespace tessit
