// SPDX-License-Identifier: MIT
#include "files/list_file.h"

namespace tessit {

FileType list_file_type_for_opening() {
    return {.Name = "Frequency List", .MacType = "csv", .Extensions = list_extension};
}

FileType list_file_type_for_saving() {
    return {.Name = "Frequency List/csv", .MacType = "csv", .Extensions = list_extension};
}

} // namespace tessit
