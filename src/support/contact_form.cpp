// SPDX-License-Identifier: MIT
#include "support/contact_form.h"

#include "platform/text.h"
#include "support/support_mail.h"

namespace tessit {

// Any key will do; nothing else looks at the address.
bool ContactUsForm::ContactemailField_KeyDown() {
    ContactSubmitButton.SetEnabled(true);
    return false;
}

// What is pasted or dropped comes without a key.
void ContactUsForm::ContactemailField_Edit() {
    ContactSubmitButton.SetEnabled(true);
}

void ContactUsForm::ContactSubmitButton_Action() {
    const std::string& sender = ContactemailField.Text();
    send_to_support(app, contactSocket,
                    {.sender = sender,
                     .subject = "Contact Us Form",
                     .text = sender + "   Wrote:" + Chr(13) + Chr(13) + ContactMsgField.Text()});
}

// The first command that has gone out brings it up, long before the server has taken the mail.
void ContactUsForm::contactSocket_SendComplete() {
    app.ContactPopUp->thank();
}

} // namespace tessit
