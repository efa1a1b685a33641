#pragma once

#include "mail/Provider.h"

/// The Redemption library, which some Outlooks can do without.
namespace addin::missingLibrary {

/// The way to read that the machine and its Outlook allow.
const mail::Provider& bestProvider(const mail::Globals& globals);

/// Says what is missing and what is not done without it. Throws automation::Error.
void tell(const mail::Globals& globals);
/// The same, unless the user has been told before, at this start or another.
void tellOnce(const mail::Globals& globals);

}  // namespace addin::missingLibrary
