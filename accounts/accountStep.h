#pragma once

#include <string>

#include "accounts/AccountAnswer.h"
#include "accounts/clsSendAcct.h"
#include "mail/Globals.h"
#include "mail/OutgoingMail.h"

/// The last step of a send: the account of an outgoing mail against the one that its first recipient is
/// usually written to from.
namespace accounts::accountStep {

/// Has the mail sent with the preferred account, after asking where the settings want it, or sets `cancel`.
/// `found` is where the list was found at the begin of the event. An error is shown and cancels the send.
/// Never throws.
void checkPreferredAccount(mail::Globals& globals, clsSendAcct& list, mail::OutgoingMail& mail,
                           const listFolder::Place& found, bool& cancel) noexcept;

// The dialogs of the step, which are shown in Word's process, too.

/// Offers to put an unknown address on the list.
AccountAnswer offerToAdd(mail::Globals& globals, EntryStore& list, const std::wstring& address,
                         const std::wstring& accountInUse);
/// Asks for another account in place of one that is gone.
AccountAnswer replaceMissing(mail::Globals& globals, EntryStore& list, const std::wstring& accountInUse,
                             const std::wstring& address, const std::wstring& message);
/// Asks which account to use.
AccountAnswer select(mail::Globals& globals, EntryStore& list, const std::wstring& accountInUse,
                     const std::wstring& preferred, const std::wstring& address);

}  // namespace accounts::accountStep
