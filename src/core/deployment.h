// SPDX-License-Identifier: MIT
// Values of the support endpoint, set by options of the build (src/CMakeLists.txt). Their defaults lie under a
// reserved domain, so a build without values of its own reaches nobody.
#pragma once

#include <cstdint>

namespace tessit::deployment {

extern const char* const mail_server;        // host name
extern const std::int32_t first_mail_port;   // as the program begins; start-up multiplies it
extern const char* const support_address;    // the mailbox
extern const char* const account_name;       // 15 lower-case characters
extern const std::int32_t stored_credential; // up to 24 bits; completed at start-up by the mask
extern const std::int32_t credential_mask;

} // namespace tessit::deployment
