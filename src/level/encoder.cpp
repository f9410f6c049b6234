// SPDX-License-Identifier: MIT
#include "level/encoder.h"

#include "level/number.h"
#include "level/waves.h"
#include "platform/fault.h"
#include "platform/text.h"

namespace tessit {

namespace {

constexpr int last_slot = 8;

[[noreturn]] void refuse(const std::string& reason) {
    throw Fault(FaultKind::out_of_bounds, reason);
}

// Nine characters, the last of the text in slot 8.
struct FrequencySlots {
    FixedArray<std::string, last_slot> slots;

    explicit FrequencySlots(const std::string& text) {
        const Array<std::string> typed = characters(text);
        if (typed.upper_bound() > last_slot) {
            refuse("Its base frequency has more than nine characters.");
        }
        if (typed.count() <= 2) {
            slots[7] = "0"; // so that one digit becomes two; a second character overwrites it
        }
        for (int i = 0; i < typed.count(); ++i) {
            slots[last_slot - i] = typed[typed.upper_bound() - i];
        }
    }

    void take_out(int point) {
        for (int slot = point; slot > 0; --slot) {
            slots[slot] = slots[slot - 1];
        }
        slots[0].clear();
    }

    void pad_right() {
        for (int slot = 0; slot < last_slot; ++slot) {
            slots[slot] = slots[slot + 1];
        }
        slots[last_slot] = "0";
    }

    int digit(int slot) const {
        const std::string& character = slots[slot];
        const int value = character.empty() ? 0 : low_byte(static_cast<unsigned char>(character.front()) - '0');
        return value > 9 ? 0 : value;
    }
};

std::optional<std::uint8_t> decimal_scale(int integer_digits) {
    switch (integer_digits) {
    case 1:
    case 2:
    case 3:
        return std::uint8_t{8};
    case 4:
        return std::uint8_t{4};
    case 5:
        return std::uint8_t{2};
    case 6:
        return std::uint8_t{1};
    default:
        return std::nullopt;
    }
}

int padded_length(int integer_digits) {
    return integer_digits == 1 ? 4 : integer_digits == 2 ? 5 : 6;
}

// A hexadecimal digit list, read from its end two digits at a time.
class HexDigits {
public:
    explicit HexDigits(std::int32_t word) {
        std::vector<int> reversed;
        do {
            reversed.push_back(word % 16);
            word /= 16;
        } while (word > 0);
        digits_ = Array<int>({reversed.rbegin(), reversed.rend()});
        position_ = digits_.upper_bound();
    }

    bool at_end() const { return position_ < 0; }

