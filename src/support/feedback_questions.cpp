// SPDX-License-Identifier: MIT
#include "support/feedback_questions.h"

#include "platform/text.h"

namespace tessit {

namespace {

using Answers = std::vector<FeedbackAnswer>;
using Words = std::vector<const char*>;

const Words quality{"Poor", "Below Average", "Average", "Above Average", "Good"};
const Words difficulty{"Difficult", "Fair", "Easy"};
const Words usefulness{"Not Usefull", "Somewhat Usefull", "Usefull", "Very Usefull"};
const Words frequency{"Never", "Seldom", "Sometimes", "Mostly", "Always"};

// Each word is a button, and writes the sentence with the word at its end.
Answers scale(const Words& words, const std::string& sentence) {
    Answers answers;
    for (const char* word : words) {
        answers.push_back({.caption = word, .sentence = sentence + word});
    }
    return answers;
}

Answers with_caption(Answers answers, std::size_t button, const char* caption) {
    answers[button].caption = caption;
    return answers;
}

Answers with_sentence(Answers answers, std::size_t button, const char* sentence) {
    answers[button].sentence = sentence;
    return answers;
}

Answers only(const char* caption, const char* sentence) {
    return {{.caption = caption, .sentence = sentence}};
}

} // namespace

// Three captions lack their blank, and two sentences theirs behind the dash: they are as they are known to those who
// read the mails.
const std::vector<FeedbackSection>& feedback_sections() {
    static const char* const not_tried = "Haven't Tried This Feature";
    static const char* const run_together = "BelowAverage";
    using State = AppState;
    static const std::vector<FeedbackSection> sections{
        {"Protocol Entry (Create New)",
         {{"Window Layout", &State::EditLayout, 1, scale(quality, "Edit Window Layout - ")},
          {"Ease of Data Entry", &State::EditEntry, 6, scale(quality, "Ease of data entry - ")},
          {"Data Display", &State::EditDisplay, 64,
           with_caption(scale(quality, "Edit Data display - "), 1, run_together)}}},
        {"Loading a Zephon",
         {{"Selecting a Bank", &State::SelectBank, 16, scale(difficulty, "Selecting a Bank - ")},
          {"Data Transfer", &State::DataTransfer, 19, scale(difficulty, "Data Transfer - ")}}},
        {"Saving a File", {{"Saving to Folder", &State::fbSave, 22, scale(difficulty, "Saving to Default Folder - ")}}},
        {"Creating New Frequency Lists (Using Consolidator)",
         {{"Window Layout", &State::ConsolidateLayout, 28, scale(quality, "Consolidate Window Layout - ")},
          {"Ease of Data Entry", &State::ConsolidateEntry, 33, scale(quality, "Consolidator Data Entry - ")},
          {"", &State::ConsolidatorNotUsed, 63, only(not_tried, "Consolidator Not Used")}}},
        {"Creating New Protocols (Using Compose)",
         {{"Do the suggested Levels meet your needs?", &State::ComposePerform, 38,
           scale(frequency, "Composer suggested levels meet needs - ")},
          {"", &State::ComposeNotUsed, 43, only(not_tried, "Compose Not Used")},
          {"Level Data Display", &State::ComposeDisplay, 44,
           with_sentence(with_caption(scale(quality, "Composer Level Data Display - "), 1, run_together), 1,
                         "Composer Level Data Display -Below Average")}}},
        {"Help Menu",
         {{"Manual Layout", &State::ManualLayout, 49,
           with_caption(scale(quality, "Manual Layout - "), 1, run_together)},
          {"Manual Usefullness", &State::ManualUseful, 54, scale(usefulness, "Manual Usefullness - ")},
          {"Help Window Layout", &State::HelpLayout, 58,
           with_sentence(scale(quality, "Help Window Layout - "), 4, "Help Window Layout -Good")},
          {"Help Window Usefullness", &State::HelpUsefull, 69, scale(usefulness, "Help Window - ")}}},
    };
    return sections;
}

std::string feedback_text(const AppState& state, const std::string& comments) {
    static constexpr FeedbackProperty lines[] = {
        // fbSaveas has no buttons and is always an empty line
        &AppState::EditLayout,       &AppState::EditEntry,           &AppState::EditDisplay,
        &AppState::SelectBank,       &AppState::DataTransfer,        &AppState::fbSave,
        &AppState::fbSaveas,         &AppState::ConsolidatorNotUsed, &AppState::ConsolidateLayout,
        &AppState::ConsolidateEntry, &AppState::ComposeNotUsed,      &AppState::ComposePerform,
        &AppState::ComposeDisplay,   &AppState::ManualLayout,        &AppState::ManualUseful,
        &AppState::HelpLayout,       &AppState::HelpUsefull};
    std::string text;
    for (const FeedbackProperty line : lines) {
        text += state.*line + carriage_return;
    }
    return text + carriage_return + "Comments and Suggestions" + carriage_return + comments;
}

} // namespace tessit
