// SPDX-License-Identifier: MIT
// Content that is on the disk when the call returns, or an error.
#pragma once

#include <cstdint>
#include <filesystem>
#include <span>
#include <system_error>

namespace tessit {

std::error_code last_error(); // the system's, of the call before

std::error_code write_all(int descriptor, std::span<const std::uint8_t> bytes); // flushed, but to a device
void flush_folder(const std::filesystem::path& folder); // so that names in it are on the disk too

// In place of what stands in the file or device, which must be there. On an error a file holds a part of either.
std::error_code write_over(const std::filesystem::path& file, std::span<const std::uint8_t> bytes);

// A copy of the file in the folder, for the user alone; gives its place. Its name is the file's with "-" and six
// characters in front of the extension. A folder that is not there is made, for the user alone. Raises
// std::system_error, and then leaves no copy.
std::filesystem::path copy_into(const std::filesystem::path& folder, const std::filesystem::path& file);

} // namespace tessit
