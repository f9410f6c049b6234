// SPDX-License-Identifier: MIT
// Values of the support endpoint. The defaults lie under a reserved domain, so a build without values of its own
// reaches nobody.
#pragma once

#include <cstdint>

namespace tessit::deployment {

inline constexpr const char* support_address = "support@tessit.example";
inline constexpr const char* account_name = "tessitassistant"; // 15 lower-case characters
inline constexpr std::int32_t stored_credential = 0x2A5113;    // completed at start-up by the mask
inline constexpr std::int32_t credential_mask = 0x140068;

} // namespace tessit::deployment
