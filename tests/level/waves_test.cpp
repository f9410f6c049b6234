// SPDX-License-Identifier: MIT
#include "level/waves.h"

#include <gtest/gtest.h>

namespace tessit {
namespace {

TEST(Waves, the_lists_differ_in_the_order_of_the_sweeps) {
    const std::vector<std::string> in_editor = {"Single Frequency", "Spread Contracting", "Spread Expanding",
                                                "Sweep Increasing", "Sweep Decreasing"};
    const std::vector<std::string> in_composer = {"Single Frequency", "Spread Contracting", "Spread Expanding",
                                                  "Sweep Decreasing", "Sweep Increasing"};
    EXPECT_EQ(wave_texts(editor_wave_order), in_editor);
    EXPECT_EQ(wave_texts(composer_wave_order), in_composer);
}

TEST(Waves, frequencies_follow_wave_and_width) {
    EXPECT_EQ(frequencies_text(editor_wave_order, 0, 9), "1");
    EXPECT_EQ(frequencies_text(editor_wave_order, 1, 4), "9");
    EXPECT_EQ(frequencies_text(editor_wave_order, 4, 4), "5");
    EXPECT_EQ(frequencies_text(editor_wave_order, -1, 4), ""); // a wave text that is in no list
}

} // namespace
} // namespace tessit
