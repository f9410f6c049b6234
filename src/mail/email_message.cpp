// SPDX-License-Identifier: MIT
#include "mail/email_message.h"

#include "platform/text.h"

#include <algorithm>

namespace tessit {

namespace {

const std::string line_end = mail_line_end;
const std::string empty_line = line_end + line_end; // behind a line that has not been ended yet
const std::string end_of_mail = line_end + ".";

// Sets a header for each line; a line that begins with a blank continues the one before.
void take_headers(EmailHeaders& headers, const std::string& lines) {
    for (const std::string& line : Split(ReplaceAll(lines, line_end + " ", " "), line_end)) {
        const std::size_t colon = line.find(':');
        const std::size_t value = line.find(": ");
        if (colon != std::string::npos) {
            headers.SetHeader(line.substr(0, colon), value == std::string::npos ? "" : line.substr(value + 2));
        }
    }
}

} // namespace

void EmailMessage::add_to(std::string_view header, std::string_view address) {
    const std::string before = Headers.Value(header);
    Headers.SetHeader(header, before + (before.empty() ? "" : ", ") + ReplaceAll(address, ",", ""));
}

std::string EmailMessage::Source(const Random& random) const {
    const std::string body = _FormatBody(random);
    const std::string text = Attachments.empty() ? alone(body) : with_attachments(body, _GenerateBoundary(random));
    return _ConvertEOLCharacter(text);
}

// The body's own headers become the mail's.
std::string EmailMessage::alone(const std::string& formatted_body) const {
    EmailHeaders headers = Headers;
    headers.Delete("Content-Type");
    const std::size_t end_of_headers = formatted_body.find(empty_line);
    if (end_of_headers == std::string::npos) { // every body is empty
        return headers.Source() + empty_line + end_of_mail;
    }
    take_headers(headers, formatted_body.substr(0, end_of_headers));
    return headers.Source() + empty_line + formatted_body.substr(end_of_headers + empty_line.size()) + end_of_mail;
}

std::string EmailMessage::with_attachments(const std::string& formatted_body, const std::string& boundary) const {
    EmailHeaders headers = Headers;
    headers.Delete("Content-Type");
    headers.SetHeader("Content-Type", "multipart/mixed; boundary=\"" + boundary + "\"");
    headers.SetHeader("Mime-Version", "1.0");
    std::string text = headers.Source() + empty_line + "--" + boundary + line_end + formatted_body;
    for (const EmailAttachment& attachment : Attachments) {
        text += empty_line + "--" + boundary + line_end + attachment._FormatAttachment();
    }
    return text + empty_line + "--" + boundary + "--" + end_of_mail;
}

std::string EmailMessage::_FormatBody(const Random& random) const {
    struct Body {
        const std::string& text;
        const char* type;
    };
    const Body bodies[] = {{BodyPlainText, "text/plain;"}, {BodyHTML, "text/html;"}, {BodyEnriched, "text/enriched;"}};
    const auto count =
        std::count_if(std::begin(bodies), std::end(bodies), [](const Body& body) { return !body.text.empty(); });
    const std::string boundary = count > 1 ? _GenerateBoundary(random) : "";
    std::string text = boundary.empty() ? "" : "Content-Type: multipart/alternative; boundary=\"" + boundary + "\"";
    for (const Body& body : bodies) {
        if (body.text.empty()) {
            continue;
        }
        text += boundary.empty() ? "" : empty_line + "--" + boundary + line_end;
        text += "Content-type: " + (Headers.has("Content-type") ? Headers.Value("Content-type") : body.type);
        text += Headers.has("Content-transfer-encoding") ? "" : line_end + "Content-transfer-encoding: 7bit";
        text += empty_line + body.text;
    }
    return text + (boundary.empty() ? "" : empty_line + "--" + boundary + "--");
}

} // namespace tessit
