// SPDX-License-Identifier: MIT
// A mail as a value that turns into the text that follows DATA.
#pragma once

#include "mail/email_attachment.h"
#include "mail/email_headers.h"
#include "mail/mail_text.h"

#include <vector>

namespace tessit {

class EmailMessage {
public:
    EmailHeaders Headers;
    std::string BodyPlainText;
    std::string BodyHTML;
    std::string BodyEnriched;
    std::vector<EmailAttachment> Attachments;

    std::string FromAddress() const { return Headers.Value("From"); }
    std::string Subject() const { return Headers.Value("Subject"); }
    std::string ToAddress() const { return Headers.Value("To"); }
    std::string CCAddress() const { return Headers.Value("CC"); }
    std::string BCCAddress() const { return Headers.Value("BCC"); }
    void SetFromAddress(std::string_view address) { Headers.SetHeader("From", address); }
    void SetSubject(std::string_view subject) { Headers.SetHeader("Subject", subject); }
    void SetToAddress(std::string_view addresses) { Headers.SetHeader("To", addresses); }
    void SetCCAddress(std::string_view addresses) { Headers.SetHeader("CC", addresses); }
    void SetBCCAddress(std::string_view addresses) { Headers.SetHeader("BCC", addresses); }

    // Commas in the address are dropped, for they separate addresses.
    void AddRecipient(std::string_view address) { add_to("To", address); }
    void AddCCRecipient(std::string_view address) { add_to("CC", address); }
    void AddBCCRecipient(std::string_view address) { add_to("BCC", address); }

    // Headers, an empty line, the body, and the line with the point that ends it, without that line's own end. Every
    // line end is CR LF. A body line that is a lone point is not doubled and ends the mail early.
    std::string Source(const Random& random = Rnd) const;

private:
    void add_to(std::string_view header, std::string_view address);
    std::string _FormatBody(const Random& random) const;
    std::string alone(const std::string& formatted_body) const;
    std::string with_attachments(const std::string& formatted_body, const std::string& boundary) const;
};

} // namespace tessit
