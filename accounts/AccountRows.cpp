#include "accounts/AccountRows.h"

#include <algorithm>
#include <set>
#include <utility>

#include "accounts/XmlReader.h"
#include "platform/characters.h"
#include "platform/text.h"

namespace accounts {

namespace {

/// Editors add non-breaking spaces to a plain body: then they are dropped. Or they replace its spaces by
/// them: then the text cannot be read without, and they are turned into spaces.
rowset::Rowset readBody(std::wstring body, const rowset::Limits& limits) {
    if (body.find(text::nonBreakingSpace) == std::wstring::npos) {
        return rowset::readRowset(body, limits);
    }
    try {
        std::wstring without = body;
        std::erase(without, text::nonBreakingSpace);
        return rowset::readRowset(without, limits);
    } catch (const rowset::NotARowset&) {
        std::ranges::replace(body, text::nonBreakingSpace, L' ');
        return rowset::readRowset(body, limits);
    }
}

rowset::Column required(const rowset::Rowset& rows, std::wstring_view name) {
    const auto column = rows.column(name);
    if (!column) {
        throw rowset::NotARowset(0, "a column of the list is missing");
    }
    return *column;
}

}  // namespace

AccountRows::AccountRows(std::wstring body, const rowset::Limits& limits)
    : rows_(readBody(std::move(body), limits)),
      address_(required(rows_, L"strEmailAddress")),
      account_(required(rows_, L"strAccount")) {
    rows_.sort(address_);
}

void AccountRows::set(AccountEntry entry) {
    rows_.set(address_, std::move(entry.address));
    rows_.set(account_, std::move(entry.account));
}

void AccountRows::takeMissing(const AccountRows& other) {
    const auto keyOf = [](const std::wstring& address) { return text::upper(text::trim(address)); };
    std::set<std::wstring> addresses;
    for (std::size_t row = 0; row < count(); ++row) {
        addresses.insert(keyOf(address(row)));
    }
    for (std::size_t row = 0; row < other.count(); ++row) {
        if (addresses.insert(keyOf(other.address(row))).second) {
            add();
            set({other.address(row), other.account(row)});
        }
    }
    rows_.sort(address_);
}

}  // namespace accounts
