#pragma once

#include <string>

#include "accounts/Rowset.h"

/// The rows of the list of preferred accounts, in the order of the addresses.
class AccountRows {
  public:
    /// Reads the body of the item that holds the list. Throws rowset::NotARowset when it holds none.
    explicit AccountRows(std::wstring body);

    std::size_t count() const { return rows_.count(); }
    /// An address or account that is null reads as empty.
    const std::wstring& address(std::size_t row) const { return rows_.value(row, address_); }
    const std::wstring& account(std::size_t row) const { return rows_.value(row, account_); }

    std::size_t position() const { return rows_.position(); }
    bool atEnd() const { return rows_.atEnd(); }
    bool moveTo(std::size_t row) { return rows_.moveTo(row); }
    bool findForward(std::wstring_view address) { return rows_.findForward(address_, address); }

    void add() { rows_.add(); }
    void set(std::wstring address, std::wstring account);
    void remove() { rows_.remove(); }

    const rowset::Rowset& rowset() const { return rows_; }

  private:
    rowset::Rowset rows_;
    rowset::Column address_;
    rowset::Column account_;
};
