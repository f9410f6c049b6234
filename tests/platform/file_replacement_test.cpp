// SPDX-License-Identifier: MIT
#include "platform/file_replacement.h"

#include "platform/folder_item.h"
#include "support/full_disk.h"
#include "support/scripted_desktop.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace tessit {
namespace {

namespace fs = std::filesystem;
using testing::file_bytes;
using testing::FullDisk;
using testing::joined;
using testing::write_file;

std::span<const std::uint8_t> bytes(const std::string& text) {
    return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

void save(const fs::path& file, const std::string& text) {
    auto replacement = FileReplacement::create(file);
    replacement->write(bytes(text));
    replacement->commit();
}

// The kind of a step's fault; internal where it has none.
FaultKind kind_of(const std::function<void()>& step) {
    return testing::fault_of(step).value_or(Fault(FaultKind::internal, "")).kind();
}

struct Files : ::testing::Test {
    const testing::TemporaryFolder folder;
    const fs::path file = folder / "a.zp2";

    Files() { write_file(file, "old"); }
};
using FileReplacementTest = Files;
using StreamsTest = Files;

int entries(const fs::path& folder) {
    return static_cast<int>(std::distance(fs::directory_iterator(folder), fs::directory_iterator()));
}

TEST_F(FileReplacementTest, what_is_dropped_or_closed_by_a_fault_leaves_the_old_file_alone) {
    FileReplacement::create(file)->write(bytes("new"));
    FolderItem(file).CreateBinaryFile(".zp2")->WriteInt8(7);
    FolderItem(file).CreateTextFile()->WriteLine("new");
    FileReplacement::create(folder / "never was.zp2")->write(bytes("new"));
    EXPECT_EQ(joined(file_bytes(file), entries(folder.path())), "old|1");
}

TEST_F(FileReplacementTest, where_no_file_can_be_made_the_reason_is_told) {
    write_file(folder / "read-only.zp2", "old");
    fs::permissions(folder / "read-only.zp2", fs::perms::owner_read | fs::perms::group_read);
    fs::create_directory(folder / "folder.zp2");
    write_file(folder / "plain", "");
    fs::create_symlink("read-only.zp2", folder / "link to read-only.zp2");
    mkfifo((folder / "pipe.zp2").c_str(), 0600);
    const std::pair<std::string, const char*> cases[] = {
        {"read-only.zp2", "Permission denied"},
        {"link to read-only.zp2", "Permission denied"},
        {"folder.zp2", "Is a folder"},
        {"pipe.zp2", "Is a pipe"},
        {"missing/a.zp2", "No such file or directory"},
        {"plain/a.zp2", "Not a directory"},
        {std::string(252, 'a') + ".zp2", "File name too long"},
    };
    for (const auto& [name, reason] : cases) {
        const FolderItem item(folder / name);
        const auto fault = testing::fault_of([&] { item.CreateBinaryFile(".zp2"); });
        ASSERT_TRUE(fault.has_value() && fault->kind() == FaultKind::write_failed) << name;
        EXPECT_EQ(fault->what(), "The file \"" + item.AbsolutePath() + "\" could not be created: " + reason + ".");
    }
    EXPECT_EQ(joined(file_bytes(folder / "read-only.zp2"), entries(folder.path())), "old|6");
    save(folder / (std::string(251, 'a') + ".zp2"), "new");
}

TEST_F(FileReplacementTest, a_link_stays_a_link_and_its_target_is_replaced_or_made) {
    fs::create_directory(folder / "elsewhere");
    const auto target = folder / "elsewhere/real.zp2";
    fs::create_symlink("elsewhere/real.zp2", folder / "link.zp2");
    fs::create_symlink("link.zp2", folder / "link to link.zp2");
    for (const char* text : {"made", "replaced"}) {
        save(folder / "link to link.zp2", text);
        EXPECT_TRUE(fs::is_symlink(folder / "link to link.zp2") && fs::is_symlink(folder / "link.zp2"));
        EXPECT_FALSE(fs::is_symlink(target));
        EXPECT_EQ(file_bytes(target), text);
    }
    EXPECT_EQ(entries(folder / "elsewhere"), 1);
}

// While it lives, root has no more rights than anybody else.
struct NoRoot {
    NoRoot() { become(65534, 0); }
    ~NoRoot() { become(0, 0); }
    NoRoot(const NoRoot&) = delete;
    NoRoot& operator=(const NoRoot&) = delete;

    static void become(uid_t user, uid_t later) {
        if (was_root()) {
            EXPECT_EQ(setresuid(user, user, later), 0);
        }
    }
    static bool was_root() {
        uid_t real = 0;
        uid_t effective = 0;
        uid_t saved = 0;
        return getresuid(&real, &effective, &saved) == 0 && saved == 0;
    }
};

TEST_F(FileReplacementTest, what_a_file_has_is_kept_and_a_new_one_follows_the_umask) {
    const auto mode = [&](const char* name) {
        return static_cast<int>(fs::status(folder / name).permissions() & fs::perms::mask);
    };
    write_file(folder / "old", "old");
    fs::permissions(folder / "old", fs::perms(0640));
    const mode_t mask = umask(027);
    save(folder / "old", "new");
    save(folder / "new", "new");
    EXPECT_EQ(umask(mask), 027U); // asking for the mask has not changed it
    EXPECT_EQ(joined(mode("old"), mode("new")), joined(0640, 0640));
    fs::permissions(folder / "old", fs::perms(0666));
    const bool marked = setxattr((folder / "old").c_str(), "user.mark", "m", 1, 0) == 0; // not every file system can
    save(folder / "old", "new");
    EXPECT_EQ(mode("old"), 0666);
    EXPECT_EQ(getxattr((folder / "old").c_str(), "user.mark", nullptr, 0) == 1, marked);
    if (NoRoot::was_root()) {
        ASSERT_EQ(chown((folder / "old").c_str(), 7, 8), 0);
        fs::permissions(folder / "old", fs::perms(04652));
        save(folder / "old", "new");
        struct stat status = {};
        stat((folder / "old").c_str(), &status);
        EXPECT_EQ(joined(status.st_uid, status.st_gid, mode("old")), joined(7, 8, 04652));
        fs::permissions(folder.path(), fs::perms::all);
        const NoRoot user;
        save(folder / "old", "new"); // neither can be kept: the group gets what others have
        EXPECT_EQ(mode("old"), 0602);
    }
}

TEST_F(FileReplacementTest, where_nothing_can_be_made_beside_it_a_file_is_written_in_place_after_a_copy) {
    const auto closed = folder / "closed";
    const auto copies = folder / "state/tessit-control/recovery";
    fs::create_directory(closed);
    write_file(closed / "a.zp2", "old");
    fs::permissions(closed / "a.zp2", fs::perms(0666));
    fs::permissions(closed, fs::perms(0555));
    fs::permissions(folder.path(), fs::perms::all);
    const NoRoot user;
    setenv("XDG_STATE_HOME", closed.c_str(), 1);
    EXPECT_EQ(kind_of([&] { save(closed / "a.zp2", "new"); }), FaultKind::write_failed); // no place for a copy
    setenv("XDG_STATE_HOME", (folder / "state").c_str(), 1);
    save(closed / "a.zp2", "new, long");
    EXPECT_EQ(joined(file_bytes(closed / "a.zp2"), entries(copies)), "new, long|0");
    save(closed / "a.zp2", "new");
    EXPECT_EQ(joined(file_bytes(closed / "a.zp2"), entries(copies)), "new|0");
    EXPECT_EQ(fs::status(copies).permissions(), fs::perms::owner_all);
    for (const rlim_t room : {2, 20}) { // for a part of the copy; for the copy and a part of the file
        const FullDisk full(room);
        const auto fault = testing::fault_of([&] { save(closed / "a.zp2", std::string(30, 'n')); });
        ASSERT_TRUE(fault && fault->kind() == FaultKind::write_failed);
        EXPECT_EQ(joined(file_bytes(closed / "a.zp2").size(), entries(copies)), room == 2 ? "3|0" : "20|1");
        EXPECT_NE(std::string(fault->what()).find(room == 2 ? "No copy" : copies / "a-"), std::string::npos);
    }
    EXPECT_EQ(file_bytes(fs::directory_iterator(copies)->path()), "new");
    unsetenv("XDG_STATE_HOME");
}

TEST_F(FileReplacementTest, what_a_dead_process_left_goes_with_the_next_save_and_what_a_live_one_works_on_stays) {
    write_file(folder / ".tessit-a8Xk2P", "unfinished");
    write_file(folder / ".tessit-notes", "the user's");
    const auto live = FileReplacement::create(folder / "b.zp2");
    save(file, "new");
    live->commit();
    EXPECT_EQ(entries(folder.path()), 3);
}

TEST_F(FileReplacementTest, a_device_is_written_in_place) {
    const auto is_device = [](const char* path) { return fs::is_character_file(path); };
    ASSERT_TRUE(is_device("/dev/full"));
    EXPECT_EQ(kind_of([] { save("/dev/full", "new"); }), FaultKind::write_failed);
    EXPECT_NO_THROW(save("/dev/null", "new"));
    EXPECT_TRUE(is_device("/dev/full") && is_device("/dev/null"));
}

TEST_F(FileReplacementTest, a_full_disk_is_a_fault_and_leaves_the_old_file) {
    const std::string old(600, 'o');
    write_file(file, old);
    const std::string content(1200, 'n');
    for (const int room : {0, 1, 599, 1199}) {
        const FullDisk full(static_cast<rlim_t>(room));
        EXPECT_EQ(kind_of([&] { save(file, content); }), FaultKind::write_failed) << room;
        EXPECT_EQ(kind_of([&] { save(folder / "new.zp2", content); }), FaultKind::write_failed) << room;
    }
    EXPECT_EQ(file_bytes(file), old);
    EXPECT_EQ(entries(folder.path()), 1);
    save(file, content);
    EXPECT_EQ(file_bytes(file), content);
}

TEST_F(StreamsTest, reading_past_the_end_gives_zeros) {
    write_file(folder / "a", std::string("\xFF\x80\x7F\x01", 4));
    auto stream = FolderItem(folder / "a").OpenAsBinaryFile();
    EXPECT_EQ(stream->ReadByte(), 255);
    EXPECT_EQ(stream->ReadInt8(), -128);
    EXPECT_EQ(stream->ReadInt8(), 127);
    EXPECT_FALSE(stream->EndOfFile());
    EXPECT_EQ(stream->ReadByte(), 1);
    EXPECT_TRUE(stream->EndOfFile());
    EXPECT_EQ(stream->ReadByte(), 0);
    EXPECT_EQ(stream->ReadInt8(), 0);
}

TEST_F(StreamsTest, bytes_and_texts_arrive_as_written) {
    auto binary = FolderItem(folder / "b").CreateBinaryFile(".zp2");
    for (const int value : {0, 255, -1, 256, 292, -128}) {
        binary->WriteInt8(value);
    }
    binary->Close();
    EXPECT_EQ(testing::hex(file_bytes(folder / "b")), "00 ff ff 00 24 80");
    auto text = FolderItem(folder / "t").CreateTextFile();
    text->Write("a,");
    text->WriteLine("b\r;");
    text->Close();
    EXPECT_EQ(file_bytes(folder / "t"), "a,b\r;\n");
    EXPECT_EQ(FolderItem(folder / "t").OpenAsTextFile()->ReadAll(), "a,b\r;\n");
}

TEST_F(StreamsTest, what_cannot_be_read_is_a_fault_with_the_systems_reason) {
    mkfifo((folder / "pipe").c_str(), 0600);
    const std::pair<fs::path, const char*> cases[] = {
        {folder / "missing", "No such file or directory"},
        {folder.path(), "Is a folder"},
        {folder / "pipe", "Is a pipe"},
        {fs::path("/dev/zero"), "Is a device"},
        {fs::path("/proc/self/mem"), "Input/output error"}, // opens, and then does not read
    };
    for (const auto& [path, reason] : cases) {
        const auto fault = testing::fault_of([item = FolderItem(path)] { item.OpenAsBinaryFile(); });
        ASSERT_TRUE(fault.has_value() && fault->kind() == FaultKind::read_failed) << path;
        EXPECT_EQ(fault->what(), "The file \"" + path.string() + "\" could not be read: " + reason + ".");
        EXPECT_EQ(kind_of([item = FolderItem(path)] { item.OpenAsTextFile(); }), FaultKind::read_failed);
    }
}

TEST_F(StreamsTest, no_more_is_taken_than_can_matter) {
    write_file(folder / "six", "abcdef");
    auto stream = FolderItem(folder / "six").OpenAsBinaryFile(5);
    for (const char byte : {'a', 'b', 'c', 'd', 'e'}) {
        EXPECT_EQ(stream->ReadByte(), byte);
    }
    EXPECT_TRUE(stream->EndOfFile());
    EXPECT_EQ(FolderItem(folder / "six").OpenAsTextFile(6)->ReadAll(), "abcdef");
    EXPECT_EQ(kind_of([&] { FolderItem(folder / "six").OpenAsTextFile(5); }), FaultKind::read_failed);
}

} // namespace
} // namespace tessit
