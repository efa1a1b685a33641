#pragma once

#include <source_location>
#include <string>

#include "mail/Globals.h"

/// Functions that every room shares: the SMTP addresses behind senders and recipients, and
/// user properties of items. An address function that fails returns what it has found so far, often nothing:
/// an empty result is an unknown address and never a match.
namespace mail {

/// True when the item was moved or deleted, so that nothing of it can be read any more; `where` is noted in
/// the trace.
bool itemUnreadable(const outlook::Item& item, std::source_location where = std::source_location::current());

/// The SMTP address of the account that really sent the item.
std::wstring SenderEmailWithoutOnBehalf(Globals& globals, const outlook::Item& item);
/// The SMTP address on whose behalf the item was sent when there is one, else the sender's.
std::wstring SenderEmail(Globals& globals, const outlook::Item& item);

struct RecipientOptions {
    bool resolveFirst = false;
    /// Only with resolveFirst and Outlook 12 or later.
    bool recogniseLists = false;
};

/// What stands for a distribution list, which has no address of its own.
inline constexpr wchar_t distributionListAddress[] = L"General";

/// The SMTP address of a recipient, or distributionListAddress.
std::wstring RecipientEmail(Globals& globals, const outlook::Recipient& recipient,
                            RecipientOptions options = {});

/// The SMTP address behind an address entry, as RecipientEmail gives it. Throws automation::Error.
std::wstring entryAddress(const Globals& globals, const outlook::AddressEntry& entry);
/// The same of an entry whose type, and address in the form of its own address book, were read already.
std::wstring entryAddress(const Globals& globals, const outlook::AddressEntry& entry,
                          const std::wstring& type, const std::wstring& ownAddress);

/// True when one of the profile's stores belongs to Google Apps.
bool GoogleAppConnected(Globals& globals);

/// Adds a text user property; nothing on failure, which is reported.
automation::Object AddUserProperties(Globals& globals, const outlook::Item& item, const std::wstring& name,
                                     const std::wstring& value);
/// Deletes the user property if the item has it, and saves the item; true when it was there.
bool DeleteUserProperties(Globals& globals, const outlook::Item& item, const std::wstring& name);

/// Deletes the message from its store.
void deleteByEntryId(Globals& globals, const std::wstring& entryId);

}  // namespace mail
