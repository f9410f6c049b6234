// SPDX-License-Identifier: MIT
#include "level/number.h"

#include "platform/text.h"

#include <cmath>
#include <gtest/gtest.h>

namespace tessit {
namespace {

TEST(ReadNumber, accumulates_digits_and_skips_the_rest) {
    const std::pair<const char*, float> cases[] = {
        {"", 0.0F},
        {"12", 12.0F},
        {"12.50", 12.5F},
        {"12.", 12.0F},
        {".5", 0.5F},
        {"0.05", 0.05F},
        {"007.830", 7.83F},
        {"7,83", 783.0F},
        {"3:00", 300.0F},
        {"-4.5", 4.5F},
        {"1.2.3", 12.3F},    // the last point decides
        {"1.5 Hz", 0.0015F}, // characters behind the point count as decimals, digits or not
        {"1.5é", 0.15F},     // a character, however many bytes it takes
        {"50%", 50.0F},
        {"1e3", 13.0F},
        {"abc", 0.0F},
        {"16777217", 16777216.0F}, // single precision
        {"123456789", 123456792.0F},
    };
    for (const auto& [text, value] : cases) {
        EXPECT_EQ(read_number(characters(text)), value) << text;
        EXPECT_EQ(read_number(text), value) << text;
    }
    EXPECT_TRUE(std::isinf(read_number(characters(std::string(60, '9')))));
}

} // namespace
} // namespace tessit
