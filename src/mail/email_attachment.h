// SPDX-License-Identifier: MIT
// A file that goes with a mail.
#pragma once

#include "platform/folder_item.h"

#include <string>

namespace tessit {

struct EmailAttachment {
    std::string MIMEType;
    std::string Name;
    std::string ContentEncoding;
    std::string Data;    // encoded, lines of 76 characters with CR LF between them
    std::string MacType; // empty where the file has none, and no file system here stores one
    std::string MacCreator;

    void LoadFromFile(const FolderItem& file); // raises Fault read_failed

    std::string _FormatAttachment() const; // its headers, an empty line, its data
};

} // namespace tessit
