// SPDX-License-Identifier: MIT
#include "support/feedback_form.h"

#include "support/support_mail.h"

namespace tessit {

// Any key will do; nothing else looks at the address.
bool FeedbackForm::emailField_KeyDown() {
    PushButton1.SetEnabled(true);
    return false;
}

// What is pasted or dropped comes without a key.
void FeedbackForm::emailField_Edit() {
    PushButton1.SetEnabled(true);
}

void FeedbackForm::PushButton1_Action() {
    send_to_support(app, feedbackSocket,
                    {.sender = emailField.Text(),
                     .subject = "Software Feedback",
                     .text = feedback_text(app, FeedbackCommentField.Text())});
}

// The first command that has gone out brings it up, long before the server has taken the mail.
void FeedbackForm::feedbackSocket_SendComplete() {
    app.feedbackPopup->thank();
}

} // namespace tessit
