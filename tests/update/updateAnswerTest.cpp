#include "update/updateAnswer.h"

#include <gtest/gtest.h>

#include "platform/text.h"

namespace {

using namespace update;

TEST(UpdateAnswer, ElementsAreFoundByTheirMarks) {
    const struct {
        const wchar_t* tag;
        const wchar_t* text;
        const wchar_t* content;
    } cases[] = {
        {L"MSG", L"<MSG>Hello</MSG>", L"Hello"},
        {L"MSG", L"x<msg> Hello </Msg>y", L" Hello "},
        {L"msg", L"<MSG></MSG>", L""},
        {L"", L"<>Hello</>", L""},
        {L"MSG", L"Hello</MSG>", L""},
        {L"MSG", L"<MSG>Hello", L""},
        {L"MSG", L"<MSG x='1'>Hello</MSG>", L""},
        {L"MSG", L"<MSG>1</MSG><MSG>2</MSG>", L"1"},
        {L"MSG", L"<MSG>a <MSG>b</MSG></MSG>", L"a <MSG>b"},
        {L"MSG", L"</MSG><MSG>Hello</MSG>", L""},
        {L"MSG", L"<MSG>5 &lt; 6</MSG>", L"5 &lt; 6"},
    };
    for (const auto& given : cases) {
        EXPECT_EQ(XmlDataGet(given.tag, given.text), given.content) << text::toUtf8(given.text);
    }
}

TEST(UpdateAnswer, VersionsAreShownWithTwoDigitsBehindTheLastPoint) {
    const std::pair<const wchar_t*, const wchar_t*> cases[] = {
        {L"", L""},           {L"   ", L""},        {L"5", L"5.00"},         {L"5.", L"5.00"},
        {L"5.1", L"5.10"},    {L"5.10", L"5.10"},   {L" 5.1.0 ", L"5.1.00"}, {L"5.1.0.", L"5.1.0.00"},
        {L"5.123", L"5.123"}, {L"beta", L"beta.00"}};
    for (const auto& [version, shown] : cases) {
        EXPECT_EQ(shownVersion(version), shown);
    }
}

TEST(UpdateAnswer, OnlyAHigherVersionOfTheSameFirstPartIsNewer) {
    const struct {
        const wchar_t* offered;
        const wchar_t* installed;
        bool newer;
    } cases[] = {
        {L"5.2.0", L"5.1.9", true},
        {L"5.1.1", L"5.1.0", true},
        {L"5.1.0", L"5.1.0", false},
        {L"5.0.9", L"5.1.0", false},
        {L"5.1.0", L"5.1.1", false},
        {L"5.10.0", L"5.9.0", true},
        {L"6.0.0", L"5.9.9", false},
        {L"4.9.9", L"5.0.0", false},
        {L"5.2", L"5.1.9", true},
        {L"5.1", L"5.1.0", false},
        {L"5.1.0.7", L"5.1.0", false},
        {L"5.1.1.7", L"5.1.0", true},
        {L"5.4294967295.0", L"5.1.0", true},
        {L"5.4294967296.0", L"5.1.0", false},
        {L"5.-2.0", L"5.1.0", false},
        {L"5.+2.0", L"5.1.0", false},
        {L"5. 2.0", L"5.1.0", false},
        {L"5.2.0x", L"5.1.0", false},
        {L"5.2.", L"5.1.0", false},
        {L"5", L"5.1.0", false},
        {L"5.2.0.0.0", L"5.1.0", false},
        {L"", L"5.1.0", false},
    };
    for (const auto& given : cases) {
        EXPECT_EQ(isNewer(given.offered, given.installed), given.newer)
            << text::toUtf8(given.offered) << " over " << text::toUtf8(given.installed);
    }
}

std::wstring list(const std::wstring& content) {
    return L"<?xml version='1.0'?><SoftwareList>" + content + L"</SoftwareList>";
}

TEST(UpdateAnswer, IsReadFromItsContainer) {
    const Answer answer =
        readAnswer(list(L"<FREEVERSION> 5a1a0 </FREEVERSION><FREEDOWNLOAD>http://a.example/d</FREEDOWNLOAD>"
                        L"<MSG>One\nTwo\x202E\x07</MSG><DOWNLOADLINK>ftp://a.example</DOWNLOADLINK>"
                        L"<UPGRADEPOLICYLINK>https://a.example/p</UPGRADEPOLICYLINK>"
                        L"<FEATURESRELEASELINK>https://a.example/f</FEATURESRELEASELINK>"));
    EXPECT_EQ(answer.version, L"5.1.0");
    EXPECT_EQ(answer.message, L"One\r\nTwo");
    EXPECT_EQ(answer.freeDownload.address->text(), L"http://a.example/d");
    EXPECT_EQ(answer.download.text, L"ftp://a.example");
    EXPECT_FALSE(answer.download.address);
    EXPECT_EQ(answer.upgradePolicy.address->text(), L"https://a.example/p");
    EXPECT_EQ(answer.features.address->text(), L"https://a.example/f");

    EXPECT_EQ(readAnswer(L"<FREEVERSION>5.1.0</FREEVERSION>").version, L"") << "outside of the container";
    EXPECT_EQ(readAnswer(list(L"<FREEVERSION>5A1</FREEVERSION>")).version, L"") << "a capital A is no point";
    EXPECT_EQ(readAnswer(std::wstring(1 << 20, L'<')).version, L"");
    EXPECT_LT(readAnswer(list(L"<MSG>" + std::wstring(100000, L'x') + L"</MSG>")).message.size(), 2100U);
    EXPECT_LT(Link::of(std::wstring(100000, L'x')).text.size(), 2100U);
}

}  // namespace
