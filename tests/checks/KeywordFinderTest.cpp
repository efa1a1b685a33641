#include "checks/KeywordFinder.h"

#include <gtest/gtest.h>

#include <random>

#include "checks/quotedHeader.h"
#include "platform/text.h"

namespace {

using checks::findQuotedHeader;
using checks::KeywordFinder;

TEST(KeywordFinder, FindsWhatAPlainSearchFinds) {
    std::mt19937 random(20);  // NOLINT(cert-msc51-cpp): the same texts in every run.
    const auto text = [&random](std::size_t longest) {
        std::wstring letters(random() % (longest + 1), L'\0');
        for (wchar_t& letter : letters) {
            letter = L"abAB\u00E4\u00C4 "[random() % 7];
        }
        return letters;
    };
    for (int round = 0; round < 20000; ++round) {
        const std::wstring body = text(40);
        std::vector<std::wstring> words(1 + random() % 4);
        bool expected = false;
        for (std::wstring& word : words) {
            word = text(round % 2 == 0 ? 3 : 9);
            expected = expected || text::containsIgnoringCase(body, word);
        }
        const KeywordFinder finder({words.begin(), words.end()});
        ASSERT_EQ(finder.foundIn(body), expected) << text::toUtf8(body) << " / " << text::toUtf8(words[0]);
    }
}

TEST(KeywordFinder, TakesNonBreakingSpacesForSpacesAndWordsLongerThanATableEntry) {
    EXPECT_TRUE(KeywordFinder({L"please find"}).foundIn(L"PLEASE\u00A0FIND"));
    const std::wstring longWord(1000, L'x');
    EXPECT_TRUE(KeywordFinder({longWord}).foundIn(std::wstring(777, L'y') + longWord));
    EXPECT_FALSE(KeywordFinder({longWord}).foundIn(longWord.substr(1)));
    EXPECT_FALSE(KeywordFinder({}).foundIn(L"anything"));
}

TEST(QuotedHeader, IsFoundWhereThreeLinesFollowEachOther) {
    const struct {
        const wchar_t* body;
        std::optional<std::size_t> position;
    } cases[] = {
        {L"", {}},
        {L"From:", {}},
        {L"From: a\r\nSent: b\r\nTo: c", 1},
        {L"Hi\r\nFrom: a\r\nSent: b\r\nTo: c\r\n", 5},
        {L"Hi\r\n> From: From: a\r\n> Sent: b\r\n> To: c", 7},
        {L"From: a\r\nTo: c\r\nFrom: a\r\nSent: b\r\nTo: c", 17},
        {L"From: a\r\nFrom: Sent:\r\nSent: To:\r\nTo:", 1},
        {L"From: a\nSent: b\nTo: c", {}},
        {L"from: a\r\nSent: b\r\nTo: c", {}},
        {L"From: a\r\n\r\nSent: b\r\nTo: c", {}},
    };
    for (const auto& given : cases) {
        EXPECT_EQ(findQuotedHeader(given.body), given.position) << text::toUtf8(given.body);
    }
}

}  // namespace
