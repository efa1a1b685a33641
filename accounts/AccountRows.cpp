#include "accounts/AccountRows.h"

#include <utility>

#include "accounts/XmlReader.h"

namespace {

constexpr wchar_t nonBreakingSpace = 0xA0;

/// Editors turn the spaces of a plain body into non-breaking ones, which no reader takes for spaces.
std::wstring withoutNonBreakingSpaces(std::wstring body) {
    std::erase(body, nonBreakingSpace);
    return body;
}

rowset::Column required(const rowset::Rowset& rows, std::wstring_view name) {
    const auto column = rows.column(name);
    if (!column) {
        throw rowset::NotARowset(0, "a column of the list is missing");
    }
    return *column;
}

}  // namespace

AccountRows::AccountRows(std::wstring body)
    : rows_(rowset::readRowset(withoutNonBreakingSpaces(std::move(body)))),
      address_(required(rows_, L"strEmailAddress")),
      account_(required(rows_, L"strAccount")) {
    if (rows_.count() > 0) {
        rows_.sort(address_);
    }
}

void AccountRows::set(std::wstring address, std::wstring account) {
    rows_.set(address_, std::move(address));
    rows_.set(account_, std::move(account));
}
