// SPDX-License-Identifier: MIT
// The program on its real pseudo-terminal, talked to by a client with raw settings of its own.
#include "dialogue.h"
#include "platform/announced_ports.h"

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <termios.h>
#include <thread>
#include <unistd.h>

namespace tessit::emulator::test {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;
using Lines = std::vector<std::string>;

constexpr auto deadline = 20s;

template <class Condition> bool comes_true(Condition condition) {
    const auto end = std::chrono::steady_clock::now() + deadline;
    while (!condition()) {
        if (std::chrono::steady_clock::now() > end) {
            return false;
        }
        std::this_thread::sleep_for(2ms);
    }
    return true;
}

// The program as a child: one socket is its input and its output, its errors go into a file.
class Child {
public:
    explicit Child(const std::string& options = "") : error_file_(fs::path(getenv("XDG_RUNTIME_DIR")) / "stderr") {
        const std::string command = "exec " EMULATOR_PROGRAM " " + options + " 2>" + error_file_.string();
        int ends[2];
        EXPECT_EQ(socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends), 0);
        pid_ = fork();
        if (pid_ == 0) {
            dup2(ends[1], STDIN_FILENO);
            dup2(ends[1], STDOUT_FILENO);
            execl("/bin/sh", "sh", "-c", command.c_str(), nullptr);
            _exit(127);
        }
        close(ends[1]);
        socket_ = ends[0];
        const timeval patience = {.tv_sec = std::chrono::seconds(deadline).count(), .tv_usec = 0};
        setsockopt(socket_, SOL_SOCKET, SO_RCVTIMEO, &patience, sizeof patience);
    }
    ~Child() {
        if (pid_ > 0) {
            kill(pid_, SIGKILL);
            waitpid(pid_, nullptr, 0);
        }
        close(socket_);
    }

    void type(const std::string& text) { EXPECT_GT(write(socket_, (text + "\n").data(), text.size() + 1), 0); }
    void end_input() { shutdown(socket_, SHUT_WR); }

    std::string line() {
        std::string text;
        for (char next = 0; next != '\n'; text += next) {
            if (read(socket_, &next, 1) != 1) {
                ADD_FAILURE() << "no line came; errors: " << errors();
                return {};
            }
        }
        text.pop_back();
        return text;
    }

    // Lines up to and with the given one, or one that tells an error.
    Lines lines_until(const std::string& last) {
        Lines lines;
        do {
            lines.push_back(line());
        } while (lines.back() != last && !lines.back().starts_with("error: ") && !lines.back().empty());
        return lines;
    }
    Lines ask(const std::string& command) {
        type(command);
        return lines_until("ok");
    }
    Lines start() { // what it says until it is ready
        Lines lines = lines_until("ready");
        take_device(lines.front());
        return lines;
    }
    void take_device(const std::string& line) {
        ASSERT_TRUE(line.starts_with("device /dev/")) << line;
        device = line.substr(7);
    }

    void send_signal(int signal) const { kill(pid_, signal); }
    bool running() { return pid_ > 0 && waitpid(pid_, &status_, WNOHANG) == 0; }
    int exit_code() {
        EXPECT_TRUE(comes_true([this] { return !running(); }));
        pid_ = -1;
        return WIFEXITED(status_) ? WEXITSTATUS(status_) : -1;
    }
    std::string errors() const { return testing::file_bytes(error_file_); }

    std::string device;

private:
    pid_t pid_ = -1;
    int socket_ = -1;
    int status_ = 0;
    fs::path error_file_;
};

// A client of the terminal.
class Client {
public:
    explicit Client(const std::string& device)
        : descriptor_(open(device.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC)) {
        EXPECT_GE(descriptor_, 0) << device;
    }
    ~Client() { close(descriptor_); }

    void send(Byte byte) { EXPECT_EQ(write(descriptor_, &byte, 1), 1); }

    void play(const Script& script) {
        for (const Sent& sent : script) {
            std::this_thread::sleep_for(std::chrono::microseconds(sent.wait));
            send(sent.byte);
        }
    }

    // True when exactly these come next, behind any calls that came before an answer was seen.
    bool gets(std::vector<Byte> expected) {
        std::vector<Byte> came;
        comes_true([&] {
            Byte byte;
            while (came.size() < expected.size() && read(descriptor_, &byte, 1) == 1) {
                if (byte != 'V' || expected[0] == 'V' || !came.empty()) {
                    came.push_back(byte);
                }
            }
            return came.size() == expected.size();
        });
        return came == expected;
    }

