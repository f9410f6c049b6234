// SPDX-License-Identifier: MIT
#include "support/support_mail.h"

#include "core/deployment.h"
#include "platform/text.h"
#include "support/contact_form.h"
#include "support/feedback_form.h"
#include "support/online_help_form.h"

namespace tessit {

void send_to_support(const AppState& state, SMTPSecureSocket& socket, const SupportMail& mail) {
    socket.Address = deployment::mail_server;
    socket.Port = state.port;
    socket.Username = state.uName;
    socket.Password = Str(state.pwd);
    EmailMessage message;
    message.SetFromAddress(mail.sender);
    message.AddRecipient(deployment::support_address);
    message.SetSubject(mail.subject);
    message.BodyPlainText = mail.text;
    socket.Messages.push_back(message);
    socket.SendMail();
}

ThanksPopup::ThanksPopup(App& owner, const ThanksDesign& design)
    : Window(owner,
             {.name = design.name, .title = design.title, .width = design.width, .height = 130, .has_menu_bar = false}),
      StaticText1(*this, {.name = "StaticText1", .place = {20, 20, design.width - 40, 22}},
                  {.text = design.first_line, .align = Align::center, .bold = true}),
      StaticText2(*this, {.name = "StaticText2", .place = {20, 46, design.width - 40, 22}},
                  {.text = design.second_line, .align = Align::center}),
      PushButton1(*this, {.name = "PushButton1", .place = {design.width / 2 - 45, 86, 90, 26}},
                  {.caption = "OK", .on_action = [this] { PushButton1_Action(); }}),
      app(owner) {}

// Each command that goes out to a server asks for it.
void ThanksPopup::thank() {
    if (!Visible()) {
        Show();
    }
}

void FeedbackPopup::PushButton1_Action() {
    Close();
    app.FeedbackWindow.Close();
}

void ContactPopup::PushButton1_Action() {
    Close();
    app.ContactUsWindow.Close();
}

void OnlineHelpPopup::PushButton1_Action() {
    app.OnlineHelpWindow.Close();
    Close();
}

bool App::_ContactUsGiveusyourFeedback_Action() {
    FeedbackWindow->Show();
    return true;
}

bool App::_ContactUsOnlineSupport_Action() {
    ContactUsWindow->Show();
    return true;
}

bool App::_HelpOnlineHelp_Action() {
    OnlineHelpWindow->Show();
    return true;
}

} // namespace tessit
