#include "checks/subjectCleaning.h"
#include "fuzz/fuzzInput.h"

/// The first line is a tag, the rest the subject.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace basVeltro;
    const std::wstring input = fuzz::textOf(data, size);
    const std::wstring_view tag = text::before(input, L'\n');
    const std::wstring subject = input.substr(std::min(input.size(), tag.size() + 1));

    const std::wstring once = MultipleRemove(subject, tag);
    fuzz::require(once.size() <= subject.size());
    fuzz::require(subject.empty() || !once.empty());

    const std::wstring trimmed = TrimSpaceAfterFirstSpace(subject);
    fuzz::require(TrimSpaceAfterFirstSpace(trimmed) == trimmed);

    const std::wstring single = RemoveLastTagIfMultipleTogether(subject);
    fuzz::require(RemoveLastTagIfMultipleTogether(single) == single);

    const std::wstring cleaned = removePhrases(subject, {tag});
    fuzz::require(cleaned.size() <= subject.size());
    fuzz::require(!tag.empty() || cleaned == subject);
    return 0;
}
