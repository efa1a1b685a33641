#pragma once

#include <string>
#include <vector>

#include "accounts/AccountRows.h"

namespace accounts {

/// Stands for an account where none was chosen.
inline constexpr wchar_t noAccount[] = L"No Account Selected";

/// The list of preferred accounts as its dialogs use it: the list itself, or its far end where Word's process
/// shows the dialog. Each change is one call, since Outlook may deliver another send between two.
class EntryStore {
  public:
    virtual ~EntryStore() = default;

    /// noAccount and the names of the profile's accounts in their order.
    virtual std::vector<std::wstring> LoadAccounts() = 0;
    /// Empty when the list does not have the address, letter case and surrounding spaces aside.
    virtual std::wstring PreferredAccount(const std::wstring& address) = 0;
    /// Whether the list has exactly this address.
    virtual bool IsListed(const std::wstring& address) = 0;

    // Each gives the reason when nothing was stored, in words for the user; empty: it was.
    virtual std::wstring AddEntry(const AccountEntry& entry) = 0;
    virtual std::wstring ReplaceEntry(const AccountEntry& listed, const AccountEntry& entry) = 0;
    /// Of the row that PreferredAccount reads.
    virtual std::wstring SetAccount(const std::wstring& address, const std::wstring& account) = 0;
};

}  // namespace accounts
