// SPDX-License-Identifier: MIT
#include "platform/text_history.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

namespace tessit {
namespace {

struct Changed {
    TextHistory history;
    std::string text;
    std::vector<std::string> settled{""}; // after each event that changed something

    void change(long event, TextAuthor author, const std::string& next) {
        history.will_change(event, author, text, {});
        text = next;
    }
    std::vector<std::string> back() {
        std::vector<std::string> texts{text};
        while (const TextStep* step = history.undo(text)) {
            texts.insert(texts.begin(), text = undone(text, *step));
        }
        return texts;
    }
    std::vector<std::string> forth() {
        std::vector<std::string> texts{text};
        while (const TextStep* step = history.redo(text)) {
            texts.push_back(text = redone(text, *step));
        }
        return texts;
    }
};

RC_GTEST_PROP(TextHistory, goes_back_and_forth_over_what_each_event_made,
              (const std::vector<std::vector<std::string>>& events)) {
    Changed field;
    long event = 0;
    for (const auto& texts : events) {
        ++event;
        for (const std::string& text : texts) {
            field.change(event, TextAuthor::program, text);
        }
        if (field.text != field.settled.back()) {
            field.settled.push_back(field.text);
        }
    }
    RC_ASSERT(field.back() == field.settled);
    RC_ASSERT(field.forth() == field.settled);
}

TEST(TextHistory, typing_in_one_go_is_one_step) {
    using Texts = std::vector<std::string>;
    const std::pair<Texts, Texts> cases[] = {
        {{"7", "7.", "7.8", "7.8é"}, {"", "7.8é"}},
        {{"pasted", "pasted1", "pasted", "paste", "past"}, {"", "pasted", "pasted1", "past"}},
        {{"12345", "1345", "145"}, {"", "12345", "145"}}, // deleted forwards
        {{"a", "ab", "xab"}, {"", "ab", "xab"}},          // elsewhere
    };
    for (const auto& [typed, steps] : cases) {
        Changed field;
        long event = 0;
        for (const std::string& text : typed) {
            field.change(++event, TextAuthor::user, text);
        }
        EXPECT_EQ(field.back(), steps);
        EXPECT_EQ(field.forth(), steps);
    }
}

TEST(TextHistory, forgets_the_oldest_steps_of_very_long_texts) {
    Changed field;
    for (int event = 1; event <= 5; ++event) {
        field.change(event, TextAuthor::program,
                     std::string(TextHistory::most_bytes / 4, static_cast<char>('0' + event)));
    }
    EXPECT_EQ(field.back().size(), 3U); // each step holds the old text and the new one
}

} // namespace
} // namespace tessit
