// SPDX-License-Identifier: MIT
// Arrays whose index is checked: reading or writing past either end is the runtime's out-of-bounds fault.
#pragma once

#include "platform/fault.h"

#include <array>
#include <cstddef>
#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

namespace tessit {

inline std::size_t checked_index(int index, std::size_t count) {
    if (index < 0 || static_cast<std::size_t>(index) >= count) {
        throw Fault(FaultKind::out_of_bounds, "An array index was out of bounds: " + std::to_string(index) + " of " +
                                                  std::to_string(count) + " elements.");
    }
    return static_cast<std::size_t>(index);
}

// As many elements as it was given.
template <class T> class Array {
public:
    Array() = default;
    Array(std::initializer_list<T> items) : items_(items) {}
    explicit Array(std::vector<T> items) : items_(std::move(items)) {}
    Array(std::size_t count, const T& value) : items_(count, value) {}

    T& operator[](int index) { return items_[checked_index(index, items_.size())]; }
    const T& operator[](int index) const { return items_[checked_index(index, items_.size())]; }

    int count() const { return static_cast<int>(items_.size()); }
    int upper_bound() const { return count() - 1; }
    void append(T item) { items_.push_back(std::move(item)); }
    void resize(int upper_bound) { items_.resize(static_cast<std::size_t>(upper_bound + 1)); } // new ones are empty
    void fill(const T& value) { items_.assign(items_.size(), value); }

    auto begin() const { return items_.begin(); }
    auto end() const { return items_.end(); }

    bool operator==(const Array&) const = default;

private:
    std::vector<T> items_;
};

// Indices 0 to UpperBound, both included.
template <class T, int UpperBound> class FixedArray {
public:
    T& operator[](int index) { return items_[checked_index(index, items_.size())]; }
    const T& operator[](int index) const { return items_[checked_index(index, items_.size())]; }

    static constexpr int upper_bound() { return UpperBound; }
    void fill(const T& value) { items_.fill(value); }

    auto begin() const { return items_.begin(); }
    auto end() const { return items_.end(); }

    bool operator==(const FixedArray&) const = default;

private:
    std::array<T, UpperBound + 1> items_{};
};

} // namespace tessit
