// SPDX-License-Identifier: MIT
#include "files/protocol_file.h"

#include "level/level_table.h"
#include "platform/folder_item.h"
#include "support/scripted_desktop.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

namespace tessit {
namespace {

using testing::hex;
using testing::joined;

BinaryInputStream stream_of(const std::string& bytes) {
    return BinaryInputStream({bytes.begin(), bytes.end()});
}

// The image after a file was read from index 1 on.
RegisterImage image_of(const std::string& bytes) {
    RegisterImage image;
    image.reset();
    auto stream = stream_of(bytes);
    for (int level = 1; !stream.EndOfFile(); ++level) {
        read_record(stream, image, level);
    }
    return image;
}

std::string level_hex(const RegisterImage& image, int level) {
    const LevelBytes bytes = image.bytes(level);
    return hex({bytes.begin(), bytes.end()});
}

std::string written(const RegisterImage& image, UnsetMark mark) {
    const testing::TemporaryFolder folder;
    auto stream = FolderItem(folder / "a.zp2").CreateBinaryFile(protocol_extension);
    write_protocol(*stream, image, mark);
    stream->Close();
    return testing::file_bytes(folder / "a.zp2");
}

RegisterImage with_words(const std::vector<std::int32_t>& words) {
    RegisterImage image;
    image.reset();
    for (int level = 1; const std::int32_t word : words) {
        for (auto* bytes : {&image.db3, &image.timesec, &image.timemin, &image.db6, &image.dutycycle, &image.wpwidth,
                            &image.pratehi, &image.pratelo}) {
            (*bytes)[level] = 1;
        }
        image.fbyte2[level] = low_byte(word / 65536);
        image.fbyte1[level] = low_byte(word / 256);
        image.fbyte0[level] = low_byte(word);
        ++level;
    }
    return image;
}

const std::string unset_level = "ff ff ff ff ff ff ff ff ff ff ff 00";

TEST(ReadRecord, takes_twelve_bytes_in_file_order) {
    const std::string record("\x00\x1e\x96\x08\x0a\x03\x1d\x05\x09\x02\xfe\x24", 12);
    const RegisterImage image = image_of(record);
    EXPECT_EQ(image.fbyte2[1], 0x00);
    EXPECT_EQ(image.fbyte1[1], 0x1e);
    EXPECT_EQ(image.fbyte0[1], 0x96);
    EXPECT_EQ(joined(image.db3[1], image.timesec[1], image.timemin[1]), "8|10|3");
    EXPECT_EQ(image.db6[1], 0x1d);
    EXPECT_EQ(joined(image.dutycycle[1], image.wpwidth[1], image.pratehi[1], image.pratelo[1]), "5|9|2|254");
    EXPECT_EQ(image.errorchk[1], 0x24);
    EXPECT_EQ(level_hex(image, 2), unset_level);
}

TEST(ReadRecord, keeps_the_check_byte_signed) {
    const std::pair<const char*, int> cases[] = {{"\x7f", 127}, {"\x80", -128}, {"\xff", -1}};
    for (const auto& [last, errorchk] : cases) {
        const RegisterImage image = image_of(std::string(11, '\1') + last);
        EXPECT_EQ(image.errorchk[1], errorchk);
        EXPECT_EQ(image.bytes(1)[record_offset::errorchk], static_cast<std::uint8_t>(errorchk));
    }
}

TEST(ReadRecord, drops_one_253_before_a_record) {
    const std::string record = "abcdefghijkl";
    EXPECT_EQ(image_of("\xfd" + record), image_of(record));
    EXPECT_EQ(image_of(record + "\xfd" + record), image_of(record + record));
    // Only one, and only there.
    EXPECT_EQ(level_hex(image_of("\xfd\xfd" + record), 1), "fd 61 62 63 64 65 66 67 68 69 6a 6b");
    EXPECT_EQ(level_hex(image_of("a\xfd"
                                 "cdefghijkl"),
                        1),
              "61 fd 63 64 65 66 67 68 69 6a 6b 6c");
}

TEST(ReadRecord, what_a_short_file_lacks_is_zero) {
    const std::tuple<std::string, const char*, const char*> cases[] = {
        {"", "ff ff ff ff ff ff ff ff ff ff ff 00", "ff ff ff ff ff ff ff ff ff ff ff 00"},
        {"a", "61 00 00 00 00 00 00 00 00 00 00 00", "ff ff ff ff ff ff ff ff ff ff ff 00"},
        {"\xfd", "00 00 00 00 00 00 00 00 00 00 00 00", "ff ff ff ff ff ff ff ff ff ff ff 00"},
        {"abcde", "61 62 63 64 65 00 00 00 00 00 00 00", "ff ff ff ff ff ff ff ff ff ff ff 00"},
        {"abcdefghijklm", "61 62 63 64 65 66 67 68 69 6a 6b 6c", "6d 00 00 00 00 00 00 00 00 00 00 00"},
    };
    for (const auto& [file, level_1, level_2] : cases) {
        const RegisterImage image = image_of(file);
        EXPECT_EQ(level_hex(image, 1), level_1) << file;
        EXPECT_EQ(level_hex(image, 2), level_2) << file;
    }
}

TEST(ReadRecord, fifty_records_fit_and_the_next_is_out_of_bounds) {
    EXPECT_NO_THROW(image_of(std::string(50 * 12, 'a')));
    EXPECT_THROW(image_of(std::string(50 * 12 + 1, 'a')), Fault);
    RegisterImage image;
    auto stream = stream_of(std::string(12, 'a'));
    EXPECT_THROW(read_record(stream, image, 51), Fault);
}

// Each mark is blind for words of its own: a low byte of 255 for one, a high byte of 255 for the other.
TEST(WriteProtocol, leaves_out_what_its_mark_takes_for_unset) {
    const std::tuple<std::int32_t, bool, bool> cases[] = {
        {0, true, true},      {254, true, true},           {255, false, true},
        {256, true, true},    {511, false, true},          {767, false, true},
        {999999, true, true}, {0xFF * 65536, true, false}, {0xFFFFFF, false, false},
    };
    for (const auto& [word, by_low_byte, by_high_byte] : cases) {
        const RegisterImage image = with_words({word});
        EXPECT_EQ(written(image, UnsetMark::low_frequency_byte).size(), by_low_byte ? 12U : 0U) << word;
        EXPECT_EQ(written(image, UnsetMark::high_frequency_byte).size(), by_high_byte ? 12U : 0U) << word;
    }
}

TEST(WriteProtocol, a_level_left_out_leaves_no_gap) {
    const RegisterImage image = with_words({1, 511, 3});
    EXPECT_EQ(hex(written(image, UnsetMark::low_frequency_byte)),
              "00 00 01 01 01 01 01 01 01 01 01 00 00 00 03 01 01 01 01 01 01 01 01 00");
    EXPECT_EQ(written(image, UnsetMark::high_frequency_byte).size(), 36U);
}

TEST(WriteProtocol, writes_levels_1_to_50_and_the_low_byte_of_the_check) {
    RegisterImage image = with_words(std::vector<std::int32_t>(50, 7));
    image.fbyte0[0] = 7; // index 0 is no level
    image.errorchk.fill(292);
    const std::string file = written(image, UnsetMark::low_frequency_byte);
    EXPECT_EQ(joined(file.size(), hex(file.substr(588))), "600|00 00 07 01 01 01 01 01 01 01 01 24");
}

TEST(WriteProtocol, a_level_that_begins_with_253_is_written_plain_and_read_out_of_step) {
    const std::string file = written(with_words({253 * 65536, 7}), UnsetMark::low_frequency_byte);
    EXPECT_EQ(hex(file.substr(0, 12)), "fd 00 00 01 01 01 01 01 01 01 01 00");
    EXPECT_EQ(level_hex(image_of(file), 1), "00 00 01 01 01 01 01 01 01 01 00 00");
}

RC_GTEST_PROP(ProtocolFile, what_both_marks_take_for_set_comes_back_as_it_was, ()) {
    RegisterImage image;
    image.reset();
    const int levels = *rc::gen::inRange(0, 51);
    for (int level = 1; level <= levels; ++level) {
        for (auto* bytes : {&image.fbyte1, &image.db3, &image.timesec, &image.timemin, &image.db6, &image.dutycycle,
                            &image.wpwidth, &image.pratehi, &image.pratelo}) {
            (*bytes)[level] = *rc::gen::arbitrary<std::uint8_t>();
        }
        image.fbyte2[level] = *rc::gen::inRange<std::uint8_t>(0, 16);
        image.fbyte0[level] = *rc::gen::inRange<std::uint8_t>(0, 255);
        image.errorchk[level] = *rc::gen::inRange(-128, 128);
    }
    RC_ASSERT(image_of(written(image, UnsetMark::low_frequency_byte)) == image);
    RC_ASSERT(image_of(written(image, UnsetMark::high_frequency_byte)) == image);
}

} // namespace
} // namespace tessit
