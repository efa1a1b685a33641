#pragma once

#include <memory>

#include "mail/Provider.h"

namespace mail {

/// A session of the Redemption library that shares Outlook's logged-on profile. Throws automation::Error.
std::unique_ptr<Session> redemptionSession(const Globals& globals);

}  // namespace mail
