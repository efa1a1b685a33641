#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>

#include "tests/scenarios/Bench.h"

namespace {

using automation::Object;

/// Nobody has used the add-in before; the user closes the settings that it opens with. Each problem that it
/// reports is taken note of.
Given newUser() {
    Given given{.settings = {{L"ShowStartupWizard", L""}}, .connected = false};
    given.answers = std::vector<std::wstring>(20, L"Veltro=OK");
    given.answers.push_back(L"frmIntroWizard=cmdNav(1)");
    return given;
}

std::wstring noted(Bench& bench) {
    return bench.world().setting(L"IntroEmailCreated").value_or(L"absent");
}

/// The introduction as it must stand in the Inbox; an empty text, or what is wrong with it.
std::string faultOf(Bench& bench, const Object& item) {
    const host::ItemView mail = bench.outlook().view(item);
    const bool whole = mail.subject == L"Introducing Veltro" &&
                       mail.body.starts_with(L"Veltro is now part of your Outlook.") &&
                       mail.body.ends_with(L"An answer to this e-mail reaches our support.\r\n");
    const Object properties = item.get(L"PropertyAccessor").toObject();
    const automation::Value submitted =
        properties.call(L"GetProperty", L"http://schemas.microsoft.com/mapi/proptag/0x00390040");
    const bool now = item.get(L"ReceivedTime").toDate() == bench.now() &&
                     properties.call(L"UTCToLocalTime", submitted).toDate() == bench.now();
    return !whole                                                                   ? "subject or text"
           : item.get(L"MessageClass").toText() != L"IPM.Note"                      ? "class"
           : item.get(L"SenderName").toText() != L"Veltro"                          ? "sender"
           : item.get(L"SenderEmailAddress").toText() != L"support@corvane.example" ? "address"
           : !mail.unread                                                           ? "read"
           : !item.get(L"Sent").toBool()                                            ? "a draft"
           : !now                                                                   ? "times"
                                                                                    : "";
}

std::string bytesOfIntroduction() {
    std::ifstream file(addInFolder() / "Introducing_Veltro.msg", std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

TEST(Introduction, ReachesTheInboxOnce) {
    Given given = newUser();
    given.answers.push_back(L"frmIntroWizard=cmdNav(1)");
    Bench bench(given);
    EXPECT_TRUE(bench.connect());
    ASSERT_EQ(bench.outlook().itemsIn(L"Inbox").size(), 1U);
    EXPECT_EQ(faultOf(bench, bench.outlook().itemsIn(L"Inbox").front()), "");
    EXPECT_EQ(noted(bench), L"CREATED");

    bench.disconnect();
    bench.world().set(L"ShowStartupWizard", L"True");  // As an administrator may.
    EXPECT_TRUE(bench.connect());
    EXPECT_EQ(bench.promptNames(), (std::vector<std::wstring>{L"frmIntroWizard", L"frmIntroWizard"}));
    EXPECT_EQ(bench.outlook().itemsIn(L"Inbox").size(), 1U);
    EXPECT_EQ(noted(bench), L"CREATED");
}

/// With the library; Outlook's own objects cannot have a mail be another than its file says.
TEST(Introduction, ArrivesAsAnUnreadMailWhateverItsFileSays) {
    Given given = newUser();
    given.provider = Provider::Redemption;
    given.introduction = bytesOfIntroduction();
    for (const auto& [own, other] : {std::pair{std::string("IPM.Note"), std::string("IPM.Post")},
                                     {std::string("\x03\x00\x07\x0E\x06\x00\x00\x00\x00", 9),
                                      std::string("\x03\x00\x07\x0E\x06\x00\x00\x00\x01", 9)}}) {
        const std::size_t place = given.introduction->find(own);
        ASSERT_NE(place, std::string::npos);
        given.introduction->replace(place, own.size(), other);
    }
    Bench bench(given);
    bench.connect();
    ASSERT_EQ(bench.outlook().itemsIn(L"Inbox").size(), 1U);
    EXPECT_EQ(faultOf(bench, bench.outlook().itemsIn(L"Inbox").front()), "");
}

TEST(Introduction, IsLeftOutWhereItCannotBeMade) {
    const std::string whole = bytesOfIntroduction();
    ASSERT_GT(whole.size(), 4096U);
    const struct {
        const char* name;
        std::optional<std::string> file;
        host::Profile profile;
    } cases[] = {
        {"no file", "", {}},
        {"half a file", whole.substr(0, whole.size() / 2), {}},
        {"another file", std::string(whole.size(), 'x'), {}},
        {"nothing to make it by", std::nullopt, {.version = L"11.0.0.5510", .redemptionRegistered = false}},
        {"a store that takes nothing", std::nullopt, {.stores = {{.readOnly = true}}}},
    };
    for (const auto& test : cases) {
        Given given = newUser();
        given.introduction = test.file;
        given.profile = test.profile;
        Bench bench(given);
        EXPECT_TRUE(bench.connect()) << test.name;
        EXPECT_EQ(noted(bench), L"NOTCREATED") << test.name;
        EXPECT_TRUE(bench.outlook().itemsIn(L"Inbox").empty()) << test.name;
        EXPECT_TRUE(bench.outlook().itemsIn(L"Drafts").empty()) << test.name;
    }
}

/// The calls by which the introduction is made: which one of the start's is the first, and how many.
std::pair<std::size_t, std::size_t> callsOfIntroduction() {
    Bench bench(newUser());
    const std::size_t before = bench.outlook().calls();
    bench.outlook().meter()->record(true);
    bench.connect();
    const std::vector<std::wstring> log = bench.outlook().meter()->log();
    EXPECT_EQ(bench.outlook().calls() - before, log.size());
    const auto named = [&log](auto from, const wchar_t* call) { return std::find(from, log.end(), call); };
    if (usualProvider == Provider::Outlook) {
        const auto opened = named(log.begin(), L"NameSpace.OpenSharedItem");
        const auto moved = named(opened, L"MailItem.Move");
        return {opened - log.begin() + 1, moved == log.end() ? 0 : moved - opened + 1};
    }
    const auto last = named(log.begin(), L"RDOMail.Save");
    auto first = last;
    while (first != log.begin() && *first != L"createObject.vtRedemption.vtRDOSession") {
        --first;
    }
    return {first - log.begin() + 1, last == log.end() ? 0 : last - first + 1};
}

TEST(Introduction, IsWholeOrNotThereWhicheverCallFails) {
    const auto [first, count] = callsOfIntroduction();
    ASSERT_GT(count, 2U);
    for (std::size_t n = first; n < first + count; ++n) {
        Bench bench(newUser());
        bench.outlook().failCall(n);
        EXPECT_TRUE(bench.connect()) << n;
        bench.outlook().failCall(0);
        EXPECT_EQ(bench.promptNames(), std::vector<std::wstring>{L"frmIntroWizard"}) << n;
        EXPECT_TRUE(bench.outlook().itemsIn(L"Inbox").empty()) << n;
        EXPECT_TRUE(bench.outlook().itemsIn(L"Drafts").empty()) << n;
        EXPECT_EQ(noted(bench), L"NOTCREATED") << n;
    }
}

}  // namespace
