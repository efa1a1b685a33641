#include <cstddef>
#include <cstdint>

#include "accounts/AccountRows.h"
#include "accounts/Rowset.h"
#include "accounts/XmlReader.h"
#include "fuzz/fuzzInput.h"
#include "platform/automation.h"

namespace {

using fuzz::require;

constexpr accounts::rowset::Limits smallLimits{.deepestNesting = 5,
                                               .mostAttributes = 7,
                                               .mostNameSpaces = 5,
                                               .longestFrame = 650,
                                               .mostUndeclaredColumns = 8};

constexpr accounts::rowset::Limits usualLimits;

/// An input is too short to come near the usual limits. What was written and cannot be read ends the run.
void writeAndRead(const accounts::rowset::Rowset& rows, const accounts::rowset::Limits& limits) noexcept {
    std::wstring written;
    try {
        written = accounts::rowset::writeReadable(rows, limits);
    } catch (const automation::Error&) {
        require(&limits == &smallLimits);
        return;
    }
    const accounts::rowset::Rowset again = accounts::rowset::readRowset(written, limits);
    require(accounts::rowset::sameRows(rows, again) && accounts::rowset::writeRowset(again) == written);
}

void tryWith(const std::wstring& input, const accounts::rowset::Limits& limits) {
    try {
        writeAndRead(accounts::rowset::readRowset(input, limits), limits);
    } catch (const accounts::rowset::NotARowset&) {
    }
    try {
        accounts::AccountRows rows(input, limits);
        rows.add();
        rows.set({L"ann@example.org", L"Work"});
        writeAndRead(rows.rowset(), limits);
    } catch (const accounts::rowset::NotARowset&) {
    }
}

}  // namespace

/// Any text is read or refused; what was read is written so that it reads the same, and is written the same
/// from then on, or refused to be written. With small limits, too, so that many texts come near them.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::wstring input = fuzz::textOf(data, size);
    tryWith(input, usualLimits);
    tryWith(input, smallLimits);
    return 0;
}
