#pragma once

#include <memory>
#include <string>
#include <vector>

#include "accounts/clsSendAcct.h"
#include "mail/Globals.h"
#include "mail/OutgoingMail.h"
#include "platform/formLists.h"

/// Look-ups in the list of preferred accounts, and what the dialogs and the send share of accounts. Names and
/// addresses are compared without regard to letter case and surrounding spaces. The list is not copied: the
/// walks read it where it is.
namespace accounts::basSendAcct {

/// The one list, made when it is not yet. Held while it is worked with: a question about it may be open
/// while the last window closes.
std::shared_ptr<clsSendAcct> TheList(mail::Globals& globals);
/// The same, with its folder looked for unless it is known.
std::shared_ptr<clsSendAcct> OpenList(mail::Globals& globals);

/// The names of the profile's mail accounts in their order; none when they cannot be read.
std::vector<std::wstring> AccountOrder(mail::Globals& globals);

/// Whether one of the accounts has this name.
bool HasAccount(const std::vector<mail::OutgoingMail::NamedAccount>& accounts, const std::wstring& name);

/// The preferred account of an address; empty when the list does not have it.
std::wstring PreferredAccount(const clsSendAcct& list, const std::wstring& address);

/// All addresses of the list, each followed by ";".
std::wstring PreferredAddresses(const clsSendAcct& list);

struct Membership {
    bool listed = false;
    /// Shown nowhere.
    std::wstring message;
    /// Of the item's first recipient; empty when it is unknown.
    std::wstring address;
};

/// Whether the first recipient's address occurs anywhere in PreferredAddresses: one that is the end of a
/// listed address counts as listed. Recipients that cannot be read are on no list and have no address.
Membership ListMembership(const clsSendAcct& list, mail::OutgoingMail& mail);

/// Selects the first entry that names the account; false, and nothing changed, when there is none.
bool SelectAccount(forms::ComboBox& box, const std::wstring& account);

/// Moves the list to the row that PreferredAccount reads, and takes its values. It is not always the one that
/// Find finds: an address may be listed twice, in different letter case.
bool MoveToAddress(clsSendAcct& list, const std::wstring& address);

/// Moves the list to the row that holds exactly these values. Positions do not last: a send in another window
/// loads the list anew while a dialog is open.
bool MoveToEntry(clsSendAcct& list, const std::wstring& address, const std::wstring& account);

}  // namespace accounts::basSendAcct
