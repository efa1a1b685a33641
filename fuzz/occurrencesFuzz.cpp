#include "checks/occurrences.h"

#include <algorithm>

#include "fuzz/fuzzInput.h"

/// The first line is the text, the others are what is looked for in it, at once and one by one.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::wstring input = fuzz::textOf(data, size);
    const std::wstring_view text = text::before(input, L'\n');
    std::vector<std::wstring> parts;
    for (const std::wstring_view part : text::split(std::wstring_view(input).substr(text.size()), L'\n')) {
        parts.emplace_back(part);
    }
    const auto occurs = [text](const std::wstring& part) {
        return text.find(part) != std::wstring_view::npos;
    };
    fuzz::require(checks::allOccur(parts, text) == std::ranges::all_of(parts, occurs));
    return 0;
}
