// SPDX-License-Identifier: MIT
#include "recovery/recovery_writer.h"

#include "platform/fault.h"

#include <utility>

namespace tessit {

RecoveryWriter::~RecoveryWriter() {
    {
        const std::lock_guard lock(mutex_);
        ending_ = true;
        orders_.clear();
    }
    changed_.notify_all();
    if (thread_.joinable()) {
        thread_.join();
    }
}

void RecoveryWriter::keep(RecoveryCopy copy) {
    const std::string window = copy.window;
    order(window, std::move(copy));
}

void RecoveryWriter::order(const std::string& window, Order what) {
    const std::lock_guard lock(mutex_);
    orders_[window] = std::move(what);
    changed_.notify_all();
    if (!thread_.joinable()) {
        thread_ = std::thread([this] { work(); });
    }
}

bool RecoveryWriter::finish() {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [this] { return orders_.empty() && !writing_; });
    return failed_.empty();
}

void RecoveryWriter::rethrow() {
    std::unique_lock lock(mutex_);
    if (const auto fault = std::exchange(fault_, nullptr)) {
        lock.unlock();
        std::rethrow_exception(fault);
    }
}

void RecoveryWriter::work() {
    std::unique_lock lock(mutex_);
    while (true) {
        changed_.wait(lock, [this] { return ending_ || !orders_.empty(); });
        if (ending_) {
            return;
        }
        const auto next = orders_.extract(orders_.begin());
        writing_ = true;
        lock.unlock();
        carry_out(next.key(), next.mapped());
        lock.lock();
        writing_ = false;
        changed_.notify_all();
    }
}

void RecoveryWriter::carry_out(const std::string& window, const Order& what) {
    try {
        what ? copies_.write(window, recovery_bytes(*what)) : copies_.remove(window);
        const std::lock_guard lock(mutex_);
        failed_.erase(window);
    } catch (const Fault&) {
        const std::lock_guard lock(mutex_);
        failed_.insert(window);
        if (fault_ == nullptr) {
            fault_ = std::current_exception();
        }
    }
}

} // namespace tessit
