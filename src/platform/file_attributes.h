// SPDX-License-Identifier: MIT
// What a file has beside its content: owner, group, mode, access list and the attributes that users and programs
// gave it.
#pragma once

#include <filesystem>

namespace tessit {

// Gives the open file all that `old` has, as far as the system allows. A user who is not root can't give a file to
// another owner, or to a group that is not his own; a group that can't be kept gets no more rights than others have.
void keep_attributes(const std::filesystem::path& old, int descriptor);

// The mode of a new file, by the process's umask.
void set_mode_of_new_file(int descriptor);

} // namespace tessit
