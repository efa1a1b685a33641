#include "accounts/AccountRows.h"

#include <algorithm>
#include <utility>

#include "accounts/XmlReader.h"

namespace {

constexpr wchar_t nonBreakingSpace = 0xA0;

/// Editors add non-breaking spaces to a plain body, or put them in the place of its spaces. Those are missed
/// where they parted one word from the next.
rowset::Rowset readBody(std::wstring body) {
    if (body.find(nonBreakingSpace) == std::wstring::npos) {
        return rowset::readRowset(body);
    }
    try {
        std::wstring without = body;
        std::erase(without, nonBreakingSpace);
        return rowset::readRowset(without);
    } catch (const rowset::NotARowset&) {
        std::ranges::replace(body, nonBreakingSpace, L' ');
        return rowset::readRowset(body);
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

AccountRows::AccountRows(std::wstring body)
    : rows_(readBody(std::move(body))),
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
