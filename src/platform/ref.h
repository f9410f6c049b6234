// SPDX-License-Identifier: MIT
// An owning reference that may be nil. Using it while it is nil is the runtime's nil-object fault.
#pragma once

#include "platform/fault.h"

#include <memory>
#include <utility>

namespace tessit {

template <class T> class Ref {
public:
    Ref() = default;
    Ref(std::unique_ptr<T> object) : object_(std::move(object)) {}

    bool is_nil() const { return object_ == nullptr; }
    T* operator->() const { return &get(); }
    T& operator*() const { return get(); }

    T& get() const {
        if (object_ == nullptr) {
            throw Fault(FaultKind::nil_object, "An object that does not exist was used.");
        }
        return *object_;
    }

private:
    std::unique_ptr<T> object_;
};

} // namespace tessit