    bool hung_up() {
        pollfd watched = {.fd = descriptor_, .events = POLLIN, .revents = 0};
        return poll(&watched, 1, 0) > 0 && (watched.revents & POLLHUP) != 0;
    }

    tcflag_t local_modes() {
        termios settings{};
        EXPECT_EQ(tcgetattr(descriptor_, &settings), 0);
        return settings.c_lflag;
    }

private:
    int descriptor_;
};

struct EmulatorProgram : ::testing::Test {
    EmulatorProgram() { setenv("XDG_RUNTIME_DIR", runtime.path().c_str(), 1); }

    fs::path link(const char* name = "Zephon emulator") const { return runtime / "tessit-control" / name; }

    testing::TemporaryFolder runtime;
};

// One level takes 95 ms; a whole bank would add nothing but time.
void load_a_level(Child& child) {
    Client client(child.device);
    const Script script = load_script(1);
    client.play(Script(script.begin(), script.begin() + high_at));
    ASSERT_TRUE(client.gets({170, 6}));
    client.play(Script(script.begin() + high_at, script.begin() + record_at));
    ASSERT_TRUE(client.gets({6}));
    client.play(Script(script.begin() + record_at, script.end()));
    ASSERT_TRUE(client.gets({6}));
}

TEST_F(EmulatorProgram, load_is_received_stored_and_measured_without_breach) {
    Child child;
    const Lines greeting = child.start();
    EXPECT_EQ(
        greeting,
        (Lines{"device " + child.device, "Listed in Tessit Control as \"Zephon emulator\".",
               "Type 5 3 for every load, 5 2 BANK # for every reading, help for what else can be typed.", "ready"}));
    EXPECT_EQ(child.ask("5 3"), Lines{"ok"});
    load_a_level(child);
    const Lines dump = child.ask("dump 7");
    ASSERT_EQ(dump.size(), 51u);
    EXPECT_EQ(dump[0], "00 1e 96 08 00 03 1d 05 00 00 00 1f ff ff ff ff");
    EXPECT_EQ(dump[1], "ff ff ff ff ff ff ff ff ff ff ff ff ff ff ff ff");
    EXPECT_EQ(child.ask("violations"), (Lines{"0", "ok"}));
    EXPECT_EQ(child.ask("gaps").size(), 19u);
    EXPECT_EQ(child.errors(), "");
}

