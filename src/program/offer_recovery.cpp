// SPDX-License-Identifier: MIT
// The question at the start about unsaved work that an earlier program left behind when it died.
#include "composer/compose_window.h"
#include "consolidator/consolidator_window.h"
#include "core/app.h"
#include "device/read_window.h"
#include "editor/edit_window.h"
#include "platform/text.h"
#include "program/unsaved_work.h"
#include "recovery/recovery_copy.h"
#include "recovery/recovery_folder.h"

#include <algorithm>

namespace tessit {

namespace {

constexpr const char* found_title = "Unsaved work was found";
constexpr std::size_t most_copy_bytes = 100'000'000; // far more than the program writes

template <auto Instance> DocumentWindow& touch(App& app) {
    return (app.*Instance).get();
}

struct Kind {
    std::string_view window;
    const char* title;
    DocumentWindow& (*touch)(App& app);
};

// In the order in which they are opened again: the composer comes over the list that it was made from.
constexpr Kind kinds[] = {
    {"ReadZPWindow", "Read Zephon Data", touch<&App::ReadZPWindow>},
    {"consolidatorWindow", "Frequency Consolidator", touch<&App::consolidatorWindow>},
    {"editwindow", "Zephon Protocol Editor", touch<&App::editwindow>},
    {"composewindow", "Protocol Composer", touch<&App::composewindow>},
};

struct FoundCopy {
    std::filesystem::path file;
    const Kind* kind;
    RecoveryCopy copy;
};

// What one program left behind. The lock keeps other programs from offering it too.
struct FoundWork {
    LeftCopies files;
    std::vector<FoundCopy> copies; // in the order of `kinds`

    std::time_t kept_at() const { return copies.front().copy.kept_at; }
};

std::optional<FoundCopy> read_copy(const std::filesystem::path& file) {
    try {
        auto copy = read_recovery_copy(FolderItem(file).OpenAsTextFile(most_copy_bytes)->ReadAll());
        const auto* kind = std::find_if(std::begin(kinds), std::end(kinds),
                                        [&](const Kind& k) { return copy && k.window == copy->window; });
        return kind == std::end(kinds) ? std::nullopt : std::optional(FoundCopy{file, kind, std::move(*copy)});
    } catch (const Fault&) {
        return std::nullopt;
    }
}

// It stays for the user, whatever becomes of the others, under a name by which it is not found again. Gives the words
// about it.
std::string put_aside(LeftCopies& left, const std::filesystem::path file) {
    std::erase(left.copies, file);
    std::filesystem::path aside = file;
    aside += ".damaged";
    std::error_code error;
    std::filesystem::rename(file, aside, error);
    return "A damaged copy was not opened. It is kept as \"" + (error ? file : aside).string() + "\".\r\r";
}

std::string without_last_line_ends(std::string text) {
    text.erase(text.find_last_not_of(carriage_return) + 1);
    return text;
}

// The newest work that was left behind; the rest waits for later starts. Tells of damaged ones in `words`.
std::optional<FoundWork> find_newest(const std::filesystem::path& folder, std::string& words) {
    std::optional<FoundWork> newest;
    for (LeftCopies& left : left_copies(folder)) {
        FoundWork work{.files = std::move(left), .copies = {}};
        for (const std::filesystem::path& file : std::vector(work.files.copies)) {
            if (auto copy = read_copy(file)) {
                work.copies.push_back(std::move(*copy));
            } else {
                words += put_aside(work.files, file);
            }
        }
        std::sort(work.copies.begin(), work.copies.end(),
                  [](const FoundCopy& a, const FoundCopy& b) { return a.kind < b.kind; });
        if (!work.copies.empty() && (!newest || work.kept_at() > newest->kept_at())) {
            newest = std::move(work);
        }
    }
    return newest;
}

std::string found_text(const FoundWork& work) {
    std::string text;
    for (const FoundCopy& found : work.copies) {
        const Date kept = local_date(found.copy.kept_at);
        text += std::string(found.kind->title) + ": " + found.copy.document + ", " + kept.SQLDate() + " " +
                two_digits(kept.hour) + ":" + two_digits(kept.minute) + "\r";
    }
    return text + "\rRestore opens it as it was, still unsaved. Later keeps it and asks again at the next start.\r\r";
}

// As it was, or not at all.
void restore(App& app, const FoundCopy& found) {
    DocumentWindow& window = found.kind->touch(app);
    try {
        ArchiveReader reader(found.copy.values);
        window.archive_document(reader);
        window.change_flag() = true;
    } catch (const Fault&) {
        window.change_flag() = false;
        window.Close();
        throw;
    }
}

// Gives the words about copies that could not be restored.
std::string restore(App& app, FoundWork& work) {
    std::string failed;
    for (const FoundCopy& found : work.copies) {
        try {
            restore(app, found);
        } catch (const Fault&) {
            failed += put_aside(work.files, found.file);
        }
    }
    set_up_report_columns(app); // the read window leaves it out without a serial port
    if (app.composewindow.exists() && app.consolidatorWindow.exists()) {
        app.consolidatorWindow->Hide(); // as it was behind the composer
    }
    app.hide_main_window();
    return failed;
}

void tell_of_damaged(App& app, const std::string& words) {
    if (!words.empty()) {
        app.ShowModal(
            {.Message = found_title, .Explanation = without_last_line_ends(words), .Icon = DialogIcon::caution});
    }
}

} // namespace

bool App::offer_recovery() {
    bool restored = false;
    from_user("App.offer_recovery", [&] {
        std::string damaged;
        auto work = unsaved_work_ == nullptr ? std::nullopt : find_newest(desktop().recovery_folder()->path(), damaged);
        if (!work) {
            return tell_of_damaged(*this, damaged);
        }
        const auto answer = ShowModal({.Message = found_title,
                                       .Explanation = without_last_line_ends(found_text(*work) + damaged),
                                       .Icon = DialogIcon::question,
                                       .ActionButton = {"Restore", true},
                                       .CancelButton = {"Later", true},
                                       .AlternateActionButton = {"Discard", true}});
        if (answer == DialogAnswer::cancel) {
            return;
        }
        restored = answer == DialogAnswer::action;
        if (restored) {
            const std::string failed = restore(*this, *work);
            unsaved_work_->event_ended(); // gets to know the windows
            const bool kept = unsaved_work_->keep_now();
            tell_of_damaged(*this, failed);
            if (!kept) {
                return; // the old copies are the only ones
            }
        }
        work->files.remove();
    });
    return restored;
}

} // namespace tessit
