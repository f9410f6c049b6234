// SPDX-License-Identifier: MIT
#include "core/deployment.h"

#include <algorithm>
#include <string_view>

namespace tessit::deployment {

namespace {

constexpr std::string_view account = TESSIT_MAIL_ACCOUNT;
constexpr auto is_lower_case = [](char c) { return c >= 'a' && c <= 'z'; };
static_assert(account.size() == 15 && std::all_of(account.begin(), account.end(), is_lower_case),
              "TESSIT_MAIL_ACCOUNT must have 15 lower-case characters");

constexpr bool fits_24_bits(long long number) {
    return number >= 0 && number < 1 << 24;
}
static_assert(fits_24_bits(TESSIT_MAIL_NUMBER) && fits_24_bits(TESSIT_MAIL_NUMBER_MASK),
              "TESSIT_MAIL_NUMBER and TESSIT_MAIL_NUMBER_MASK must fit 24 bits");

constexpr std::string_view server = TESSIT_MAIL_SERVER;
constexpr std::string_view mailbox = TESSIT_SUPPORT_MAILBOX;
static_assert(!server.empty(), "TESSIT_MAIL_SERVER is empty");
static_assert(mailbox.find('@') != std::string_view::npos, "TESSIT_SUPPORT_MAILBOX is no address");

} // namespace

extern const char* const mail_server = server.data();
extern const std::int32_t first_mail_port = TESSIT_MAIL_FIRST_PORT;
extern const char* const support_address = mailbox.data();
extern const char* const account_name = account.data();
extern const std::int32_t stored_credential = TESSIT_MAIL_NUMBER;
extern const std::int32_t credential_mask = TESSIT_MAIL_NUMBER_MASK;

} // namespace tessit::deployment
