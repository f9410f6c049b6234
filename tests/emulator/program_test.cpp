// SPDX-License-Identifier: MIT
// The program on its real pseudo-terminal, talked to by a client with raw settings of its own.
#include "dialogue.h"
#include "platform/announced_ports.h"

#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <poll.h>
#include <spawn.h>
#include <sstream>
#include <sys/wait.h>
#include <termios.h>
#include <thread>
#include <unistd.h>

extern char** environ;

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

// The program as a child, its three streams on pipes.
class Child {
public:
    explicit Child(const std::vector<std::string>& options = {}) {
        int in[2];
        int out[2];
        EXPECT_EQ(pipe2(in, O_CLOEXEC), 0);
        EXPECT_EQ(pipe2(out, O_CLOEXEC), 0);
        error_file_ = fs::path(getenv("XDG_RUNTIME_DIR")) / "stderr";
        posix_spawn_file_actions_t actions;
        posix_spawn_file_actions_init(&actions);
        posix_spawn_file_actions_adddup2(&actions, in[0], 0);
        posix_spawn_file_actions_adddup2(&actions, out[1], 1);
        posix_spawn_file_actions_addopen(&actions, 2, error_file_.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
        std::vector<std::string> words = {EMULATOR_PROGRAM};
        words.insert(words.end(), options.begin(), options.end());
        std::vector<char*> arguments;
        for (std::string& word : words) {
            arguments.push_back(word.data());
        }
        arguments.push_back(nullptr);
        EXPECT_EQ(posix_spawn(&pid_, EMULATOR_PROGRAM, &actions, nullptr, arguments.data(), environ), 0);
        posix_spawn_file_actions_destroy(&actions);
        close(in[0]);
        close(out[1]);
        in_ = in[1];
        out_ = out[0];
    }

    ~Child() {
        end_input();
        if (pid_ > 0) {
            kill(pid_, SIGKILL);
            waitpid(pid_, nullptr, 0);
        }
        close(out_);
    }

    void type(const std::string& text) {
        const std::string line = text + "\n";
        EXPECT_EQ(write(in_, line.data(), line.size()), static_cast<ssize_t>(line.size()));
    }

    // Lines up to and with the first that `ends`; fewer where the output ended or the deadline passed.
    template <class Ends> Lines lines_until(Ends ends) {
        Lines lines;
        do {
            lines.push_back(line());
        } while (!ends(lines.back()) && !lines.back().empty());
        return lines;
    }

    Lines ask(const std::string& command) {
        type(command);
        return lines_until([](const std::string& line) { return line == "ok" || line.starts_with("error: "); });
    }

    // What it says until it is ready; the device path is kept.
    Lines start() {
        Lines lines = lines_until([](const std::string& line) { return line == "ready"; });
        take_device(lines.front());
        return lines;
    }

    void take_device(const std::string& line) {
        ASSERT_TRUE(line.starts_with("device /dev/")) << line;
        device = line.substr(7);
    }

    void send_signal(int signal) { kill(pid_, signal); }
    void end_input() {
        if (in_ >= 0) {
            close(std::exchange(in_, -1));
        }
    }
    bool running() { return pid_ > 0 && waitpid(pid_, &status_, WNOHANG) == 0; }

    int exit_code() {
        EXPECT_TRUE(comes_true([this] { return !running(); }));
        pid_ = -1;
        return WIFEXITED(status_) ? WEXITSTATUS(status_) : -1;
    }

    std::string errors() const {
        std::ifstream file(error_file_);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    std::string device;

private:
    std::string line() {
        for (auto end = read_.find('\n');; end = read_.find('\n')) {
            if (end != std::string::npos) {
                const std::string line = read_.substr(0, end);
                read_.erase(0, end + 1);
                return line;
            }
            pollfd watched = {.fd = out_, .events = POLLIN, .revents = 0};
            char buffer[4096];
            const auto patience = std::chrono::milliseconds(deadline).count();
            const ssize_t count =
                poll(&watched, 1, static_cast<int>(patience)) > 0 ? read(out_, buffer, sizeof buffer) : 0;
            if (count <= 0) {
                ADD_FAILURE() << "no line came; errors: " << errors();
                return {};
            }
            read_.append(buffer, static_cast<std::size_t>(count));
        }
    }

    pid_t pid_ = -1;
    int in_ = -1;
    int out_ = -1;
    int status_ = 0;
    std::string read_;
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

    // True when exactly these come next.
    bool gets(std::vector<Byte> expected) {
        std::vector<Byte> came;
        comes_true([&] {
            Byte byte;
            while (came.size() < expected.size() && read(descriptor_, &byte, 1) == 1) {
                came.push_back(byte);
            }
            return came.size() == expected.size();
        });
        return came == expected;
    }

    // The same, behind any calls that came before the answer was seen.
    bool gets_behind_calls(const std::vector<Byte>& expected) {
        Byte byte = 'V';
        return comes_true([&] { return read(descriptor_, &byte, 1) == 1 && byte != 'V'; }) && byte == expected[0] &&
               gets({expected.begin() + 1, expected.end()});
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
    void SetUp() override {
        char folder[] = "/tmp/emulator-test-XXXXXX";
        ASSERT_NE(mkdtemp(folder), nullptr);
        runtime = folder;
        setenv("XDG_RUNTIME_DIR", folder, 1);
    }
    void TearDown() override { fs::remove_all(runtime); }

    fs::path link(const char* name = "Zephon emulator") const { return runtime / "tessit-control" / name; }

    fs::path runtime;
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

TEST_F(EmulatorProgram, Load_IsReceivedStoredAndMeasuredWithoutBreach) {
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

TEST_F(EmulatorProgram, Reading_SendsTheBankPartByPart) {
    Child child({"--pace", "--latency", "2"});
    child.start();
    EXPECT_EQ(child.ask("store 7 1 001e960800031d050000001fffffffff"), Lines{"ok"});
    Client client(child.device);
    EXPECT_EQ(child.ask("5 2 7 #"), Lines{"ok"});
    EXPECT_TRUE(client.gets({'V', 'V'})); // until it is answered
    client.play({{0, 170}, {5'000, 6}});
    EXPECT_TRUE(client.gets_behind_calls({18, 192}));
    client.play({{12'000, 6}});
    EXPECT_TRUE(client.gets({0x00, 0x1e, 0x96, 8, 0, 3, 0x1d, 5, 0, 0, 0, 0x1f, 255, 255, 255, 255, 4}));
    client.play({{12'000, 6}});
    EXPECT_TRUE(client.gets({18, 208}));
    EXPECT_EQ(child.ask("violations"), (Lines{"0", "ok"}));
    EXPECT_EQ(child.errors(), "");
}

TEST_F(EmulatorProgram, ReadingThatHangsUp_HangsUpTheRealLineBetweenTwoParts) {
    Child child;
    child.start();
    EXPECT_EQ(child.ask("fail sending_hang_up 2 1"), Lines{"ok"});
    child.ask("5 2 7 #");
    Client client(child.device);
    EXPECT_TRUE(client.gets({'V'}));
    client.play({{0, 170}, {5'000, 6}, {12'000, 6}});
    EXPECT_TRUE(comes_true([&] { return client.hung_up(); }));
    child.take_device(child.lines_until([](const std::string&) { return true; }).front());
    Client again(child.device);
    child.ask("5 2 7 #");
    EXPECT_TRUE(again.gets({'V'}));
}

TEST_F(EmulatorProgram, Terminal_IsRawBeforeAnyClientSetsIt) {
    Child child({"--receive"});
    child.start();
    Client client(child.device);
    EXPECT_EQ(client.local_modes() & (ICANON | ECHO | ISIG), 0u);
    client.send('V');
    EXPECT_TRUE(client.gets({170, 6}));
}

TEST_F(EmulatorProgram, Breach_IsLoggedAtOnce) {
    Child child;
    child.start();
    Client(child.device).send(7);
    EXPECT_TRUE(comes_true([&] { return child.errors().find("violation: ") != std::string::npos; }));
    EXPECT_NE(child.errors().find("expected a call, byte 86, came byte 7"), std::string::npos) << child.errors();
}

TEST_F(EmulatorProgram, CallBeforeTheKeys_GetsAHintAndAnAnswerAfterThem) {
    Child child;
    child.start();
    Client client(child.device);
    client.send('V');
    EXPECT_TRUE(comes_true([&] { return child.errors().find("type 5 3 to receive") != std::string::npos; }));
    child.ask("5 3");
    client.send('V');
    EXPECT_TRUE(client.gets({170, 6}));
}

TEST_F(EmulatorProgram, HangUp_BringsANewTerminalUnderTheSameName) {
    Child child({"--receive"});
    child.start();
    Client client(child.device);
    child.type("hangup");
    const Lines lines = child.lines_until([](const std::string& line) { return line == "ok"; });
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_TRUE(comes_true([&] { return client.hung_up(); }));
    child.take_device(lines[0]);
    EXPECT_EQ(fs::read_symlink(link()), child.device);
    load_a_level(child);
}

TEST_F(EmulatorProgram, FailureThatHangsUp_HangsUpTheRealLine) {
    Child child({"--receive"});
    child.start();
    EXPECT_EQ(child.ask("fail handshake_hang_up 1 1"), Lines{"ok"});
    Client client(child.device);
    client.send('V');
    EXPECT_TRUE(comes_true([&] { return client.hung_up(); }));
    child.take_device(child.lines_until([](const std::string&) { return true; }).front());
    Client again(child.device);
    again.send('V');
    EXPECT_TRUE(again.gets({170, 6}));
}

TEST_F(EmulatorProgram, Unplugged_IsNotListedUntilPluggedIn) {
    Child child;
    child.start();
    child.ask("unplug");
    EXPECT_FALSE(fs::is_symlink(link()));
    EXPECT_TRUE(announced_ports().empty());
    EXPECT_EQ(child.ask("plug").size(), 2u);
    EXPECT_EQ(announced_ports().size(), 1u);
}

TEST_F(EmulatorProgram, Announcement_ComesAndGoesHoweverTheProgramEnds) {
    for (const int signal : {0, SIGTERM, SIGINT}) {
        Child child({"--port-name", "Bench"});
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

TEST_F(EmulatorProgram, LinkOfAKilledGenerator_IsNotListedAndItsNameIsFree) {
    for (const bool listed_between : {false, true}) {
        Child killed;
        killed.start();
        killed.send_signal(SIGKILL);
        EXPECT_EQ(killed.exit_code(), -1);
        fs::remove(link());
        fs::create_symlink("/dev/null", link()); // its terminal's number is another's now
        if (listed_between) {
            EXPECT_TRUE(announced_ports().empty());
            EXPECT_TRUE(fs::is_empty(link().parent_path()));
        }
        Child child;
        child.start();
        EXPECT_EQ(fs::read_symlink(link()), child.device);
        EXPECT_EQ(announced_ports().size(), 1u);
    }
}

TEST_F(EmulatorProgram, SecondGenerator_IsListedUnderANumber) {
    Child first;
    first.start();
    Child second;
    EXPECT_EQ(second.start()[1], "Listed in Tessit Control as \"Zephon emulator 2\".");
    EXPECT_EQ(announced_ports().size(), 2u);
}

TEST_F(EmulatorProgram, FolderThatOthersMayWriteTo_IsNotUsed) {
    fs::create_directory(link().parent_path());
    fs::permissions(link().parent_path(), fs::perms::all);
    Child child;
    EXPECT_EQ(child.start()[1], "Not listed in Tessit Control.");
    EXPECT_TRUE(fs::is_empty(link().parent_path()));
    EXPECT_NE(child.errors().find("no folder that is this user's alone"), std::string::npos);
    Client client(child.device); // the terminal works all the same
    child.ask("5 3");
    client.send('V');
    EXPECT_TRUE(client.gets({170, 6}));
}

TEST_F(EmulatorProgram, EndOfInput_EndsItOnlyWhenAskedTo) {
    Child stays({"--receive"});
    stays.start();
    stays.end_input();
    Client client(stays.device);
    client.send('V');
    EXPECT_TRUE(client.gets({170, 6}));
    EXPECT_TRUE(stays.running());
    Child ends({"--exit-on-eof"});
    ends.start();
    ends.end_input();
    EXPECT_EQ(ends.exit_code(), 0);
}

TEST_F(EmulatorProgram, WrongOptions_AreRefusedWithTheUsage) {
    for (const char* options : {"--loud", "--port-name", "--port-name ../x", "--latency", "--latency 17"}) {
        std::istringstream words(options);
        Child child(std::vector<std::string>(std::istream_iterator<std::string>(words), {}));
        EXPECT_EQ(child.exit_code(), 2);
        EXPECT_NE(child.errors().find("usage: zephon-emulator"), std::string::npos);
    }
    Child help({"--help"});
    EXPECT_EQ(help.exit_code(), 0);
}

} // namespace
} // namespace tessit::emulator::test