    std::uint8_t take_byte() {
        const int value = position_ >= 1 ? digits_[position_] + 16 * digits_[position_ - 1] : digits_[position_];
        position_ -= 2;
        return low_byte(value);
    }

private:
    Array<int> digits_;
    int position_;
};

void encode_word(RegisterImage& image, int level, std::int32_t word, const std::string& base) {
    HexDigits digits(word);
    image.fbyte0[level] = digits.take_byte();
    if (digits.at_end()) { // a word below 256
        refuse("Its base frequency (\"" + base + "\") must be a number of 0.256 to 999999.");
    }
    image.fbyte1[level] = digits.take_byte();
    image.fbyte2[level] = digits.at_end() ? std::uint8_t{0} : digits.take_byte();
}

void encode_time(RegisterImage& image, int level, const std::string& text, TimeForm form) {
    if (form == TimeForm::seconds) {
        const std::int32_t seconds = truncate(read_number(text));
        image.timemin[level] = low_byte(seconds / 60);
        image.timesec[level] = low_byte(seconds % 60);
        return;
    }
    const Array<std::string> pieces = Split(text, ":");
    const auto piece = [&](int index) {
        if (index >= pieces.count()) {
            refuse("Its time (\"" + text + "\") needs a colon in the form MM:SS.");
        }
        return low_byte(truncate(read_number(pieces[index])));
    };
    image.timemin[level] = piece(0);
    image.timesec[level] = piece(1);
}

void encode_rate(RegisterImage& image, int level, const std::string& text, RateRule rule) {
    const float rate = read_number(text);
    const bool by_10 = rule == RateRule::high_byte_by_10;
    if (rate > (by_10 ? 10.0F : 255.0F)) {
        image.pratehi[level] = low_byte(truncate(rate / (by_10 ? 10.0 : 255.0)));
        if (!by_10) { // by 10 the low byte keeps the 255 of an unset level
            image.pratelo[level] = low_byte(truncate(static_cast<double>(rate) - image.pratehi[level] * 256));
        }
        return;
    }
    image.pratehi[level] = 0;
    image.pratelo[level] = low_byte(truncate(rate));
}

void encode_check(RegisterImage& image, int level) {
    image.errorchk[level] += level == 1 ? 512 : 256;
    for (const auto* bytes : {&image.db6, &image.db3, &image.fbyte2, &image.fbyte1, &image.fbyte0, &image.timemin,
                              &image.timesec, &image.dutycycle, &image.wpwidth, &image.pratelo, &image.pratehi}) {
        image.errorchk[level] -= (*bytes)[level];
    }
}

const std::string& cell(const LevelCells& cells, int index) {
    return cells[static_cast<std::size_t>(index)];
}

} // namespace

FrequencyWord encode_frequency(const std::string& text) {
    FrequencySlots frequency(text);
    FrequencyWord result;
    int integer_digits = 0;
    int point = -1; // of two points the left one is found
    for (int slot = last_slot; slot >= 0 && !frequency.slots[slot].empty(); --slot) {
        ++integer_digits;
        if (frequency.slots[slot] == ".") {
            integer_digits = 0;
            point = slot;
            result.decimals = last_slot - slot;
        }
    }
    result.db3 = decimal_scale(integer_digits);
    if (point >= 0) {
        frequency.take_out(point);
    }
    for (int length = integer_digits + result.decimals; length < padded_length(integer_digits); ++length) {
        frequency.pad_right();
    }
    for (int slot = 3; slot <= last_slot; ++slot) { // slots 0 to 2 are not used: leading digits are lost
        result.word = result.word * 10 + frequency.digit(slot);
    }
    return result;
}

std::uint8_t encode_mode(const LevelCells& cells) {
    // What a text sets and then keeps, in the order in which the columns are read.
    struct MaskRule {
        int column;
        const char* text;
        int set;
        int keep;
    };
    static constexpr MaskRule masks[] = {
        {column::pulse, "ON", 0, 7},
        {column::pulse, "OFF", 8, 255},
        {column::output, "Positive", 16, 31},
        {column::output, "Negative", 0, 15},
        {column::output, "Offset", 47, 47}, // the whole byte becomes 47, wave and pulse included: that is meant
        {column::wave_shape, "Square", 0, 63},
        {column::wave_shape, "Sine", 64, 127},
        {column::wave_shape, "Triangle", 128, 191},
    };
    const Wave* wave = wave_with_text(cell(cells, column::waveform));
    int result = wave == nullptr ? unset : wave->code;
    for (const auto& rule : masks) {
        if (same_text(cell(cells, rule.column), rule.text)) {
            result = (result | rule.set) & rule.keep;
        }
    }
    return low_byte(result);
}

EncodingResult encode_level(RegisterImage& image, int level, const LevelCells& cells, const EncodingRules& rules) {
    image.db6[level] = encode_mode(cells);

    const std::string& base = cell(cells, column::base);
    const FrequencyWord frequency =
        encode_frequency(rules.comma == CommaRule::becomes_point ? ReplaceAll(base, ",", ".") : base);
    if (frequency.decimals > most_decimals) {
        return EncodingResult::too_many_decimals;
    }
    if (frequency.db3) {
        image.db3[level] = *frequency.db3;
    }
    encode_word(image, level, frequency.word, base);

    encode_time(image, level, cell(cells, column::time_each), rules.time_form);
    image.dutycycle[level] = low_byte(truncate(read_number(cell(cells, column::duty_cycle)) / 10.0));
    const bool single = wave_with_text(cell(cells, column::waveform)) == single_frequency;
    image.wpwidth[level] = single ? std::uint8_t{0} : low_byte(truncate(read_number(cell(cells, column::width))));
    encode_rate(image, level, cell(cells, column::rate), rules.rate);
    encode_check(image, level);
    return EncodingResult::done;
}

} // namespace tessit
