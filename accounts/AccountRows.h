#pragma once

#include <string>

#include "accounts/Rowset.h"

namespace accounts {

/// An address and the account to send with to it.
struct AccountEntry {
    std::wstring address;
    std::wstring account;
    bool operator==(const AccountEntry&) const = default;
};

/// The rows of the list of preferred accounts, in the order of the addresses.
class AccountRows {
  public:
    /// Reads the body of the item that holds the list. Throws rowset::NotARowset when it holds none.
    explicit AccountRows(std::wstring body, const rowset::Limits& limits = {});

    std::size_t count() const { return rows_.count(); }
    /// An address or account that is null reads as empty.
    const std::wstring& address(std::size_t row) const { return rows_.value(row, address_); }
    const std::wstring& account(std::size_t row) const { return rows_.value(row, account_); }

    bool holds(std::size_t row, const AccountEntry& entry) const {
        return address(row) == entry.address && account(row) == entry.account;
    }

    std::size_t position() const { return rows_.position(); }
    bool atEnd() const { return rows_.atEnd(); }
    bool moveTo(std::size_t row) { return rows_.moveTo(row); }
    bool findForward(std::wstring_view address) { return rows_.findForward(address_, address); }

    void add() { rows_.add(); }
    void set(AccountEntry entry);
    void remove() { rows_.remove(); }
    /// Adds those entries of another list whose addresses, letter case and surrounding spaces aside, this one
    /// does not have.
    void takeMissing(const AccountRows& other);

    const rowset::Rowset& rowset() const { return rows_; }

  private:
    rowset::Rowset rows_;
    rowset::Column address_;
    rowset::Column account_;
};

}  // namespace accounts
