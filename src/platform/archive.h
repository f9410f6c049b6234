// SPDX-License-Identifier: MIT
// Values under names, in a fixed order, to be kept and put back. Their owner has one function that tells what belongs
// to it; the writer takes the values, the reader puts them back. Form: docs/file-formats.md, "Recovery copy".
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace tessit {

class Archive {
public:
    virtual ~Archive() = default;

    virtual bool puts_back() const = 0;
    virtual void text(std::string_view name, std::string& value) = 0;
    void number(std::string_view name, std::int32_t& value);
    void flag(std::string_view name, bool& value);
    void section(std::string_view name); // a name without a value
};

class ArchiveWriter : public Archive {
public:
    bool puts_back() const override { return false; }
    void text(std::string_view name, std::string& value) override;
    const std::string& values() const { return values_; }

private:
    std::string values_;
};

// Raises Fault read_failed where the next value has another name or form, or where no value is left.
class ArchiveReader : public Archive {
public:
    explicit ArchiveReader(std::string_view values) : rest_(values) {}
    bool puts_back() const override { return true; }
    void text(std::string_view name, std::string& value) override;
    bool at_end() const { return rest_.empty(); }

private:
    std::string_view rest_;
};

// An index that was put back, where `first` to `count` - 1 are in order; any other raises Fault read_failed.
void check_put_back(std::int32_t index, std::int32_t first, std::int32_t count);

} // namespace tessit
