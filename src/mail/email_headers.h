// SPDX-License-Identifier: MIT
// The headers of a mail, written in the order that mails have: trace, date, subject, people, then all others in the
// order in which they were set. "BCC" is never written.
#pragma once

#include "mail/internet_headers.h"

namespace tessit {

class EmailHeaders : public InternetHeaders {
public:
    std::string Source() const override { return _FormatEmailHeaders(); }

private:
    std::string _FormatEmailHeaders() const;
};

} // namespace tessit
