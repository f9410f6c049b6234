// SPDX-License-Identifier: MIT
#include "platform/streams.h"

#include <span>

namespace tessit {

void BinaryOutputStream::Close() {
    file_->write(bytes_);
    file_->commit();
}

void TextOutputStream::Close() {
    file_->write({reinterpret_cast<const std::uint8_t*>(text_.data()), text_.size()});
    file_->commit();
}

} // namespace tessit
