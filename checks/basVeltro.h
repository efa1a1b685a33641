#pragma once

#include "mail/Globals.h"
#include "platform/outlook.h"

/// The checks of outgoing mails and of replies. Each takes the event's cancel flag and sets it when the user
/// decides against going on. A check that fails reports and leaves the flag as it is.
namespace basVeltro {

/// Asks for a subject when the item has none.
void vtEmptySubjectCheck(basGlobals::Globals& globals, const outlook::Item& item, bool& cancel);

/// Asks whether to send when the new text promises an attachment and none is there.
void vtAttachMissingCheck(basGlobals::Globals& globals, const outlook::Item& item, bool& cancel);

}  // namespace basVeltro
