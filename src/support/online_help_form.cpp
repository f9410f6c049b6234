// SPDX-License-Identifier: MIT
#include "support/online_help_form.h"

#include "platform/text.h"
#include "support/support_mail.h"

namespace tessit {

// There is no point between the last two parts of the version: 2.1.3 goes out as "2.13".
void OnlineHelpForm::PushButton1_Action() {
    const std::string& sender = onlineemailField.Text();
    const Version& version = app.version;
    send_to_support(app, onlinehelpSocket,
                    {.sender = sender,
                     .subject = "Online Help Form",
                     .text = sender + "  Using Current version  " + Str(version.MajorVersion) + "." +
                             Str(version.MinorVersion) + Str(version.BugVersion) + Chr(13) + "   Wrote:" + Chr(13) +
                             Chr(13) + onlinemsgField.Text()});
}

// The first command that has gone out brings it up, long before the server has taken the mail.
void OnlineHelpForm::onlinehelpSocket_SendComplete() {
    app.onlinehelpPopup->thank();
}

} // namespace tessit
