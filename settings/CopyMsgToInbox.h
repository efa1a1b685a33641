#pragma once

#include "mail/Globals.h"

namespace settings {

/// Puts the e-mail that introduces the product into the Inbox, once: its file stands beside the add-in.
/// Whether it could be done is noted in the settings; the user is not told. Never throws.
void CopyMsgToInbox(const mail::Globals& globals);

}  // namespace settings
