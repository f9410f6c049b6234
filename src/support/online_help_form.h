// SPDX-License-Identifier: MIT
// Asks the support mailbox for help with a problem.
#pragma once

#include "core/app.h"
#include "mail/smtp_secure_socket.h"
#include "platform/buttons.h"
#include "platform/edit_field.h"
#include "platform/static_controls.h"

namespace tessit {

class OnlineHelpForm : public Window {
public:
    explicit OnlineHelpForm(App& owner)
        : Window(owner, {.name = "OnlineHelpWindow", .title = "OnLine Help", .width = 520, .height = 350}), app(owner) {
    }

    StaticText StaticText2{
        *this, {.name = "StaticText2", .place = {20, 22, 140, 22}}, {.text = "Your e-mail address:"}};
    EditField onlineemailField{
        *this,
        {.name = "onlineemailField", .place = {166, 20, 334, 26}, .label = "Your e-mail address", .grow = Grow::width}};
    StaticText StaticText1{*this,
                           {.name = "StaticText1", .place = {20, 60, 480, 22}},
                           {.text = "Describe Your Problem / What were you doing when problem arose:"}};
    EditField onlinemsgField{*this,
                             {.name = "onlinemsgField",
                              .place = {20, 86, 480, 204},
                              .label = "Describe Your Problem / What were you doing when problem arose",
                              .grow = Grow::width},
                             {.multiline = true}};
    PushButton PushButton1{
        *this,
        {.name = "PushButton1", .place = {215, 306, 90, 28}},
        {.caption = "Submit", .on_action = [this] { PushButton1_Action(); }, .key = ButtonKey::enter}};

    SMTPSecureSocket onlinehelpSocket{
        *this, {.name = "onlinehelpSocket", .on_send_complete = [this](bool) { onlinehelpSocket_SendComplete(); }}};

    void PushButton1_Action();
    void onlinehelpSocket_SendComplete();

private:
    App& app;
};

} // namespace tessit
