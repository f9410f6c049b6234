// SPDX-License-Identifier: MIT
// The questions of the feedback form: what is asked, the buttons that answer, and the sentence that each one writes.
#pragma once

#include "core/app_state.h"

#include <string>
#include <vector>

namespace tessit {

using FeedbackProperty = std::string AppState::*;

struct FeedbackAnswer {
    const char* caption = ""; // of the button
    std::string sentence{};   // what it writes
};

struct FeedbackQuestion {
    const char* caption;       // empty where the button's own says it all
    FeedbackProperty property; // that the answer is written to
    int first_button;          // number of the first RadioButton; the others follow it
    std::vector<FeedbackAnswer> answers;
};

struct FeedbackSection {
    const char* caption;
    std::vector<FeedbackQuestion> questions;
};

const std::vector<FeedbackSection>& feedback_sections();

// The body of the mail: one line for each property, empty where nothing was answered, then the comments. Lines end in
// CR.
std::string feedback_text(const AppState& state, const std::string& comments);

} // namespace tessit
