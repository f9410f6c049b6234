// SPDX-License-Identifier: MIT
#include "support/contact_form.h"

#include "platform/text.h"
#include "support/support_mail.h"

namespace tessit {

bool ContactUsForm::ContactemailField_KeyDown() {
    ContactSubmitButton.SetEnabled(true); // any key will do; nothing else looks at the address
    return false;
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
    app.ContactPopUp->Show();
}

} // namespace tessit
