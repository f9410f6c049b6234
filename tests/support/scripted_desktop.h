// SPDX-License-Identifier: MIT
// The desktop of the tests: a simulated clock, a program folder of its own, and dialogs that are answered by the
// test. A question that the test did not expect fails it, and so does an answer that was not used up.
#pragma once

#include "platform/application.h"
#include "platform/desktop.h"
#include "support/scripted_sockets.h"

#include <deque>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace tessit::testing {

// Moves only when it is asked to idle, or by hand.
class SimulatedClock : public Clock {
public:
    Microseconds now() override { return now_; }
    void idle(Microseconds at_most) override {
        now_ += at_most;
        idled_ += at_most;
    }

    Microseconds idled() const { return idled_; }

private:
    Microseconds now_ = 1'000'000;
    Microseconds idled_ = 0;
};

// A folder that is removed with the object.
class TemporaryFolder {
public:
    TemporaryFolder();
    ~TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    const std::filesystem::path& path() const { return path_; }
    std::filesystem::path operator/(const std::string& name) const { return path_ / name; }

private:
    std::filesystem::path path_;
};

std::string file_bytes(const std::filesystem::path& file);
void write_file(const std::filesystem::path& file, const std::string& bytes);
std::string hex(const std::string& bytes); // "01 ff", for messages and literals

// Whole numbers, texts and controls with a text, joined by "|": several values in one comparison.
template <class... Values> std::string joined(const Values&... values) {
    const auto text = []<class Value>(const Value& value) -> std::string {
        if constexpr (std::is_integral_v<Value>) {
            return std::to_string(+value);
        } else if constexpr (std::is_convertible_v<Value, std::string>) {
            return value;
        } else if constexpr (requires { value.toStdString(); }) {
            return value.toStdString();
        } else {
            return value.Text();
        }
    };
    std::string all;
    ((all += "|" + text(values)), ...);
    return all.substr(1);
}

std::optional<Fault> fault_of(const std::function<void()>& step); // that it raises

class ScriptedDesktop : public Desktop {
public:
    ~ScriptedDesktop() override;

    // Script. Texts are compared whole.
    void expect_message(const std::string& message, DialogAnswer answer = DialogAnswer::action) {
        messages_.emplace_back(message, answer);
    }
    void expect_fault(const std::string& handler) { expected_faults_.push_back(handler); } // its text is in `faults`
    void choose_file(const std::filesystem::path& file) {
        files_.push_back(file);
    } // an empty path dismisses the dialog
    void dismiss_file_dialog() { choose_file({}); }
    void accept_printing() { printers_.push_back(true); } // the next print dialog
    void dismiss_print_dialog() { printers_.push_back(false); }
    std::function<void()> on_print_dialog = [] {};
    void connect(SerialPorts& ports) { switchboard_.connected = &ports; }

    // What happened.
    std::vector<MessageDialog> dialogs;
    std::vector<FileRequest> file_requests;
    std::vector<FaultReport> faults;
    std::vector<std::string> shown; // names of windows in the order in which they were shown
    std::vector<Page> pages;        // as printed; every character is 5 points wide
    int beeps = 0;
    std::optional<std::string> clipboard; // what other programs see of it, and what they put there
    bool has_quit = false;

    SimulatedClock simulated_clock;
    Date date{.year = 2026, .month = 3, .day = 9};
    std::vector<std::string> font_names{"System", "Arial", "Courier"};
    TemporaryFolder folder;
    ScriptedSockets scripted_sockets;

    Clock& clock() override { return simulated_clock; }
    SerialPorts& serial_ports() override { return switchboard_; }
    ScriptedSockets& sockets() override { return scripted_sockets; }
    FolderItem program_folder() override { return FolderItem(folder.path()); }
    DialogAnswer show_dialog(const MessageDialog& dialog) override;
    std::optional<FolderItem> choose_open_file(const FileRequest& request) override { return next_file(request); }
    std::optional<FolderItem> choose_save_file(const FileRequest& request) override { return next_file(request); }
    std::unique_ptr<Graphics> choose_printer() override;
    Date current_date() override { return date; }
    const std::vector<std::string>& fonts() override { return font_names; }
    void show_fault(const FaultReport& report) override;
    void Beep() override { ++beeps; }
    std::optional<std::string> clipboard_text() override { return clipboard; }
    void set_clipboard_text(const std::string& text) override { clipboard = text; }
    void call_soon(std::function<void()> call) override { soon_.push_back(std::move(call)); }
    void call_later(Microseconds, std::function<void()> call) override { soon_.push_back(std::move(call)); }
    void run_event_loop(); // until nothing is left to be called
    void window_shown(Window& window) override { shown.push_back(window.name()); }
    void window_hidden(Window&) override {}
    void window_closed(Window&) override {}
    void quit() override { has_quit = true; }

private:
    struct Switchboard : SerialPorts { // to the ports that are connected now
        SerialPorts* connected = nullptr;
        std::vector<SerialPort> list() override {
            return connected == nullptr ? std::vector<SerialPort>{} : connected->list();
        }
        std::unique_ptr<SerialLine> open(const SerialPort& port, const SerialSettings& settings) override {
            return connected == nullptr ? nullptr : connected->open(port, settings);
        }
        std::optional<PortHolder> holder(const SerialPort& port) override {
            return connected == nullptr ? std::nullopt : connected->holder(port);
        }
    };
    std::optional<FolderItem> next_file(const FileRequest& request);

    Switchboard switchboard_;
    std::deque<std::pair<std::string, DialogAnswer>> messages_;
    std::deque<std::string> expected_faults_;
    std::deque<std::filesystem::path> files_;
    std::deque<bool> printers_; // chosen or dismissed
    std::deque<std::function<void()>> soon_;
};

} // namespace tessit::testing
