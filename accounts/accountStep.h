#pragma once

#include <string>

#include "accounts/clsSendAcct.h"
#include "mail/Globals.h"
#include "platform/outlook.h"

/// The last step of a send: the account of an outgoing mail against the one that its first recipient is
/// usually written to from.
namespace accountStep {

/// Has the mail sent with the preferred account, after asking where the settings want it, or sets `cancel`.
/// An error is shown and cancels the send. Never throws.
void checkPreferredAccount(basGlobals::Globals& globals, clsSendAcct& list, const outlook::Item& item,
                           bool& cancel) noexcept;

// The dialogs of the step, which the macros of the Word template show too. Each leaves its answer in the
// list.

/// Offers to put an unknown address on the list.
void offerToAdd(basGlobals::Globals& globals, clsSendAcct& list, const std::wstring& address,
                const std::wstring& accountInUse);
/// Asks for another account in place of one that is gone.
void replaceMissing(basGlobals::Globals& globals, clsSendAcct& list, const std::wstring& accountInUse,
                    const std::wstring& address, const std::wstring& message);
/// Asks which account to use. Gives the account, which is the list's current strAccount afterwards, or
/// nothing when the user goes back to the mail.
std::wstring select(basGlobals::Globals& globals, clsSendAcct& list, const std::wstring& accountInUse,
                    const std::wstring& preferred, const std::wstring& address);

}  // namespace accountStep
