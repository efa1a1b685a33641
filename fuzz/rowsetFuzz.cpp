#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <string_view>

#include "accounts/AccountRows.h"
#include "accounts/Rowset.h"
#include "accounts/XmlReader.h"
#include "platform/text.h"

namespace {

void require(bool holds) {
    if (!holds) {
        std::abort();
    }
}

std::optional<rowset::Rowset> read(std::wstring_view text) {
    try {
        return rowset::readRowset(text);
    } catch (const rowset::NotARowset&) {
        return std::nullopt;
    }
}

/// The same rows; columns that no row holds any more are not written.
bool sameRows(const rowset::Rowset& left, const rowset::Rowset& right) {
    if (left.count() != right.count()) {
        return false;
    }
    for (std::size_t row = 0; row < left.count(); ++row) {
        for (const rowset::Rowset::Cell& cell : left.rows()[row]) {
            const auto column = right.column(left.frame().columns[cell.column].column);
            if (!column || right.value(row, *column) != cell.value) {
                return false;
            }
        }
        if (left.rows()[row].size() != right.rows()[row].size()) {
            return false;
        }
    }
    return true;
}

}  // namespace

/// Any text is read or refused; what was read is written so that it reads the same, and is written the same
/// from then on.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::wstring input = text::fromUtf8(std::string_view(reinterpret_cast<const char*>(data), size));
    if (const auto rowset = read(input)) {
        const std::wstring written = rowset::writeRowset(*rowset);
        const auto again = read(written);
        require(again && sameRows(*rowset, *again) && rowset::writeRowset(*again) == written);
    }
    try {
        AccountRows rows(input);
        rows.add();
        rows.set(L"ann@example.org", L"Work");
        const AccountRows again(rowset::writeRowset(rows.rowset()));
        require(again.count() == rows.count());
    } catch (const rowset::NotARowset&) {
    }
    return 0;
}
