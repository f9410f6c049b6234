// SPDX-License-Identifier: MIT
// The questions of the feedback form as controls, laid out in two columns from the table of feedback_questions.h.
// Each question has a group box of its own, so one of its buttons is on at a time. Pressing one writes its sentence.
#pragma once

#include "platform/buttons.h"
#include "platform/static_controls.h"
#include "support/feedback_questions.h"

#include <deque>
#include <string>

namespace tessit {

class FeedbackButtons {
public:
    FeedbackButtons(Window& window, AppState& state);

    RadioButton& numbered(int number); // RadioButton1, and so on; Fault nil_object where there is none

private:
    struct Corner {
        int left;
        int top;
    };

    int add_section(const FeedbackSection& section, Corner corner); // its height
    int add_question(const std::string& section, const FeedbackQuestion& question, Corner corner);
    void add_button(const std::string& question, const FeedbackQuestion& of, std::size_t answer, Place place);
    const char* keep(std::string text); // for designs, which do not own their texts

    Window& window_;
    AppState& state_;
    std::deque<std::string> texts_;
    std::deque<StaticText> captions_;
    std::deque<GroupBox> boxes_;
    std::deque<RadioButton> buttons_;
};

} // namespace tessit
