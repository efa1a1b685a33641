#include "checks/subjectCleaning.h"

#include <gtest/gtest.h>

#include <functional>
#include <utility>

#include "platform/text.h"
#include "tests/TemporaryFolder.h"
#include "tests/TestWorld.h"
#include "tests/native/MemoryLimit.h"

namespace {

using namespace checks;

struct Case {
    std::wstring subject;
    std::wstring expected;
};

class SubjectCleaning : public testing::Test {
  protected:
    TestWorld world_;
    mail::Globals& globals_ = world_.globals;
};

TEST_F(SubjectCleaning, KeepsTheFirstOfRepeatedTags) {
    for (const Case& given : {Case{L"RE: RE: re: x", L"RE: x"}, Case{L"x", L"x"}, Case{L"  ", L"  "},
                              Case{L"a RE: b re: c", L"a RE: b c"}, Case{L"RE:", L"RE:"}}) {
        EXPECT_EQ(MultipleRemove(globals_, given.subject, L"RE: "), given.expected);
    }
    EXPECT_EQ(MultipleRemove(globals_, L"RE: RE: x", L""), L"RE: RE: x");
}

TEST_F(SubjectCleaning, LeavesOneSpaceBehindTheFirstWord) {
    for (const Case& given : {Case{L"RE:   x  y", L"RE: x  y"}, Case{L"RE:x", L"RE:x"}, Case{L"   ", L"   "},
                              Case{L"  x", L" x"}, Case{L"RE:  ", L"RE: "}}) {
        EXPECT_EQ(TrimSpaceAfterFirstSpace(globals_, given.subject), given.expected);
    }
}

TEST_F(SubjectCleaning, DropsPrefixesThatFollowAPrefix) {
    for (const Case& given :
         {Case{L"RE: FW: RE: Budget", L"RE: Budget"}, Case{L"FW: re: x", L"FW: x"},
          Case{L"RE: FW:", L"RE: FW:"}, Case{L"RE: FW: ", L"RE: "}, Case{L"Hi RE: x", L"Hi RE: x"},
          Case{L"AW: RE: x", L"AW: RE: x"}, Case{L"", L""}, Case{L"RE:  FW: x", L"RE:  FW: x"}}) {
        EXPECT_EQ(RemoveLastTagIfMultipleTogether(globals_, given.subject), given.expected);
    }
}

TEST(SubjectCleaningErrors, AreReportedUnderTheStepsName) {
    const std::wstring rest(100'000, L'x');
    const std::wstring subject = L"RE: FW: RE: " + rest;
    const struct {
        const wchar_t* name;
        /// True when the step leaves its input, which is the subject.
        std::function<bool(mail::Globals&, std::wstring)> fails;
    } cases[] = {
        {L"MultipleRemove",
         [&](auto& globals, std::wstring input) {
             return MultipleRemove(globals, std::move(input), L"RE: ") == subject;
         }},
        {L"TrimSpaceAfterFirstSpace",
         [&](auto& globals, std::wstring input) {
             return TrimSpaceAfterFirstSpace(globals, std::move(input)) == subject;
         }},
        {L"RemoveLastTagIfMultipleTogether",
         [&](auto& globals, std::wstring input) {
             return RemoveLastTagIfMultipleTogether(globals, std::move(input)) == subject;
         }},
        {L"WordInArray",
         [](auto& globals, const std::wstring& input) { return !WordInArray(globals, {input}, input); }},
        {L"GetTagsArrayFromFile",
         [](auto& globals, const std::wstring& input) {
             return GetTagsArrayFromFile(globals, input).empty();
         }},
    };
    for (const auto& given : cases) {
        TestWorld world({L"Veltro=OK"});
        std::wstring input = subject;
        {
            const MemoryLimit limit(rest.size());
            EXPECT_TRUE(given.fails(world.globals, std::move(input)));
        }
        ASSERT_EQ(world.log.messages.size(), 1U) << text::toUtf8(given.name);
        EXPECT_EQ(world.log.messages[0].text,
                  L"basVeltro." + std::wstring(given.name) + L" - Error 7: Out of memory");
    }
}

TEST(PrefixFile, ThatCannotBeReadIsReportedAndCountsAsNone) {
    const TemporaryFolder folder;  // A folder in its place.
    TestWorld world({L"Veltro=OK"});
    bool found = true;
    EXPECT_EQ(FindReFwFromFile(world.globals, L"RE: RE: x", text::fromUtf8(folder.file("").string()), found),
              L"RE: RE: x");
    EXPECT_FALSE(found);
    ASSERT_EQ(world.log.messages.size(), 1U);
    EXPECT_EQ(world.log.messages[0].text,
              L"basVeltro.GetTagsArrayFromFile - Error 75: The prefix file cannot be read.");
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
