// SPDX-License-Identifier: MIT
#include "support/scripted_desktop.h"

#include "platform/text.h"

#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>

namespace tessit::testing {

namespace fs = std::filesystem;

namespace {

struct RecordingPrinter : Graphics {
    std::vector<Page>& pages;
    explicit RecordingPrinter(std::vector<Page>& printed) : pages(printed) {}

    double StringWidth(const std::string& text, const PageFont&) override { return 5.0 * Len(text); }
    void print(const Page& page) override { pages.push_back(page); }
};

} // namespace

TemporaryFolder::TemporaryFolder() {
    std::string name = (fs::temp_directory_path() / "tessit-test-XXXXXX").string();
    path_ = mkdtemp(name.data());
}

TemporaryFolder::~TemporaryFolder() {
    std::error_code error;
    fs::remove_all(path_, error);
}

std::string file_bytes(const fs::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

void write_file(const fs::path& file, const std::string& bytes) {
    std::ofstream(file, std::ios::binary) << bytes;
}

std::string hex(const std::string& bytes) {
    static constexpr char digits[] = "0123456789abcdef";
    std::string text;
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        text += text.empty() ? "" : " ";
        text += digits[byte / 16];
        text += digits[byte % 16];
    }
    return text;
}

std::optional<Fault> fault_of(const std::function<void()>& step) {
    try {
        step();
    } catch (const Fault& fault) {
        return fault;
    }
    return std::nullopt;
}

ScriptedDesktop::~ScriptedDesktop() {
    for (const auto& [message, answer] : messages_) {
        ADD_FAILURE() << "never asked: " << message;
    }
    for (const auto& expected : expected_faults_) {
        ADD_FAILURE() << "no fault came from " << expected;
    }
    EXPECT_TRUE(files_.empty()) << "a file dialog did not come";
    EXPECT_TRUE(printers_.empty()) << "a print dialog did not come";
}

DialogAnswer ScriptedDesktop::show_dialog(const MessageDialog& dialog) {
    dialogs.push_back(dialog);
    if (messages_.empty()) {
        ADD_FAILURE() << "unexpected dialog: " << dialog.Message;
        return DialogAnswer::cancel;
    }
    const auto [message, answer] = messages_.front();
    messages_.pop_front();
    EXPECT_EQ(dialog.Message, message);
    return answer;
}

std::unique_ptr<Graphics> ScriptedDesktop::choose_printer() {
    if (printers_.empty()) {
        ADD_FAILURE() << "unexpected print dialog";
        return nullptr;
    }
    on_print_dialog();
    const bool chosen = printers_.front();
    printers_.pop_front();
    return chosen ? std::make_unique<RecordingPrinter>(pages) : nullptr;
}

void ScriptedDesktop::show_fault(const FaultReport& report) {
    faults.push_back(report);
    if (expected_faults_.empty()) {
        ADD_FAILURE() << "unexpected fault in " << report.handler << ": " << report.what;
        return;
    }
    EXPECT_EQ(report.handler, expected_faults_.front()) << report.what;
    expected_faults_.pop_front();
}

void ScriptedDesktop::run_event_loop() {
    while (!soon_.empty()) {
        const auto call = std::move(soon_.front());
        soon_.pop_front();
        call();
    }
}

std::optional<FolderItem> ScriptedDesktop::next_file(const FileRequest& request) {
    file_requests.push_back(request);
    if (files_.empty()) {
        ADD_FAILURE() << "unexpected file dialog: " << request.default_name;
        return std::nullopt;
    }
    const fs::path file = files_.front();
    files_.pop_front();
    return file.empty() ? std::nullopt : std::optional(FolderItem(file));
}

} // namespace tessit::testing
