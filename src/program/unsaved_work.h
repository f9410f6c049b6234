// SPDX-License-Identifier: MIT
// Keeps a recovery copy of each document window with unsaved work, for the case that the program dies: within a second
// after the event that changed it, and gone when the work is saved, given up or closed. Work is unsaved when the
// window's change flag tells so, and also where table or list are others than at the last saving, whose changes by the
// Edit menu no flag tells.
#pragma once

#include "core/app.h"
#include "core/document_window.h"
#include "recovery/recovery_writer.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <vector>

namespace tessit {

class UnsavedWork {
public:
    static std::unique_ptr<UnsavedWork> of(App& app); // null where the desktop has no place for copies

    void event_ended();
    void saved(const DocumentWindow& document);
    void given_up(const DocumentWindow& document);  // by the user's word, as it is now
    bool keep_now();                                // all copies are on the disk; false: one could not be written
    std::vector<DocumentWindow*> documents() const; // those with unsaved work

private:
    struct Kept {
        DocumentWindow* (*open_window)(App& app); // null where it is closed
        DocumentWindow* window = nullptr;         // of which the rest is told
        std::string name{};
        // Hashes: of table or list as they were saved or came into being, and of all values as the user gave them up
        // and as they are in the copy.
        std::size_t saved_work = 0;
        std::optional<std::size_t> given_up{};
        std::optional<std::size_t> copied{};
    };

    UnsavedWork(App& app, const std::filesystem::path& folder);
    void look();
    void look_at(Kept& kept);
    void forget_closed(Kept& kept);
    void drop_copy(Kept& kept);
    bool is_open(const Kept& kept) const;
    bool is_unsaved(const Kept& kept) const;
    void tell_of_fault();

    App& app_;
    RecoveryWriter writer_;
    std::vector<Kept> all_;
    bool look_is_planned_ = false;
    bool look_at_once_ = false;
    bool fault_told_ = false;
    const std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
};

} // namespace tessit
