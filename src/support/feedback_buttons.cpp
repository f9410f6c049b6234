// SPDX-License-Identifier: MIT
#include "support/feedback_buttons.h"

#include "platform/text.h"

#include <algorithm>

namespace tessit {

namespace {

constexpr int margin = 16;
constexpr int box_width = 476;
constexpr int right_column = 504;
constexpr std::size_t sections_at_the_left = 4;
constexpr int caption_height = 20;
constexpr int box_title = 20;
constexpr int button_height = 22;

// Where the buttons of a question begin, by how many there are; columns stand below each other.
std::vector<int> columns(std::size_t count) {
    switch (count) {
    case 5:
        return {0, 62, 180, 274, 392};
    case 4:
        return {0, 110, 250, 340};
    default:
        return {0, 110, 200};
    }
}

} // namespace

FeedbackButtons::FeedbackButtons(Window& window, AppState& state) : window_(window), state_(state) {
    constexpr int gap = 8;
    const auto& sections = feedback_sections();
    Corner corner{margin, 10};
    for (std::size_t at = 0; at < sections.size(); ++at) {
        if (at == sections_at_the_left) {
            corner = {right_column, 10};
        }
        corner.top += add_section(sections[at], corner) + gap;
    }
}

RadioButton& FeedbackButtons::numbered(int number) {
    const std::string name = "RadioButton" + Str(number);
    const auto found =
        std::find_if(buttons_.begin(), buttons_.end(), [&](const RadioButton& b) { return b.name() == name; });
    if (found == buttons_.end()) {
        throw Fault(FaultKind::nil_object, "The form has no " + name + ".");
    }
    return *found;
}

int FeedbackButtons::add_section(const FeedbackSection& section, Corner corner) {
    const char* name = keep("StaticText" + Str(static_cast<int>(captions_.size()) + 1));
    captions_.emplace_back(window_,
                           ControlDesign{.name = name, .place = {corner.left, corner.top, box_width, caption_height}},
                           StaticTextDesign{.text = section.caption, .bold = true});
    int height = caption_height;
    for (const FeedbackQuestion& question : section.questions) {
        height += add_question(section.caption, question, {corner.left, corner.top + height}) + 3;
    }
    return height;
}

int FeedbackButtons::add_question(const std::string& section, const FeedbackQuestion& question, Corner corner) {
    constexpr int side = 12;
    const int title = *question.caption == '\0' ? 7 : box_title;
    const int height = title + button_height + 4;
    const char* name = keep("GroupBox" + Str(static_cast<int>(boxes_.size()) + 1));
    boxes_.emplace_back(window_, ControlDesign{.name = name, .place = {corner.left, corner.top, box_width, height}},
                        question.caption);
    const std::string spoken = section + (*question.caption == '\0' ? "" : ", ") + question.caption;
    const std::vector<int> begins = columns(question.answers.size());
    const int room = box_width - 2 * side;
    for (std::size_t at = 0; at < question.answers.size(); ++at) {
        const bool last = at + 1 == question.answers.size();
        const int width = (last ? room : begins[at + 1] - 2) - begins[at];
        add_button(spoken, question, at, {corner.left + side + begins[at], corner.top + title, width, button_height});
    }
    return height;
}

void FeedbackButtons::add_button(const std::string& question, const FeedbackQuestion& of, std::size_t answer,
                                 Place place) {
    const FeedbackAnswer& chosen = of.answers[answer];
    const auto write = [this, property = of.property, &chosen] { state_.*property = chosen.sentence; };
    buttons_.emplace_back(window_,
                          ControlDesign{.name = keep("RadioButton" + Str(of.first_button + static_cast<int>(answer))),
                                        .place = place,
                                        .label = keep(question + ": " + chosen.caption)},
                          RadioButtonDesign{.caption = chosen.caption, .group = of.first_button, .on_action = write});
}

const char* FeedbackButtons::keep(std::string text) {
    return texts_.emplace_back(std::move(text)).c_str();
}

} // namespace tessit
