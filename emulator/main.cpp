// SPDX-License-Identifier: MIT
// zephon-emulator: the emulated generator on a pseudo-terminal that Tessit Control finds in its list of ports, with
// its keypad on standard input. Bytes, time and signals meet here; what they mean is decided in generator.h.
#include "emulator/console.h"
#include "emulator/pseudo_terminal.h"
#include "platform/announced_ports.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <ctime>
#include <poll.h>
#include <sched.h>
#include <system_error>
#include <unistd.h>

namespace tessit::emulator {

namespace {

constexpr const char* usage = R"(usage: zephon-emulator [OPTION]...
An emulated Zephon II on a pseudo-terminal, for use beside Tessit Control without hardware.

  --port-name NAME  name in the list of ports (default: Zephon emulator)
  --receive         start in receive mode and return to it after every load, so that
                    nobody has to press 5 then 3 on the keypad
  --pace            send banks at the line's 1920 bytes a second, not at once
  --latency MS      let every byte arrive that much later, 0 to 16 ms, as behind an adapter
  --exit-on-eof     end when standard input ends
  --help            this text

Without --receive, type "5 3" and Return for every load, before or after clicking OK in
Tessit Control. Type "5 2 BANK #" and Return to have a bank read, before or after clicking
Read. "help" lists what else can be typed.
)";

struct Options {
    std::string port_name = "Zephon emulator";
    AfterLoad after_load = AfterLoad::leave_receive_mode;
    Pace pace = Pace::unpaced;
    Microseconds latency = 0;
    bool exit_on_eof = isatty(STDIN_FILENO) != 0;
};

class BadOption : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

Microseconds latency_option(const char* word) {
    try {
        return latency_in_milliseconds(word);
    } catch (const std::runtime_error& error) {
        throw BadOption(error.what());
    }
}

// None when the help text was asked for.
std::optional<Options> parse(std::span<char*> arguments) {
    Options options;
    for (std::size_t i = 1; i < arguments.size(); ++i) {
        const std::string_view option = arguments[i];
        if (option == "--help") {
            return std::nullopt;
        }
        if (option == "--receive") {
            options.after_load = AfterLoad::stay_in_receive_mode;
        } else if (option == "--exit-on-eof") {
            options.exit_on_eof = true;
        } else if (option == "--pace") {
            options.pace = Pace::line_speed;
        } else if (option == "--latency" && i + 1 < arguments.size()) {
            options.latency = latency_option(arguments[++i]);
        } else if (option == "--port-name" && i + 1 < arguments.size()) {
            options.port_name = arguments[++i];
        } else {
            throw BadOption("unknown or incomplete option " + std::string(option));
        }
    }
    if (options.port_name.empty() || options.port_name[0] == '.' || options.port_name.find('/') != std::string::npos) {
        throw BadOption("a port name can't be empty, begin with a point or contain a slash");
    }
    return options;
}

Microseconds now() {
    timespec time{};
    clock_gettime(CLOCK_MONOTONIC, &time);
    return Microseconds{time.tv_sec} * 1'000'000 + time.tv_nsec / 1000;
}

void say(const std::string& line) {
    std::printf("%s\n", line.c_str());
    std::fflush(stdout);
}

void log(const std::string& line) {
    std::fprintf(stderr, "zephon-emulator: %s\n", line.c_str());
}

// A real generator is not slowed down by other programs. Where the system allows it, neither is this one.
void run_before_others() {
    const sched_param priority = {.sched_priority = 1};
    sched_setscheduler(0, SCHED_RR | SCHED_RESET_ON_FORK, &priority);
}

volatile std::sig_atomic_t end_was_asked = 0;

// Blocks the signals that end the program; they come through in the poll alone. Gives the mask for the poll.
sigset_t catch_end_signals() {
    struct sigaction action = {};
    action.sa_handler = [](int) { end_was_asked = 1; };
    sigset_t blocked;
    sigset_t in_poll;
    sigemptyset(&blocked);
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        sigaction(signal, &action, nullptr);
        sigaddset(&blocked, signal);
    }
    std::signal(SIGPIPE, SIG_IGN);
    sigprocmask(SIG_BLOCK, &blocked, &in_poll);
    return in_poll;
}

// While bytes come, the line is looked at every millisecond, so that each one's time is known that well.
constexpr Microseconds attentive = 1'000;
constexpr Microseconds at_rest = 1'000'000;
constexpr Microseconds attention_span = 2'000'000;

class Program {
public:
    explicit Program(Options options)
        : options_(std::move(options)), generator_(options_.after_load), poll_mask_(catch_end_signals()) {
        generator_.set_pace(options_.pace);
        generator_.set_latency(options_.latency);
        plug_in();
    }

    void run();

private:
    void plug_in();
    void follow_line_state();
    void serve_line();
    void excuse_lateness(Microseconds since);
    void send_due();
    void report();
    void wait_for_news();
    Microseconds patience() const;
    void serve_keypad();

    Options options_;
    Generator generator_;
    sigset_t poll_mask_;
    std::optional<PseudoTerminal> terminal_;
    std::optional<PortAnnouncement> announcement_;
    Microseconds quiet_until_ = now(); // the line was seen empty then
    Microseconds last_byte_ = 0;
    std::size_t reported_ = 0; // violations
    bool missed_keys_reported_ = false;
    bool stdin_open_ = true;
    bool stdin_ready_ = false;
    bool quit_ = false;
    std::string typed_; // the line that is being typed
};

