// SPDX-License-Identifier: MIT
#include "program/unsaved_work.h"

#include "composer/compose_window.h"
#include "consolidator/consolidator_window.h"
#include "device/read_window.h"
#include "editor/edit_window.h"
#include "recovery/recovery_copy.h"

#include <ctime>
#include <functional>

namespace tessit {

namespace {

constexpr Microseconds time_to_look = 400'000; // after an event; with the writing it stays below a second

template <auto Instance> DocumentWindow* open_window(App& app) {
    auto& instance = app.*Instance;
    return instance.exists() ? &instance.get() : nullptr;
}

std::size_t hash_of(std::string_view text) {
    return std::hash<std::string_view>()(text);
}

// Table or list, without the fields around them.
std::size_t work_of(DocumentWindow& document) {
    if (const EditField* list = document.list()) {
        return hash_of(list->Text());
    }
    std::string cells;
    const auto table = document.level_table();
    for (int row = 0; table && row < table->rows.ListCount(); ++row) {
        for (int column = 0; column < table->rows.ColumnCount(); ++column) {
            cells += table->rows.Cell(row, column) + '\0';
        }
    }
    return hash_of(cells);
}

std::string values_of(DocumentWindow& document) {
    ArchiveWriter writer;
    document.archive_document(writer);
    return writer.values();
}

} // namespace

std::unique_ptr<UnsavedWork> UnsavedWork::of(App& app) {
    const auto folder = app.desktop().recovery_folder();
    return folder ? std::unique_ptr<UnsavedWork>(new UnsavedWork(app, folder->path())) : nullptr;
}

UnsavedWork::UnsavedWork(App& app, const std::filesystem::path& folder)
    : app_(app), writer_(folder), all_{{.open_window = open_window<&App::editwindow>},
                                       {.open_window = open_window<&App::consolidatorWindow>},
                                       {.open_window = open_window<&App::composewindow>},
                                       {.open_window = open_window<&App::ReadZPWindow>}} {}

void UnsavedWork::event_ended() {
    for (Kept& kept : all_) {
        forget_closed(kept);
    }
    if (look_at_once_) {
        return look();
    }
    if (!look_is_planned_) {
        look_is_planned_ = true;
        app_.desktop().call_later(time_to_look, [this, alive = std::weak_ptr(alive_)] {
            if (!alive.expired()) { // the desktop outlives the program
                look();
            }
        });
    }
}

// A window that was closed and opened again in one event has another address: the old one lives until its end.
void UnsavedWork::forget_closed(Kept& kept) {
    DocumentWindow* const window = kept.open_window(app_);
    if (window == kept.window) {
        return;
    }
    drop_copy(kept);
    kept.window = window;
    kept.given_up.reset();
    if (window != nullptr) {
        kept.name = window->name();
        kept.saved_work = work_of(*window);
    }
}

void UnsavedWork::drop_copy(Kept& kept) {
    if (kept.copied) {
        writer_.drop(kept.name);
        kept.copied.reset();
    }
}

void UnsavedWork::look() {
    look_is_planned_ = false;
    look_at_once_ = false;
    for (Kept& kept : all_) {
        if (is_open(kept)) {
            look_at(kept);
        }
    }
    tell_of_fault();
}

void UnsavedWork::look_at(Kept& kept) {
    DocumentWindow& window = *kept.window;
    if (!is_unsaved(kept)) {
        return drop_copy(kept);
    }
    std::string values = values_of(window);
    const std::size_t hash = hash_of(values);
    if (kept.given_up == hash) {
        drop_copy(kept);
    } else if (kept.copied != hash) {
        kept.copied = hash;
        writer_.keep({.window = kept.name,
                      .document = window.name_field().Text(),
                      .kept_at = std::time(nullptr),
                      .values = std::move(values)});
    }
}

// A handler that is still running may have closed the window.
bool UnsavedWork::is_open(const Kept& kept) const {
    return kept.window != nullptr && kept.window == kept.open_window(app_);
}

bool UnsavedWork::is_unsaved(const Kept& kept) const {
    return kept.window->change_flag() || work_of(*kept.window) != kept.saved_work;
}

void UnsavedWork::tell_of_fault() {
    try {
        writer_.rethrow();
    } catch (const Fault& fault) {
        if (!std::exchange(fault_told_, true)) {
            app_.report_soon(fault);
        }
    }
}

void UnsavedWork::saved(const DocumentWindow& document) {
    for (Kept& kept : all_) {
        if (kept.window == &document) {
            kept.saved_work = work_of(*kept.window);
            look_at_once_ = true; // when the event has ended: the flag is cleared behind the saving
        }
    }
}

void UnsavedWork::given_up(const DocumentWindow& document) {
    for (Kept& kept : all_) {
        if (kept.window == &document) {
            kept.given_up = hash_of(values_of(*kept.window));
            drop_copy(kept);
        }
    }
}

bool UnsavedWork::keep_now() {
    look();
    const bool kept = writer_.finish();
    tell_of_fault();
    return kept;
}

std::vector<DocumentWindow*> UnsavedWork::documents() const {
    std::vector<DocumentWindow*> unsaved;
    for (const Kept& kept : all_) {
        if (is_open(kept) && is_unsaved(kept)) {
            unsaved.push_back(kept.window);
        }
    }
    return unsaved;
}

// The doors of App.

void App::all_events_ended() {
    if (unsaved_work_ != nullptr) {
        unsaved_work_->event_ended();
    }
}

void App::is_saved(const DocumentWindow& document) {
    if (unsaved_work_ != nullptr) {
        unsaved_work_->saved(document);
    }
}

void App::ended_by_system() {
    try {
        write_settings_at_end();
    } catch (const Fault&) { // nobody is left to be told
    }
    if (unsaved_work_ != nullptr) {
        unsaved_work_->keep_now();
    }
    if (Window1.exists()) {
        serial_line().Close();
    }
}

bool App::session_may_end() {
    bool goes_on = false;
    from_user("App.session_may_end", [&] {
        for (DocumentWindow* document :
             unsaved_work_ == nullptr ? std::vector<DocumentWindow*>() : unsaved_work_->documents()) {
            switch (document->ask(document->closing_question())) {
            case DialogAnswer::action:
                document->save();
                break;
            case DialogAnswer::alternate:
                unsaved_work_->given_up(*document);
                break;
            case DialogAnswer::cancel:
                goes_on = true;
                return;
            }
        }
    });
    return !goes_on;
}

} // namespace tessit
