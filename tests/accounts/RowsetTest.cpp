#include "accounts/Rowset.h"

#include <gtest/gtest.h>

#include "accounts/XmlReader.h"
#include "platform/automation.h"
#include "tests/accounts/listTexts.h"

namespace {

using accounts::rowset::NotARowset;
using accounts::rowset::readRowset;
using accounts::rowset::writeRowset;

/// A set with everything that the data-access components leave behind: pending changes of each kind, nulls,
/// references, broken lines.
constexpr wchar_t pendingChanges[] =
    L"<xml xmlns:s='uuid:BDC6E3F0-6DA3-11d1-A2A3-00AA00C14882'\r\n"
    L"\txmlns:dt='uuid:C2F41010-65B3-11d1-A29F-00AA00C14882'\r\n\txmlns:rs='urn:schemas-microsoft-com:rowset'\r\n"
    L"\txmlns:z='#RowsetSchema'>\r\n<s:Schema id='RowsetSchema'>\r\n\t<s:ElementType name='row' "
    L"content='eltOnly' rs:updatable='true'>\r\n\t\t<s:AttributeType name='strEmailAddress' rs:number='1' "
    L"rs:nullable='true' rs:maydefer='true' rs:write='true'\r\n\t\t\t rs:basetable='tblEmailAddress' "
    L"rs:basecolumn='strEmailAddress'>\r\n\t\t\t<s:datatype dt:type='string' dt:maxLength='255'/>\r\n"
    L"\t\t</s:AttributeType>\r\n\t\t<s:AttributeType name='strAccount' rs:number='2' rs:nullable='true' "
    L"rs:maydefer='true' rs:write='true' rs:basetable='tblEmailAddress'\r\n\t\t\t rs:basecolumn='strAccount'>\r\n"
    L"\t\t\t<s:datatype dt:type='string' dt:maxLength='255'/>\r\n\t\t</s:AttributeType>\r\n\t\t<s:extends "
    L"type='rs:rowbase'/>\r\n\t</s:ElementType>\r\n</s:Schema>\r\n<rs:data>\r\n\t<z:row "
    L"strEmailAddress='ann@example.org' strAccount='Work'/>\r\n\t<rs:update>\r\n\t\t<rs:original>\r\n"
    L"\t\t\t<z:row strEmailAddress='bob@example.org' strAccount='Work'/>\r\n\t\t</rs:original>\r\n\t\t<z:row "
    L"strAccount='Bob&#x27;s &#x26; &#x3c;mine&#x3e;'/>\r\n\t</rs:update>\r\n\t<rs:insert>\r\n\t\t<z:row "
    L"strEmailAddress='cy@example.org' rs:forcenull='strAccount'/>\r\n\t\t<z:row "
    L"strEmailAddress='di@example.org' strAccount=''/>\r\n\t</rs:insert>\r\n\t<rs:delete>\r\n\t\t<z:row "
    L"strEmailAddress='ed@example.org' strAccount='Work'/>\r\n\t</rs:delete>\r\n</rs:data>\r\n</xml>";

TEST(Rowset, IsWrittenAsTheComponentsWriteIt) {
    const std::wstring before(pendingChanges);
    const std::wstring expected =
        before.substr(0, before.find(L"\t<rs:update>")) +
        L"\t<z:row strEmailAddress='bob@example.org' strAccount='Bob&#x27;s &#x26; &#x3c;mine&#x3e;'/>\r\n"
        L"\t<z:row strEmailAddress='cy@example.org'/>\r\n\t<z:row strEmailAddress='di@example.org' "
        L"strAccount=''/>\r\n</rs:data>\r\n</xml>";
    EXPECT_EQ(writeRowset(readRowset(pendingChanges)), expected);
    EXPECT_EQ(writeRowset(readRowset(expected)), expected);

    const std::wstring empty = before.substr(0, before.find(L"\t<z:row")) + L"</rs:data>\r\n</xml>";
    EXPECT_EQ(writeRowset(readRowset(accounts::emptyList)), empty);
}

struct ReadCase {
    const char* name;
    std::wstring text;
    Entries entries;
};

class Reading : public testing::TestWithParam<ReadCase> {};

TEST_P(Reading, UnderstandsEveryForm) {
    EXPECT_EQ(entriesOf(accounts::AccountRows(GetParam().text)), GetParam().entries);
}

INSTANTIATE_TEST_SUITE_P(
    Forms, Reading,
    testing::Values(
        ReadCase{"NewList", accounts::emptyList, {}},
        ReadCase{"ClosedAtOnce", listText(std::wstring(L"\r\n")), {}},
        ReadCase{"PendingChanges",
                 pendingChanges,
                 {{L"ann@example.org", L"Work"},
                  {L"bob@example.org", L"Bob's & <mine>"},
                  {L"cy@example.org", L""},
                  {L"di@example.org", L""}}},
        ReadCase{"ChangedToNull",
                 listText(L"<rs:update><rs:original><z:row strEmailAddress='a@b.org' "
                          L"strAccount='X'/></rs:original><z:row strEmailAddress='b@b.org' "
                          L"rs:forcenull='strAccount'/></rs:update>"),
                 {{L"b@b.org", L""}}},
        ReadCase{"UnchangedUpdate",
                 listText(L"<rs:update><rs:original><z:row strEmailAddress='a@b.org' "
                          L"strAccount='X'/></rs:original><z:row/></rs:update>"),
                 {{L"a@b.org", L"X"}}},
        ReadCase{
            "OtherQuotesAndOrder",
            listText(L"<z:row\n    strAccount = \"Bob's\"\n    strEmailAddress=\"a@b.org\"\n  ></z:row>"),
            {{L"a@b.org", L"Bob's"}}},
        ReadCase{"References",
                 listText(L"<z:row strEmailAddress='&#97;&#x40;b&#46;org' "
                          L"strAccount='&lt;&gt;&amp;&quot;&apos;&#xAF;&#x1f60a;'/>"),
                 {{L"a@b.org", L"<>&\"'\xAF\x1F60A"}}},
        ReadCase{"DeclarationAndComments",
                 L"\xFEFF<?xml version='1.0'?>\n<!-- the list -- of accounts > -->\n" +
                     text::replaceAll(listText(L"<!-- <z:row strEmailAddress='no'/> --><z:row "
                                               L"strEmailAddress='a@b.org'/>"),
                                      L"\r\n", L"\n") +
                     L"\n<!-- end -->\n",
                 {{L"a@b.org", L""}}},
        ReadCase{"NonBreakingSpaces",
                 text::replaceAll(listText({{L"a@b.org", L"Work"}}), L" ", L" \xA0"),
                 {{L"a@b.org", L"Work"}}},
        ReadCase{"OnlyNonBreakingSpaces",
                 text::replaceAll(listText({{L"a@b.org", L"My Work"}}), L" ", L"\xA0"),
                 {{L"a@b.org", L"My Work"}}},
        ReadCase{"ZeroIsNoCharacter",
                 listText(L"<z:row strEmailAddress='a" + std::wstring(1, L'\0') + L"@b.org'/>"),
                 {{L"a@b.org", L""}}},
        ReadCase{"SortedWithoutRegardToCase",
                 listText({{L"b@x", L"1"}, {L"C@x", L"2"}, {L"A@x", L"3"}, {L"B@X", L"4"}}),
                 {{L"A@x", L"3"}, {L"b@x", L"1"}, {L"B@X", L"4"}, {L"C@x", L"2"}}}),
    [](const auto& test) { return test.param.name; });

/// The text with one prefix in the place of another, wherever names begin; an empty one has no ":".
std::wstring renamed(std::wstring text, const std::wstring& from, const std::wstring& to) {
    const std::wstring colon = to.empty() ? L"" : L":";
    for (const wchar_t* before : {L"<", L"</", L" ", L"\t"}) {
        text = text::replaceAll(text, before + from + L":", before + to + colon);
    }
    return text::replaceAll(text, L"xmlns:" + from + L"=", L"xmlns" + colon + to + L"=");
}

std::wstring withoutDeclarations(const std::wstring& text) {
    return L"<xml>" + text.substr(text.find(L"<s:Schema"));
}

/// A prefix means what it is declared to mean; what is declared nowhere is understood as it usually is.
TEST(Rowset, GoesByNameSpaces) {
    const std::wstring usual(pendingChanges);
    const std::wstring swapped =
        renamed(renamed(renamed(usual, L"rs", L"other"), L"z", L"rs"), L"other", L"z");
    const std::wstring inside = text::replaceAll(withoutDeclarations(usual), L"<rs:data",
                                                 L"<q:data xmlns:q='urn:schemas-microsoft-com:rowset'");
    const std::wstring cases[] = {
        renamed(usual, L"s", L"xs"),
        renamed(usual, L"s", L""),
        renamed(usual, L"dt", L"types"),
        renamed(usual, L"rs", L"R"),
        renamed(usual, L"z", L"row"),
        renamed(usual, L"z", L""),
        swapped,
        withoutDeclarations(usual),
        text::replaceAll(inside, L"</rs:data", L"</q:data"),
        text::replaceAll(usual, L"xmlns:rs=", L"xmlns:also='urn:schemas-microsoft-com:rowset' xmlns:rs="),
        text::replaceAll(usual, L"<z:row strE", L"<y:row xmlns:y='#RowsetSchema' strE"),
    };
    for (const std::wstring& text : cases) {
        ASSERT_NE(text, usual);
        EXPECT_EQ(writeRowset(readRowset(text)), writeRowset(readRowset(usual))) << text::toUtf8(text);
    }
    EXPECT_EQ(writeRowset(readRowset(text::replaceAll(usual, L"uuid:BDC6E3F0-6DA3-11d1-A2A3-00AA00C14882",
                                                      L"UUID:bdc6e3f0-6da3-11D1-a2a3-00aa00c14882")))
                  .find(L"xmlns:s='UUID:bdc6e3f0"),
              5U)
        << "as it was declared";
    EXPECT_NE(writeRowset(readRowset(text::replaceAll(usual, L"uuid:C2F41010-65B3-11d1-A29F-00AA00C14882",
                                                      L"urn:other")))
                  .find(L"xmlns:dt='urn:other'"),
              std::wstring::npos);
}

std::wstring nested(std::size_t depth) {
    std::wstring text;
    for (std::size_t level = 0; level < depth; ++level) {
        text += L"<s:Schema>";
    }
    return text;
}

std::wstring manyAttributes() {
    std::wstring text = L"<z:row";
    for (int number = 0; number < 20'000; ++number) {
        text += L" a" + std::to_wstring(number) + L"=''";
    }
    return text + L"/>";
}

/// Well-formed rows, each with a column of its own.
std::wstring manyColumns() {
    std::wstring text;
    for (int number = 0; number < 20'000; ++number) {
        text += L"<z:row a" + std::to_wstring(number) + L"=''/>";
    }
    return text;
}

std::wstring manyNameSpaces() {
    std::wstring text = L"<xml";
    for (int number = 0; number < 9'000; ++number) {
        text += L" xmlns:a" + std::to_wstring(number) + L"='b'";
    }
    return text + std::wstring(accounts::emptyList).substr(4);
}

/// What precedes the rows, made longer by a value.
std::wstring longFrame(std::size_t length, wchar_t character) {
    return text::replaceAll(accounts::emptyList, L"rs:updatable='true'",
                            L"rs:updatable='true' later='" + std::wstring(length, character) + L"'");
}

TEST(Rowset, RefusesWhatIsNone) {
    const std::wstring cases[] = {
        L"",
        L"   \r\n",
        L"Hello Bob",
        L"<html></html>",
        L"<xml></xml>",
        L"<xml/>",
        text::replaceAll(text::replaceAll(accounts::emptyList, L"<xml", L"<html"), L"</xml", L"</html"),
        std::wstring(accounts::emptyList) + L"-- \r\nAnn",
        std::wstring(accounts::emptyList) + accounts::emptyList,
        std::wstring(L"Dear list,") + accounts::emptyList,
        std::wstring(L"<!DOCTYPE xml [<!ENTITY a 'aa'>]>") + accounts::emptyList,
        text::replaceAll(accounts::emptyList, L"rs:number='2'", L"rs:number='2' name='strAccount'"),
        text::replaceAll(accounts::emptyList, L"name='strAccount'", L"name='strEmailAddress'"),
        text::replaceAll(accounts::emptyList, L"s:ElementType", L"s:Type"),
        text::replaceAll(accounts::emptyList, L"rs:data", L"rs:other"),
        text::replaceAll(accounts::emptyList, L"strAccount", L"strOther"),
        text::replaceAll(accounts::emptyList, L"</s:Schema>", L"</s:Schema><s:Schema/>"),
        listText(L"<![CDATA[<z:row/>]]>"),
        listText(L"<!ELEMENT a>"),
        listText(L"hello"),
        listText(L"<z:row strEmailAddress='a@b.org'>text</z:row>"),
        listText(L"<z:row><z:row/></z:row>"),
        listText(L"<other/>"),
        listText(L"<rs:insert><rs:insert/></rs:insert>"),
        listText(L"<rs:update><z:row strAccount='X'/></rs:update>"),
        listText(L"<rs:update><rs:original><z:row/></rs:original></rs:update>"),
        listText(L"<z:row strAccount=Work/>"),
        listText(L"<z:row strAccount/>"),
        listText(L"<z:row strAccount='Work/>"),
        listText(L"<z:row strAccount='<b>'/>"),
        listText(L"<z:row strAccount='a'strEmailAddress='b'/>"),
        listText(L"<z:row strAccount='Work' strAccount='Home'/>"),
        listText(L"<z:row rs:forcenull='a' strAccount='' rs:forcenull='b'/>"),
        listText(L"<z:row strAccount='&nbsp;'/>"),
        listText(L"<z:row strAccount='R&D'/>"),
        listText(L"<z:row strAccount='&#;'/>"),
        listText(L"<z:row strAccount='&#x;'/>"),
        listText(L"<z:row strAccount='&#0;'/>"),
        listText(L"<z:row strAccount='&#xD800;'/>"),
        listText(L"<z:row strAccount='&#x110000;'/>"),
        listText(L"<z:row strAccount='&#99999999999999999999;'/>"),
        listText(L"<z:row strAccount='&#1a;'/>"),
        listText(L"<z:row strAccount='&#x4@;'/>"),
        listText(L"<!-- </rs:data></xml>"),
        listText(L"</rs:data></xml>"),
        listText(nested(100'000)),
        listText(manyAttributes()),
        listText(manyColumns()),
        nested(100'000),
        text::replaceAll(accounts::emptyList, L"#RowsetSchema", L"urn:other"),
        text::replaceAll(accounts::emptyList, L"urn:schemas-microsoft-com:rowset", L"urn:other"),
        text::replaceAll(accounts::emptyList, L"uuid:BDC6E3F0-6DA3-11d1-A2A3-00AA00C14882", L"urn:other"),
        text::replaceAll(listText(L"<z:row/>"), L"<z:row/>", L"<z:row xmlns:z='urn:other'/>"),
        text::replaceAll(listText(L"<z:row/>"), L"<z:row/>", L"<y:row xmlns:y='urn:other'/>"),
        text::replaceAll(listText(L"<z:row/>"), L"<z:row/>", L"<row/>"),
        listText(L"<y:row xmlns:y='#RowsetSchema'/><y:row/>"),
        listText(L"<z:row xmlns:q='urn:schemas-microsoft-com:rowset' q:a='' rs:a=''/>"),
        text::replaceAll(accounts::emptyList, L"id='RowsetSchema'",
                         L"xmlns:q='urn:schemas-microsoft-com:rowset' q:id='' rs:id='' id='RowsetSchema'"),
        text::replaceAll(accounts::emptyList, L"name='strAccount'", L"name='a b' rs:name='strAccount'"),
        text::replaceAll(accounts::emptyList, L"name='strAccount'", L"name='' rs:name='strAccount'"),
        text::replaceAll(accounts::emptyList, L"name='strAccount'", L"name='xmlns:a' rs:name='strAccount'"),
        text::replaceAll(accounts::emptyList, L"name='strAccount'",
                         L"name='rs:forcenull' rs:name='strAccount'"),
        listText(L"<z:row str\x1='Work'/>"),
        listText(L"<z:row str\x85='Work'/>"),
        listText(L"<z:row a" + std::wstring(1, L'\0') + L"b='Work'/>"),
        manyNameSpaces(),
        longFrame(1'100'000, L'x'),
    };
    for (const std::wstring& text : cases) {
        EXPECT_THROW(accounts::AccountRows{text}, NotARowset) << text::toUtf8(text.substr(0, 3000));
    }
}

TEST(Rowset, IsReadWholeOrNotAtAll) {
    const std::wstring whole(pendingChanges);
    for (std::size_t length = 0; length < whole.size(); ++length) {
        EXPECT_THROW(readRowset(whole.substr(0, length)), NotARowset) << "cut after " << length;
    }
    const std::wstring doubled =
        listText(L"<z:row strEmailAddress=\"a\" strAccount='&amp;'></z:row><!--c-->");
    for (std::size_t length = 0; length < doubled.size(); ++length) {
        EXPECT_THROW(readRowset(doubled.substr(0, length)), NotARowset) << "cut after " << length;
    }
}

TEST(Rowset, KeepsEveryCharacter) {
    accounts::AccountRows rows(accounts::emptyList);
    Entries entries;
    const auto add = [&](const std::wstring& value) {
        entries.emplace_back(std::to_wstring(100'000 + entries.size()), value);
        rows.add();
        rows.set({entries.back().first, entries.back().second});
    };
    add(L"");
    add(L"  two  spaces  ");
    add(L"\x1F600 &amp; \xD83D\xDE00 \xD83D");
    for (wchar_t character = 1; character < 0x3000; ++character) {
        add(std::wstring(2, character));
    }
    EXPECT_EQ(entriesOf(accounts::AccountRows(writeRowset(rows.rowset()))), entries);
}

/// XML has no other way to hold them: raw ones are spaces to other readers, or none of XML's characters.
TEST(Rowset, WritesNoControlCharacterRaw) {
    accounts::AccountRows rows(accounts::emptyList);
    rows.add();
    rows.set({L"a", L"\t\r\n\x1\x1f\x7f\x9f\xa0"});
    const std::wstring text = writeRowset(rows.rowset());
    EXPECT_NE(text.find(L"strAccount='&#x9;&#xd;&#xa;&#x1;&#x1f;&#x7f;&#x9f;&#xa0;'"), std::wstring::npos)
        << text::toUtf8(text);
}

/// References take more room than what they stand for.
TEST(Rowset, CanReadWhatItHasWritten) {
    accounts::AccountRows rows(longFrame(170'000, L'>'));
    rows.add();
    rows.set({L"a@b.org", L"Work"});
    const std::wstring text = accounts::rowset::writeReadable(rows.rowset());
    EXPECT_GT(text.size(), 1'000'000U);
    EXPECT_EQ(accounts::AccountRows(text).count(), 1U);

    const std::wstring twin = L"<s:AttributeType name='c3' rs:name='strAccount'/><s:extends";
    EXPECT_NO_THROW(accounts::rowset::writeReadable(
        readRowset(text::replaceAll(listText(L"<z:row strAccount='a' c3='b'/>"), L"<s:extends", twin))))
        << "two columns of one name";

    EXPECT_FALSE(accounts::rowset::sameRows(readRowset(listText(L"<z:row a='1'/>")),
                                            readRowset(listText(L"<z:row a='1' b='2'/>"))));

    // The row has one attribute more than may be read.
    accounts::rowset::Limits limits;
    limits.mostAttributes = 6;
    accounts::AccountRows wide(listText(L"<z:row a='' b='' c='' d='' e=''/>"), {.mostAttributes = 8});
    wide.set({L"a@b.org", L"Work"});
    EXPECT_THROW(accounts::rowset::writeReadable(wide.rowset(), limits), automation::Error);
    limits.mostAttributes = 8;
    EXPECT_NO_THROW(accounts::rowset::writeReadable(wide.rowset(), limits));
}

/// A line is broken before an attribute once it holds 108 bytes of UTF-8.
TEST(Rowset, BreaksLongLines) {
    const struct {
        std::wstring address;
        bool broken;
    } cases[] = {{std::wstring(81, L'x'), false},
                 {std::wstring(82, L'x'), true},
                 {std::wstring(76, L'x') + L"&", true},
                 {std::wstring(75, L'x') + L"&", false},
                 {std::wstring(41, L'\xE9'), true},
                 {std::wstring(40, L'\xE9') + L"x", false},
                 {std::wstring(79, L'x') + L"\x20AC", true},
                 {std::wstring(78, L'x') + L"\x20AC", false}};
    for (const auto& [address, broken] : cases) {
        accounts::AccountRows rows(accounts::emptyList);
        rows.add();
        rows.set({address, L"Work"});
        const std::wstring text = writeRowset(rows.rowset());
        EXPECT_EQ(text.find(L"'\r\n\t\t strAccount='Work'/>\r\n") != std::wstring::npos, broken);
        EXPECT_EQ(text.find(L"' strAccount='Work'/>\r\n") != std::wstring::npos, !broken);
    }
}

TEST(Rowset, KeepsWhatItDoesNotKnow) {
    std::wstring newer = text::replaceAll(
        accounts::emptyList, L"</s:AttributeType>\r\n<s:extends type='rs:rowbase'/>",
        L"</s:AttributeType>\r\n<s:AttributeType name='c3' rs:name='Last Used' rs:number='3' new='1'>"
        L"<s:datatype dt:type='dateTime'/><s:hint/></s:AttributeType>\r\n<s:extends type='rs:rowbase'/>");
    newer = text::replaceAll(newer, L"rs:updatable='true'", L"rs:updatable='true' rs:CommandTimeout='30'");
    newer = text::replaceAll(
        newer, L"<rs:data>\r\n",
        L"<rs:data new='2'><z:row later='x' c3='2030-01-01' strAccount='Work' strEmailAddress='b@b.org'/>");
    accounts::AccountRows rows(newer);
    rows.add();
    rows.set({L"a@b.org", L"Home"});
    const std::wstring text = writeRowset(rows.rowset());

    for (const wchar_t* expected :
         {L"rs:updatable='true' rs:CommandTimeout='30'>\r\n", L"<rs:data new='2'>\r\n",
          L"\t\t<s:AttributeType name='c3' rs:name='Last Used' rs:number='3' new='1'>\r\n\t\t\t<s:datatype "
          L"dt:type='dateTime'/>\r\n\t\t\t<s:hint/>\r\n\t\t</s:AttributeType>\r\n",
          L"\t<z:row strEmailAddress='b@b.org' strAccount='Work' c3='2030-01-01' later='x'/>\r\n\t<z:row "
          L"strEmailAddress='a@b.org' strAccount='Home'/>\r\n"}) {
        EXPECT_NE(text.find(expected), std::wstring::npos) << text::toUtf8(expected);
    }
    EXPECT_EQ(readRowset(text).column(L"Last Used"), 2U);
}

TEST(Rowset, FindsForwardFromTheCurrentRow) {
    accounts::AccountRows rows(listText({{L"a", L"1"}, {L"b", L"2"}, {L"b", L"3"}, {L"c", L"4"}}));
    ASSERT_TRUE(rows.moveTo(2));
    EXPECT_TRUE(rows.findForward(L"b"));
    EXPECT_EQ(rows.account(rows.position()), L"3");
    EXPECT_FALSE(rows.findForward(L"a"));
    EXPECT_TRUE(rows.atEnd());
    EXPECT_TRUE(rows.moveTo(0));
    EXPECT_FALSE(rows.findForward(L"B"));
    EXPECT_FALSE(rows.moveTo(4));
}

}  // namespace
