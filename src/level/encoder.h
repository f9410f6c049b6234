// SPDX-License-Identifier: MIT
// Table texts to level records: the one place that turns text into the generator's bytes.
#pragma once

#include "level/clock_text.h"
#include "level/level_table.h"
#include "level/register_image.h"

#include <cstdint>
#include <optional>
#include <string>

namespace tessit {

// A Base text with the point taken out. `word` has six digits at most: of a longer text the leading ones are lost.
struct FrequencyWord {
    std::int32_t word = 0;           // 0 to 999999
    std::optional<std::uint8_t> db3; // none where the text has no integer digit or more than six
    int decimals = 0;                // as typed; the generator takes three at most

    bool operator==(const FrequencyWord&) const = default;
};

inline constexpr int most_decimals = 3;

// Reads a text of up to nine characters; a longer one is Fault out_of_bounds. What is no digit counts as 0.
FrequencyWord encode_frequency(const std::string& text);

enum class CommaRule { becomes_point, stays }; // a comma that stays is one more character, and reads as 0
enum class RateRule { high_byte_by_255, high_byte_by_10 };
enum class BlankRows { encoded, skipped }; // rows whose Waveform is "blank"

// How a window's texts are read. Editor and composer turn commas to points while the decimal comma is in use and
// divide rates by 255; the read window does neither, on purpose.
struct EncodingRules {
    TimeForm time_form = TimeForm::clock;
    CommaRule comma = CommaRule::stays;
    RateRule rate = RateRule::high_byte_by_255;
    BlankRows blank_rows = BlankRows::encoded;
};

enum class EncodingResult { done, too_many_decimals };

// The mode byte. Unknown texts leave what was there, beginning with the 255 of an unset level.
std::uint8_t encode_mode(const LevelCells& cells);

// Encodes one row into the image. Stops at too many decimals with the mode byte written and nothing else. Faults
// out_of_bounds: a Base text of more than nine characters, a word below 256, a clock time without its colon. They tell
// the reason in a sentence about the level ("Its time ..."); what was written before stays.
EncodingResult encode_level(RegisterImage& image, int level, const LevelCells& cells, const EncodingRules& rules);

} // namespace tessit
