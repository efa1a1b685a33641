#include "checks/subjectCleaning.h"

#include <gtest/gtest.h>

#include "platform/text.h"

namespace {

using namespace basVeltro;

struct Case {
    std::wstring subject;
    std::wstring expected;
};

TEST(SubjectCleaning, KeepsTheFirstOfRepeatedTags) {
    for (const Case& given : {Case{L"RE: RE: re: x", L"RE: x"}, Case{L"x", L"x"}, Case{L"  ", L"  "},
                              Case{L"a RE: b re: c", L"a RE: b c"}, Case{L"RE:", L"RE:"}}) {
        EXPECT_EQ(MultipleRemove(given.subject, L"RE: "), given.expected);
    }
    EXPECT_EQ(MultipleRemove(L"RE: RE: x", L""), L"RE: RE: x");
}

TEST(SubjectCleaning, LeavesOneSpaceBehindTheFirstWord) {
    for (const Case& given : {Case{L"RE:   x  y", L"RE: x  y"}, Case{L"RE:x", L"RE:x"}, Case{L"   ", L"   "},
                              Case{L"  x", L" x"}, Case{L"RE:  ", L"RE: "}}) {
        EXPECT_EQ(TrimSpaceAfterFirstSpace(given.subject), given.expected);
    }
}

TEST(SubjectCleaning, DropsPrefixesThatFollowAPrefix) {
    for (const Case& given :
         {Case{L"RE: FW: RE: Budget", L"RE: Budget"}, Case{L"FW: re: x", L"FW: x"},
          Case{L"RE: FW:", L"RE: FW:"}, Case{L"RE: FW: ", L"RE: "}, Case{L"Hi RE: x", L"Hi RE: x"},
          Case{L"AW: RE: x", L"AW: RE: x"}, Case{L"", L""}, Case{L"RE:  FW: x", L"RE:  FW: x"}}) {
        EXPECT_EQ(RemoveLastTagIfMultipleTogether(given.subject), given.expected);
    }
}

TEST(PrefixFile, IsReadInAnyLayout) {
    using Prefixes = std::vector<std::wstring>;
    const struct {
        std::string bytes;
        Prefixes expected;
    } cases[] = {
        {"", {}},
        {"\r\n \r\n", {}},
        {"RE:\r\nFW:\r\n", {L"RE:", L"FW:"}},
        {"\xEF\xBB\xBFRE:\n\n AW: \nlast", {L"RE:", L"AW:", L"last"}},
        {"R\xC3\xA9p:\n", {L"R\u00E9p:"}},
        {"R\xE9p:\n", {L"R\u00E9p:"}},
        {std::string("\xFF\xFER\0E\0:\0\n\0", 10), {L"RE:"}},
        {std::string("\xFE\xFF\0R\0E\0:", 8), {L"RE:"}},
        {std::string(10'000'000, 'x'), {std::wstring(10'000'000, L'x')}},
    };
    for (const auto& given : cases) {
        EXPECT_TRUE(prefixesOf(given.bytes) == given.expected) << given.bytes.substr(0, 40);
    }
}

}  // namespace
