#pragma once

#include <optional>

#include "accounts/AccountRows.h"

namespace accounts {

/// One change to the list: an entry is added, replaced or removed. It holds all that it needs, since Outlook
/// may deliver another send inside of any call, which loads the list anew; and it can be made again, since
/// the stored list may change before it is written.
class ListChange {
  public:
    static ListChange addition(AccountEntry entry);
    /// Of the current row, which there must be.
    static ListChange replacement(const AccountRows& list, AccountEntry entry);
    static ListChange removal(const AccountRows& list);

    /// False, and nothing done, when the list no longer holds the entry that is to be replaced or removed.
    bool applyTo(AccountRows& list) const;
    /// Whether `stored` has the change that `written` was the outcome of; others may have changed more of it.
    bool isIn(const AccountRows& stored, const AccountRows& written) const;

  private:
    ListChange() = default;

    std::optional<AccountEntry> from_;
    std::optional<AccountEntry> to_;
};

}  // namespace accounts
