#include "checks/KeywordFinder.h"
#include "checks/quotedHeader.h"
#include "fuzz/fuzzInput.h"

/// A body; its first line doubles as a keyword.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace checks;
    const std::wstring body = fuzz::textOf(data, size);
    if (const auto position = findQuotedHeader(body)) {
        const std::wstring_view header = std::wstring_view(body).substr(*position - 1);
        fuzz::require(header.starts_with(L"From:"));
        fuzz::require(header.find(L"\r\n") < header.find(L"\r\n", header.find(L"\r\n") + 2));
        // What stands before the header has none of its own.
        fuzz::require(!findQuotedHeader(std::wstring_view(body).substr(0, *position)));
    }
    const std::wstring_view keyword = text::before(body, L'\r');
    fuzz::require(KeywordFinder({keyword}).foundIn(body) || keyword.find(L'\xA0') != std::wstring_view::npos);
    return 0;
}
