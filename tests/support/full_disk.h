// SPDX-License-Identifier: MIT
// While it lives, no file of this process grows beyond a few bytes: writing fails as it does on a full disk.
#pragma once

#include <csignal>
#include <sys/resource.h>

namespace tessit::testing {

class FullDisk {
public:
    explicit FullDisk(rlim_t room = 8) : old_handler_(std::signal(SIGXFSZ, SIG_IGN)) {
        getrlimit(RLIMIT_FSIZE, &old_limit_);
        rlimit limit = old_limit_;
        limit.rlim_cur = room;
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FullDisk() {
        setrlimit(RLIMIT_FSIZE, &old_limit_);
        std::signal(SIGXFSZ, old_handler_);
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

private:
    rlimit old_limit_{};
    void (*old_handler_)(int);
};

} // namespace tessit::testing