void Program::run() {
    say(announcement_->announced() ? "Listed in Tessit Control as \"" + announcement_->name() + "\"."
                                   : "Not listed in Tessit Control.");
    say(generator_.receiving()
            ? "In receive mode. Type help for what can be typed."
            : "Type 5 3 for every load, 5 2 BANK # for every reading, help for what else can be typed.");
    say("ready");
    while (!quit_ && end_was_asked == 0) {
        serve_line();
        wait_for_news();
        serve_keypad();
    }
}

void Program::plug_in() {
    terminal_.emplace();
    announcement_.reset(); // a new line takes over the name
    announcement_.emplace(options_.port_name, terminal_->device());
    quiet_until_ = now();
    say("device " + terminal_->device());
    if (!announcement_->announced()) {
        const auto folder = announcement_folder();
        log("the port can't be announced: " +
            (folder ? "no link can be made in " + folder->string() : "no folder that is this user's alone"));
    }
}

// After a hang-up the old terminal goes for good, as a plug that is pulled out; the next one is another.
void Program::follow_line_state() {
    if (generator_.hung_up()) {
        announcement_.reset();
        terminal_.reset();
    }
    if (generator_.can_be_opened_again()) {
        generator_.plug_in();
    }
    if (!terminal_ && !generator_.hung_up()) {
        plug_in();
    }
}

void Program::serve_line() {
    while (terminal_) {
        const Microseconds before = now();
        const auto bytes = terminal_->read();
        if (bytes.empty()) {
            quiet_until_ = before;
            break;
        }
        const bool watched = before - last_byte_ < attention_span; // else nobody knows when the first byte came
        last_byte_ = now();
        const Microseconds came = watched ? quiet_until_ : last_byte_;
        excuse_lateness(came);
        for (const Byte byte : bytes) {
            generator_.receive(byte, {.earliest = quiet_until_, .latest = last_byte_});
        }
        send_due();
        excuse_lateness(came);
        follow_line_state();
    }
    generator_.pass_time(quiet_until_);
    follow_line_state();
    send_due();
    report();
}

// On a machine that kept this program waiting, a sender may have run out of patience; that is no breach.
void Program::excuse_lateness(Microseconds since) {
    constexpr Microseconds half_a_senders_patience = 50'000;
    if (now() - since > half_a_senders_patience) {
        generator_.excuse();
    }
}

void Program::send_due() {
    if (terminal_) {
        terminal_->write(generator_.take(now()));
    }
}

void Program::report() {
    for (; reported_ < generator_.violations().size(); ++reported_) {
        log("violation: " + to_text(generator_.violations()[reported_]));
    }
    const bool missed = generator_.unheard_calls() > 0;
    if (missed && !missed_keys_reported_) {
        log("a program calls; type 5 3 to receive");
    }
    missed_keys_reported_ = missed;
}

void Program::wait_for_news() {
    std::array<pollfd, 2> watched = {
        {{.fd = stdin_open_ ? STDIN_FILENO : -1, .events = POLLIN, .revents = 0},
         {.fd = terminal_ ? terminal_->descriptor() : -1, .events = POLLIN, .revents = 0}}};
    const Microseconds at_most = patience();
    const timespec timeout = {.tv_sec = at_most / 1'000'000, .tv_nsec = at_most % 1'000'000 * 1000};
    const int ready = ppoll(watched.data(), watched.size(), &timeout, &poll_mask_);
    stdin_ready_ = ready > 0 && watched[0].revents != 0;
    if (ready == 0 && terminal_) {
        terminal_->lift_exclusive_claim();
    }
}

Microseconds Program::patience() const {
    const Microseconds time = now();
    const Microseconds patience = time - last_byte_ < attention_span ? attentive : at_rest;
    return std::clamp(generator_.next_event().value_or(time + patience) - time, Microseconds{0}, patience);
}

void Program::serve_keypad() {
    std::array<char, 1024> buffer;
    const ssize_t count = stdin_ready_ ? read(STDIN_FILENO, buffer.data(), buffer.size()) : -1;
    if (count < 0) {
        return;
    }
    if (count == 0) {
        stdin_open_ = false;
        quit_ = options_.exit_on_eof;
        return;
    }
    typed_.append(buffer.data(), static_cast<std::size_t>(count));
    for (auto end = typed_.find('\n'); end != std::string::npos && !quit_; end = typed_.find('\n')) {
        serve_line(); // what came before the command was typed counts first
        const Reply reply = execute(generator_, typed_.substr(0, end));
        typed_.erase(0, end + 1);
        follow_line_state();
        send_due();
        report();
        for (const std::string& line : reply.lines) {
            std::printf("%s\n", line.c_str());
        }
        std::fflush(stdout);
        quit_ = reply.quit;
    }
}

} // namespace

} // namespace tessit::emulator

int main(int count, char** arguments) {
    using namespace tessit::emulator;
    try {
        const auto options = parse({arguments, static_cast<std::size_t>(count)});
        if (!options) {
            std::fputs(usage, stdout);
            return 0;
        }
        run_before_others();
        Program(*options).run();
        return 0;
    } catch (const BadOption& error) {
        log(error.what());
        std::fputs(usage, stderr);
        return 2;
    } catch (const std::exception& error) {
        log(error.what());
        return 1;
    }
}