TEST_F(EmulatorProgram, reading_sends_the_bank_part_by_part) {
    Child child("--pace --latency 2");
    child.start();
    EXPECT_EQ(child.ask("store 7 1 001e960800031d050000001fffffffff"), Lines{"ok"});
    Client client(child.device);
    EXPECT_EQ(child.ask("5 2 7 #"), Lines{"ok"});
    EXPECT_TRUE(client.gets({'V', 'V'})); // until it is answered
    client.play({{0, 170}, {5'000, 6}});
    EXPECT_TRUE(client.gets({18, 192}));
    client.play({{12'000, 6}});
    EXPECT_TRUE(client.gets({0x00, 0x1e, 0x96, 8, 0, 3, 0x1d, 5, 0, 0, 0, 0x1f, 255, 255, 255, 255, 4}));
    client.play({{12'000, 6}});
    EXPECT_TRUE(client.gets({18, 208}));
    EXPECT_EQ(child.ask("violations"), (Lines{"0", "ok"}));
    EXPECT_EQ(child.errors(), "");
}

TEST_F(EmulatorProgram, reading_that_hangs_up_hangs_up_the_real_line_between_two_parts) {
    Child child;
    child.start();
    EXPECT_EQ(child.ask("fail sending_hang_up 2 1"), Lines{"ok"});
    child.ask("5 2 7 #");
    Client client(child.device);
    EXPECT_TRUE(client.gets({'V'}));
    client.play({{0, 170}, {5'000, 6}, {12'000, 6}});
    EXPECT_TRUE(comes_true([&] { return client.hung_up(); }));
    child.take_device(child.line());
    Client again(child.device);
    child.ask("5 2 7 #");
    EXPECT_TRUE(again.gets({'V'}));
}

TEST_F(EmulatorProgram, terminal_is_raw_before_any_client_sets_it) {
    Child child("--receive");
    child.start();
    Client client(child.device);
    EXPECT_EQ(client.local_modes() & (ICANON | ECHO | ISIG), 0u);
    client.send('V');
    EXPECT_TRUE(client.gets({170, 6}));
}

TEST_F(EmulatorProgram, breach_and_unheard_call_are_logged_at_once) {
    Child child;
    child.start();
    Client client(child.device);
    client.send(7);
    EXPECT_TRUE(
        comes_true([&] { return child.errors().find("expected a call, byte 86, came byte 7") != std::string::npos; }));
    client.send('V');
    EXPECT_TRUE(comes_true([&] { return child.errors().find("type 5 3 to receive") != std::string::npos; }));
    child.ask("5 3");
    client.send('V');
    EXPECT_TRUE(client.gets({170, 6}));
}

TEST_F(EmulatorProgram, hang_up_brings_a_new_terminal_under_the_same_name) {
    Child child("--receive");
    child.start();
    Client client(child.device);
    child.type("hangup");
    const Lines lines = child.lines_until("ok");
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_TRUE(comes_true([&] { return client.hung_up(); }));
    child.take_device(lines[0]);
    EXPECT_EQ(fs::read_symlink(link()), child.device);
    load_a_level(child);
}

TEST_F(EmulatorProgram, unplugged_is_not_listed_until_plugged_in) {
    Child child;
    child.start();
    child.ask("unplug");
    EXPECT_TRUE(!fs::is_symlink(link()) && announced_ports().empty());
    EXPECT_EQ(child.ask("plug").size(), 2u);
    EXPECT_EQ(announced_ports().size(), 1u);
}

TEST_F(EmulatorProgram, announcement_comes_and_goes_however_the_program_ends) {
    for (const int signal : {0, SIGTERM, SIGINT}) {
        Child child("--port-name Bench");
        child.start();
        EXPECT_EQ(announced_ports(), (std::vector<SerialPort>{{"Bench", link("Bench").string()}}));
        EXPECT_EQ(fs::read_symlink(link("Bench")), child.device);
        if (signal == 0) {
            EXPECT_EQ(child.ask("quit"), Lines{"ok"});
        } else {
            child.send_signal(signal);
        }
        EXPECT_EQ(child.exit_code(), 0);
        EXPECT_FALSE(fs::is_symlink(link("Bench")));
    }
}

TEST_F(EmulatorProgram, link_of_a_killed_generator_is_neither_listed_nor_opened_and_its_name_is_free) {
    for (const bool listed_between : {false, true}) {
        Child killed;
        killed.start();
        killed.send_signal(SIGKILL);
        EXPECT_EQ(killed.exit_code(), -1);
        fs::remove(link());
        fs::create_symlink("/dev/null", link()); // its terminal's number is another's now
        if (listed_between) {
            EXPECT_TRUE(announced_ports().empty());
        } else {
            EXPECT_FALSE(announcement_holds({"listed before", link().string()}));
        }
        EXPECT_TRUE(fs::is_empty(link().parent_path()));
        Child child;
        child.start();
        EXPECT_EQ(fs::read_symlink(link()), child.device);
        EXPECT_TRUE(announced_ports().size() == 1 && announcement_holds(announced_ports()[0]));
    }
}

TEST_F(EmulatorProgram, second_generator_is_listed_under_a_number) {
    Child first;
    first.start();
    Child second;
    EXPECT_EQ(second.start()[1], "Listed in Tessit Control as \"Zephon emulator 2\".");
    Child third("--port-name Bench");
    third.start();
    std::string names;
    for (const SerialPort& port : announced_ports()) {
        names += port.Name + "|";
    }
    EXPECT_EQ(names, "Bench|Zephon emulator|Zephon emulator 2|");
}

TEST_F(EmulatorProgram, folder_that_others_may_write_to_is_not_used) {
    fs::create_directory(link().parent_path());
    fs::permissions(link().parent_path(), fs::perms::all);
    Child child;
    EXPECT_EQ(child.start()[1], "Not listed in Tessit Control.");
    EXPECT_TRUE(fs::is_empty(link().parent_path()));
    EXPECT_NE(child.errors().find("no folder that is this user's alone"), std::string::npos);
}

TEST_F(EmulatorProgram, end_of_input_ends_it_only_when_asked_to) {
    Child stays("--receive");
    stays.start();
    stays.end_input();
    Client client(stays.device);
    client.send('V');
    EXPECT_TRUE(client.gets({170, 6}) && stays.running());
    Child ends("--exit-on-eof");
    ends.start();
    ends.end_input();
    EXPECT_EQ(ends.exit_code(), 0);
}

TEST_F(EmulatorProgram, wrong_options_are_refused_with_the_usage) {
    for (const char* options : {"--loud", "--port-name", "--port-name ../x", "--latency", "--latency 17"}) {
        Child child(options);
        EXPECT_EQ(child.exit_code(), 2);
        EXPECT_NE(child.errors().find("usage: zephon-emulator"), std::string::npos);
    }
    Child help("--help");
    EXPECT_EQ(help.exit_code(), 0);
}

} // namespace
} // namespace tessit::emulator::test
