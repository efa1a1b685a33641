#pragma once

#include <optional>
#include <string>

#include "mail/Globals.h"

namespace mail {

/// The SMTP addresses of the profile's mail accounts in their order, joined by ";". Nothing when the profile
/// cannot be read, which is reported.
std::optional<std::wstring> vtAccountsEmailAddress(Globals& globals);

/// The SMTP address of the owner of the profile's Exchange store; empty when there is none. A failure is
/// reported.
std::wstring ExchangeAccountSMTPAddress(Globals& globals);

}  // namespace mail
