#include "checks/subjectCleaning.h"
#include "fuzz/FuzzWorld.h"

/// The first line is a tag, the rest the subject.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace checks;
    static FuzzWorld world;
    mail::Globals& globals = world.globals;
    const std::wstring input = fuzz::textOf(data, size);
    const std::wstring_view tag = text::before(input, L'\n');
    const std::wstring subject = input.substr(std::min(input.size(), tag.size() + 1));

    const std::wstring once = MultipleRemove(globals, subject, tag);
    fuzz::require(once.size() <= subject.size());
    fuzz::require(subject.empty() || !once.empty());

    const std::wstring trimmed = TrimSpaceAfterFirstSpace(globals, subject);
    fuzz::require(TrimSpaceAfterFirstSpace(globals, trimmed) == trimmed);

    const std::wstring single = RemoveLastTagIfMultipleTogether(globals, subject);
    fuzz::require(RemoveLastTagIfMultipleTogether(globals, single) == single);

    const std::wstring cleaned = removePhrases(subject, {tag});
    fuzz::require(cleaned.size() <= subject.size());
    fuzz::require(!tag.empty() || cleaned == subject);
    return 0;
}
