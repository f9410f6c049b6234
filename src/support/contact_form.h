// SPDX-License-Identifier: MIT
// Sends a question or a comment to the support mailbox.
#pragma once

#include "core/app.h"
#include "mail/smtp_secure_socket.h"
#include "platform/buttons.h"
#include "platform/edit_field.h"
#include "platform/static_controls.h"

namespace tessit {

class ContactUsForm : public Window {
public:
    explicit ContactUsForm(App& owner)
        : Window(owner, {.name = "ContactUsWindow", .title = "Contact us", .width = 520, .height = 350}), app(owner) {}

    StaticText StaticText1{
        *this, {.name = "StaticText1", .place = {20, 22, 140, 22}}, {.text = "Your e-mail address:"}};
    EditField ContactemailField{
        *this,
        {.name = "ContactemailField", .place = {166, 20, 334, 26}, .label = "Your e-mail address", .grow = Grow::width},
        {.on_key_down = [this](const std::string&) { return ContactemailField_KeyDown(); },
         .on_edit = [this] { ContactemailField_Edit(); }}};
    StaticText StaticText2{
        *this, {.name = "StaticText2", .place = {20, 60, 480, 22}}, {.text = "Your Questions or Comments:"}};
    EditField ContactMsgField{*this,
                              {.name = "ContactMsgField",
                               .place = {20, 86, 480, 204},
                               .label = "Your Questions or Comments",
                               .grow = Grow::width},
                              {.multiline = true}};
    PushButton ContactSubmitButton{
        *this,
        {.name = "ContactSubmitButton", .place = {215, 306, 90, 28}, .enabled = false},
        {.caption = "Submit", .on_action = [this] { ContactSubmitButton_Action(); }, .key = ButtonKey::enter}};

    SMTPSecureSocket contactSocket{
        *this, {.name = "contactSocket", .on_send_complete = [this](bool) { contactSocket_SendComplete(); }}};

    bool ContactemailField_KeyDown();
    void ContactemailField_Edit();
    void ContactSubmitButton_Action();
    void contactSocket_SendComplete();

private:
    App& app;
};

} // namespace tessit
