// SPDX-License-Identifier: MIT
// What became of a field's text, in steps that the user can take back and do again. A step is all that one event made
// of the text, whoever changed it; what is typed or deleted character by character in one go is one step. Beyond
// `most_bytes` the oldest steps are forgotten.
#pragma once

#include <cstddef>
#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace tessit {

struct TextSelection { // in characters
    int start = 0;
    int length = 0;

    bool operator==(const TextSelection&) const = default;
};

enum class TextAuthor { user, program };

struct TextStep {
    std::size_t place = 0; // in bytes
    std::string removed{};
    std::string inserted{};
    bool by_character = false;    // the user typed or deleted it so
    TextSelection selection{};    // before the step
    std::function<void()> undo{}; // what it did beside the text; none: nothing
    std::function<void()> redo{};
};

class TextHistory {
public:
    static constexpr std::size_t most_bytes = 32'000'000;

    // Before each change of the text. Changes with the same number, which is not 0, belong to one step.
    void will_change(long event, TextAuthor author, const std::string& text, TextSelection selection);
    // What the step under way did beside the text; nothing where none is.
    void did_too(long event, std::function<void()> undo, std::function<void()> redo);

    bool can_undo(const std::string& text) const { return !undone_from_.empty() || under_way(text); }
    bool can_redo(const std::string& text) const { return !redone_from_.empty() && !under_way(text); }
    // The step that changed `text`, or that is to change it again; the caller does so. Null where none is. It stays
    // valid until the next call.
    const TextStep* undo(const std::string& text);
    const TextStep* redo(const std::string& text);
    void forget();

private:
    struct UnderWay {
        long event;
        TextAuthor author;
        std::string before;
        TextStep step;
    };

    bool under_way(const std::string& text) const { return open_ && open_->before != text; }
    void close(const std::string& text);
    void add(TextStep step);
    bool continues_last(const TextStep& step) const;

    std::optional<UnderWay> open_;
    std::deque<TextStep> undone_from_; // the newest at the end
    std::vector<TextStep> redone_from_;
    std::size_t bytes_ = 0; // in undone_from_
};

// The text before or after a step, from the other one.
std::string undone(std::string text, const TextStep& step);
std::string redone(std::string text, const TextStep& step);

} // namespace tessit
