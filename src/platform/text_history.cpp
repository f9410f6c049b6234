// SPDX-License-Identifier: MIT
#include "platform/text_history.h"

#include <algorithm>

namespace tessit {

namespace {

constexpr std::size_t longest_character = 4;

std::size_t size_of(const TextStep& step) {
    return step.removed.size() + step.inserted.size();
}

void tell_difference(TextStep& step, const std::string& before, const std::string& after) {
    const std::size_t shorter = std::min(before.size(), after.size());
    const auto head_end =
        std::mismatch(before.begin(), before.begin() + static_cast<std::ptrdiff_t>(shorter), after.begin());
    const auto head = static_cast<std::size_t>(head_end.first - before.begin());
    const auto tail_end =
        std::mismatch(before.rbegin(), before.rbegin() + static_cast<std::ptrdiff_t>(shorter - head), after.rbegin());
    const auto tail = static_cast<std::size_t>(tail_end.first - before.rbegin());
    step.place = head;
    step.removed = before.substr(head, before.size() - head - tail);
    step.inserted = after.substr(head, after.size() - head - tail);
}

} // namespace

void TextHistory::will_change(long event, TextAuthor author, const std::string& text, TextSelection selection) {
    if (open_ && open_->event == event && event != 0) {
        return;
    }
    close(text);
    open_ = {.event = event, .author = author, .before = text, .step = {.selection = selection}};
}

void TextHistory::did_too(long event, std::function<void()> undo, std::function<void()> redo) {
    if (open_ && open_->event == event) {
        open_->step.undo = std::move(undo);
        open_->step.redo = std::move(redo);
    }
}

void TextHistory::close(const std::string& text) {
    if (under_way(text)) {
        redone_from_.clear();
        tell_difference(open_->step, open_->before, text);
        open_->step.by_character = open_->author == TextAuthor::user && size_of(open_->step) <= longest_character;
        add(std::move(open_->step));
    }
    open_.reset();
}

// One character typed behind the last one, or deleted beside it.
bool TextHistory::continues_last(const TextStep& step) const {
    if (undone_from_.empty()) {
        return false;
    }
    const TextStep& last = undone_from_.back();
    if (!step.by_character || !last.by_character || step.undo || last.undo) {
        return false;
    }
    const bool typed = step.removed.empty() && last.removed.empty() && step.place == last.place + last.inserted.size();
    const bool deleted = step.inserted.empty() && last.inserted.empty() &&
                         (step.place == last.place || step.place + step.removed.size() == last.place);
    return typed || deleted;
}

void TextHistory::add(TextStep step) {
    bytes_ += size_of(step);
    if (continues_last(step)) {
        TextStep& last = undone_from_.back();
        last.inserted += step.inserted;
        last.removed = step.place == last.place ? last.removed + step.removed : step.removed + last.removed;
        last.place = std::min(last.place, step.place);
        return;
    }
    undone_from_.push_back(std::move(step));
    while (bytes_ > most_bytes && undone_from_.size() > 1) {
        bytes_ -= size_of(undone_from_.front());
        undone_from_.pop_front();
    }
}

const TextStep* TextHistory::undo(const std::string& text) {
    close(text);
    if (undone_from_.empty()) {
        return nullptr;
    }
    bytes_ -= size_of(undone_from_.back());
    redone_from_.push_back(std::move(undone_from_.back()));
    undone_from_.pop_back();
    return &redone_from_.back();
}

const TextStep* TextHistory::redo(const std::string& text) {
    close(text);
    if (redone_from_.empty()) {
        return nullptr;
    }
    bytes_ += size_of(redone_from_.back());
    undone_from_.push_back(std::move(redone_from_.back()));
    redone_from_.pop_back();
    return &undone_from_.back();
}

void TextHistory::forget() {
    *this = {};
}

std::string undone(std::string text, const TextStep& step) {
    return text.replace(step.place, step.inserted.size(), step.removed);
}

std::string redone(std::string text, const TextStep& step) {
    return text.replace(step.place, step.removed.size(), step.inserted);
}

} // namespace tessit
