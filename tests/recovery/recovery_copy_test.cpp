// SPDX-License-Identifier: MIT
#include "recovery/recovery_copy.h"

#include <gtest/gtest.h>

using namespace tessit;

TEST(RecoveryCopy, comes_back_whole_or_not_at_all) {
    const RecoveryCopy copy{
        .window = "editwindow", .document = "Nächte 7.83", .kept_at = -5, .values = std::string("cell 2\n\n\0\n", 9)};
    const std::string bytes = recovery_bytes(copy);
    EXPECT_EQ(read_recovery_copy(bytes), copy);
    for (std::size_t place = 0; place < bytes.size(); ++place) {
        EXPECT_FALSE(read_recovery_copy(bytes.substr(0, place))) << "cut at " << place;
        for (int other = 1; other < 256; ++other) {
            std::string changed = bytes;
            changed[place] = static_cast<char>(changed[place] ^ other);
            EXPECT_FALSE(read_recovery_copy(changed)) << "changed at " << place;
        }
    }
    EXPECT_FALSE(read_recovery_copy(bytes + "\n"));
}
