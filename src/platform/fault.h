// SPDX-License-Identifier: MIT
// A fault of the runtime: an index out of bounds, a nil object, a failed write. Handlers do not catch it; the
// outermost event does (application.h), shows one report and lets the program go on.
#pragma once

#include <stdexcept>
#include <string>

namespace tessit {

enum class FaultKind { out_of_bounds, nil_object, read_failed, write_failed, internal };

class Fault : public std::runtime_error {
public:
    Fault(FaultKind kind, const std::string& what) : std::runtime_error(what), kind_(kind) {}

    FaultKind kind() const { return kind_; }

    // The innermost handler that the fault passed on its way out; empty until then.
    const std::string& handler() const { return handler_; }
    void stamp(const std::string& handler) {
        if (handler_.empty()) {
            handler_ = handler;
        }
    }

private:
    FaultKind kind_;
    std::string handler_;
};

// What the one report says of a fault.
struct FaultReport {
    FaultKind kind = FaultKind::internal;
    std::string what;    // one sentence for the user, in UTF-8
    std::string handler; // such as "editwindow.enterbutton_Action"

    bool operator==(const FaultReport&) const = default;
};

} // namespace tessit
