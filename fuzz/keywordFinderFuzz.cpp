#include <algorithm>

#include "checks/KeywordFinder.h"
#include "fuzz/fuzzInput.h"

namespace {

std::wstring upperWithPlainSpaces(std::wstring_view text) {
    return text::upper(text::replaceAll(text, L"\xA0", L" "));
}

}  // namespace

/// The first line is a list of keywords, the rest a text: the finder finds what a plain search finds. A
/// keyword's own non-breaking spaces match nothing.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::wstring input = fuzz::textOf(data, size);
    const std::wstring_view first = text::before(input, L'\n');
    const auto keywords = text::split(first, L';');
    const std::wstring body = input.substr(std::min(input.size(), first.size() + 1));

    const std::wstring searched = upperWithPlainSpaces(body);
    const bool expected = std::ranges::any_of(keywords, [&searched](std::wstring_view keyword) {
        return searched.find(text::upper(keyword)) != std::wstring::npos;
    });
    fuzz::require(checks::KeywordFinder(keywords).foundIn(body) == expected);
    return 0;
}
