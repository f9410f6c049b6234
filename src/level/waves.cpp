// SPDX-License-Identifier: MIT
#include "level/waves.h"

#include <algorithm>

namespace tessit {

namespace {

template <class Matches> const Wave* first_wave(Matches matches) {
    const auto* const found = std::find_if(waves.begin(), waves.end(), matches);
    return found == waves.end() ? nullptr : found;
}

} // namespace

std::vector<std::string> wave_texts(const WaveOrder& order) {
    std::vector<std::string> texts;
    for (const int wave : order) {
        texts.emplace_back(waves[static_cast<std::size_t>(wave)].text);
    }
    return texts;
}

const Wave* wave_with_text(std::string_view text) {
    return first_wave([&](const Wave& wave) { return same_text(wave.text, text); });
}

const Wave* wave_with_code(std::uint8_t code) {
    return first_wave([&](const Wave& wave) { return wave.code == code; });
}

std::string frequencies_text(const WaveOrder& order, int list_index, int width) {
    if (list_index < 0) {
        return "";
    }
    const int wave = order[static_cast<std::size_t>(list_index)];
    return Str(waves[static_cast<std::size_t>(wave)].frequencies(width));
}

} // namespace tessit
