#pragma once

#include <memory>

#include "mail/Provider.h"

namespace mail {

/// Outlook's own session, from Outlook 2007 on. Throws automation::Error.
std::unique_ptr<Session> outlookSession(const Globals& globals);

/// The SMTP address of an entry of Exchange's address book, as Outlook 2007 and later tell it. Throws
/// automation::Error, also where nobody knows it: the mailbox may be gone.
std::wstring exchangeAddressOf(const outlook::AddressEntry& entry);

}  // namespace mail
