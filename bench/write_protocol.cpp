// SPDX-License-Identifier: MIT
// write_protocol FILE: writes the full table as a protocol file, for the benchmarks that open one.
#include "bench/full_image.h"
#include "files/protocol_file.h"
#include "platform/folder_item.h"

#include <cstdio>
#include <exception>

int main(int count, char* arguments[]) {
    using namespace tessit;
    if (count != 2) {
        std::fputs("usage: write_protocol FILE\n", stderr);
        return 2;
    }
    try {
        RegisterImage image;
        bench::encode_table(image, bench::full_table());
        auto stream = FolderItem(arguments[1]).CreateBinaryFile(protocol_extension);
        write_protocol(*stream, image, UnsetMark::high_frequency_byte);
        stream->Close();
    } catch (const std::exception& error) {
        std::fprintf(stderr, "write_protocol: %s\n", error.what());
        return 1;
    }
}
