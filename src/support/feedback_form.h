// SPDX-License-Identifier: MIT
// A questionnaire about the program. An answer stays in App and goes out with every later mail of the run, also from
// a form that was opened anew and shows none.
#pragma once

#include "core/app.h"
#include "mail/smtp_secure_socket.h"
#include "platform/buttons.h"
#include "platform/edit_field.h"
#include "platform/static_controls.h"
#include "support/feedback_buttons.h"

namespace tessit {

class FeedbackForm : public Window {
public:
    explicit FeedbackForm(App& owner)
        : Window(owner, {.name = "FeedbackWindow", .title = "Feedback Form", .width = 996, .height = 580}),
          questions(*this, owner), app(owner) {}

    FeedbackButtons questions;
    StaticText StaticText22{*this,
                            {.name = "StaticText22", .place = {504, 400, 476, 20}},
                            {.text = "Additional Comments / Suggestions for Improvement"}};
    EditField FeedbackCommentField{*this,
                                   {.name = "FeedbackCommentField",
                                    .place = {504, 422, 476, 72},
                                    .label = "Additional Comments / Suggestions for Improvement",
                                    .grow = Grow::width},
                                   {.multiline = true}};
    StaticText StaticText24{
        *this, {.name = "StaticText24", .place = {504, 504, 124, 24}}, {.text = "Your e-mail address:"}};
    EditField emailField{
        *this,
        {.name = "emailField", .place = {632, 503, 348, 26}, .label = "Your e-mail address", .grow = Grow::width},
        {.on_key_down = [this](const std::string&) { return emailField_KeyDown(); },
         .on_edit = [this] { emailField_Edit(); }}};
    PushButton PushButton1{
        *this,
        {.name = "PushButton1", .place = {890, 540, 90, 28}, .enabled = false},
        {.caption = "Submit", .on_action = [this] { PushButton1_Action(); }, .key = ButtonKey::enter}};

    SMTPSecureSocket feedbackSocket{
        *this, {.name = "feedbackSocket", .on_send_complete = [this](bool) { feedbackSocket_SendComplete(); }}};

    bool emailField_KeyDown();
    void emailField_Edit();
    void PushButton1_Action();
    void feedbackSocket_SendComplete();

private:
    App& app;
};

} // namespace tessit
