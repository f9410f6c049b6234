// SPDX-License-Identifier: MIT
// What the forms share: a mail to the support mailbox, and the small window that thanks for it.
#pragma once

#include "core/app.h"
#include "mail/smtp_secure_socket.h"
#include "platform/buttons.h"
#include "platform/static_controls.h"

namespace tessit {

struct SupportMail {
    std::string sender; // as typed
    const char* subject = "";
    std::string text;
};

// Queues the mail and connects. Nothing is told of how it ends but the socket's own events.
void send_to_support(const AppState& state, SMTPSecureSocket& socket, const SupportMail& mail);

struct ThanksDesign {
    const char* name = "";
    const char* title = "";
    int width = 0;
    const char* first_line = "";
    const char* second_line = "";
};

// Two lines and OK, which closes the popup and its form.
class ThanksPopup : public Window {
public:
    ThanksPopup(App& owner, const ThanksDesign& design);

    StaticText StaticText1;
    StaticText StaticText2;
    PushButton PushButton1;

    void thank(); // comes up; where it is up already, it leaves the window in front that is there

protected:
    virtual void PushButton1_Action() = 0;

    App& app;
};

class FeedbackPopup : public ThanksPopup {
public:
    explicit FeedbackPopup(App& owner)
        : ThanksPopup(owner,
                      {.name = "feedbackPopup",
                       .title = "Feedback",
                       .width = 480,
                       .first_line = "Thank You for your feedback",
                       .second_line = "Your comments will help us to improve the software in future revisions"}) {}

private:
    void PushButton1_Action() override;
};

class ContactPopup : public ThanksPopup {
public:
    explicit ContactPopup(App& owner)
        : ThanksPopup(owner, {.name = "ContactPopUp",
                              .title = "Contact us",
                              .width = 480,
                              .first_line = "Your message has been sent to Corvane Labs software support",
                              .second_line = "You should receive a response before the end of the next business day"}) {
    }

private:
    void PushButton1_Action() override;
};

class OnlineHelpPopup : public ThanksPopup {
public:
    explicit OnlineHelpPopup(App& owner)
        : ThanksPopup(owner, {.name = "onlinehelpPopup",
                              .title = "OnLine Help",
                              .width = 480,
                              .first_line = "Your request for help has been sent to Corvane Labs software support",
                              .second_line = "You should receive a response by the end of the next business day."}) {}

private:
    void PushButton1_Action() override;
};

} // namespace tessit
