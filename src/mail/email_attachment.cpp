// SPDX-License-Identifier: MIT
#include "mail/email_attachment.h"

#include "mail/mail_text.h"

namespace tessit {

void EmailAttachment::LoadFromFile(const FolderItem& file) {
    ContentEncoding = "Base64";
    MIMEType = "application/base64";
    Name = file.DisplayName();
    Data = EncodeBase64(file.OpenAsTextFile()->ReadAll(), 76);
    MacType.clear();
    MacCreator.clear();
}

std::string EmailAttachment::_FormatAttachment() const {
    const std::string end = mail_line_end;
    std::string text = "Content-Type: " + MIMEType + "; name=\"" + Name + "\";";
    if (!MacType.empty()) {
        text += end + " x-mac-type=\"" + MacType + "\"";
    }
    if (!MacCreator.empty()) {
        text += end + " x-mac-creator=\"" + MacCreator + "\"";
    }
    return text + end + "Content-transfer-encoding: " + ContentEncoding + end + "Content-disposition: attachment" +
           end + end + Data;
}

} // namespace tessit
