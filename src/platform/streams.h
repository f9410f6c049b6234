// SPDX-License-Identifier: MIT
// Streams over files. Reading takes the file whole when it is opened and never fails afterwards. Writing keeps
// everything until Close, which replaces the old file whole (file_replacement.h); a stream that is dropped without
// Close leaves the old file as it was.
#pragma once

#include "platform/file_replacement.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace tessit {

class BinaryInputStream {
public:
    explicit BinaryInputStream(std::vector<std::uint8_t> bytes) : bytes_(std::move(bytes)) {}

    bool EndOfFile() const { return next_ >= bytes_.size(); }
    std::uint8_t ReadByte() { return EndOfFile() ? std::uint8_t{0} : bytes_[next_++]; } // past the end: 0
    std::int8_t ReadInt8() { return static_cast<std::int8_t>(ReadByte()); }
    void Close() { next_ = bytes_.size(); }

private:
    std::vector<std::uint8_t> bytes_;
    std::size_t next_ = 0;
};

class BinaryOutputStream {
public:
    explicit BinaryOutputStream(std::unique_ptr<FileReplacement> file) : file_(std::move(file)) {}

    void WriteInt8(int value) { bytes_.push_back(static_cast<std::uint8_t>(value)); } // the low byte
    void Close();                                                                     // raises Fault write_failed

private:
    std::unique_ptr<FileReplacement> file_;
    std::vector<std::uint8_t> bytes_;
};

class TextInputStream {
public:
    explicit TextInputStream(std::string text) : text_(std::move(text)) {}

    const std::string& ReadAll() const { return text_; } // bytes as they stand in the file
    void Close() {}

private:
    std::string text_;
};

class TextOutputStream {
public:
    explicit TextOutputStream(std::unique_ptr<FileReplacement> file) : file_(std::move(file)) {}

    void Write(std::string_view text) { text_ += text; }
    void WriteLine(std::string_view text) { (text_ += text) += '\n'; } // the system's line end
    void Close();                                                      // raises Fault write_failed

private:
    std::unique_ptr<FileReplacement> file_;
    std::string text_;
};

} // namespace tessit
