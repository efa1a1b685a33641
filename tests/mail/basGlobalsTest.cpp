#include "mail/Provider.h"
#include "mail/basGlobals.h"

#include <gtest/gtest.h>

#include "mail/basEmailAddressValidity.h"
#include "platform/text.h"
#include "tests/TestWorld.h"

namespace {

using host::Address;
using mail::RecipientEmail;

const Address smtp{.name = L"Ann", .address = L"ann@example.org"};
const Address exchange{.name = L"Bob",
                       .address = L"/o=x/cn=bob",
                       .type = L"ex",
                       .proxies = {L"X400:c=us", L"smtp:old@example.org", L"SMTP:bob@example.org"},
                       .smtpAddress = L"other@example.org"};
const Address secondaryOnly{.name = L"Cy",
                            .address = L"/o=x/cn=cy",
                            .type = L"EX",
                            .proxies = {L"smtp:old@example.org"},
                            .smtpAddress = L"cy@example.org"};
const Address withoutProxies{
    .name = L"Di", .address = L"/o=x/cn=di", .type = L"EX", .smtpAddress = L"di@example.org"};
const Address list{.name = L"Team", .address = L"team", .type = L"MAPIPDL", .members = {smtp}};
const Address fax{.name = L"Fax", .address = L"+1 555", .type = L"FAX"};

TEST(RecipientEmail, GivesTheSmtpAddressOfEveryKind) {
    const struct {
        Address address;
        std::wstring expected;
    } cases[] = {
        {smtp, L"ann@example.org"},
        {exchange, L"bob@example.org"},
        {secondaryOnly, L"cy@example.org"},
        {withoutProxies, L"di@example.org"},
        {list, L"General"},
        {fax, L"+1 555"},
    };
    TestWorld world;
    for (const auto& given : cases) {
        host::Message message;
        message.to = {given.address};
        const mail::SafeItem mail(world.globals, outlook::Item(world.outlook.receive(message)));
        EXPECT_EQ(RecipientEmail(world.globals, mail.recipients().item(1)), given.expected);
    }
}

TEST(RecipientEmail, ResolvesFirstWhereThatIsWanted) {
    const Address exchangeList{.name = L"All",
                               .address = L"/o=x/cn=all",
                               .type = L"EX",
                               .smtpAddress = L"all@example.org",
                               .distributionList = true};
    const struct {
        const char* name;
        const wchar_t* version;
        Address address;
        bool recogniseLists;
        std::wstring expected;
    } cases[] = {
        {"of the address book", L"14.0", {.name = L"Ann"}, false, L"ann@example.org"},
        {"person", L"14.0", exchange, true, L"bob@example.org"},
        {"list", L"14.0", exchangeList, true, L"General"},
        {"list by its address", L"14.0", exchangeList, false, L"all@example.org"},
        {"list before version 12", L"11.0", exchangeList, true, L"all@example.org"},
    };
    for (const auto& given : cases) {
        TestWorld world({}, {.version = given.version, .addressBook = {smtp}});
        host::Message message;
        message.to = {given.address};
        const mail::SafeItem mail(world.globals, outlook::Item(world.outlook.receive(message)));
        EXPECT_EQ(RecipientEmail(world.globals, mail.recipients().item(1),
                                 {.resolveFirst = true, .recogniseLists = given.recogniseLists}),
                  given.expected)
            << given.name;
    }
}

TEST(RecipientEmail, SaysThatARecipientCannotBeResolved) {
    TestWorld world({L"Veltro Invalid E-mail Address=OK"});
    host::Message message;
    message.to = {{.name = L"nobody", .address = L"", .resolvable = false}};
    const mail::SafeItem mail(world.globals, outlook::Item(world.outlook.receive(message)));

    EXPECT_EQ(RecipientEmail(world.globals, mail.recipients().item(1), {.resolveFirst = true}), L"");

    ASSERT_EQ(world.log.messages.size(), 1U);
    EXPECT_EQ(world.log.messages[0].text, L"E-mail address cannot be resolved. Please check e-mail address.");
}

TEST(SenderEmail, TellsTheSenderFromTheOneOnWhoseBehalfItWasSent) {
    const struct {
        const char* name;
        int itemClass;
        Address from;
        std::optional<Address> onBehalfOf;
        std::wstring sender;
        std::wstring shown;
    } cases[] = {
        {"plain", 43, smtp, {}, L"ann@example.org", L"ann@example.org"},
        {"exchange", 43, exchange, {}, L"bob@example.org", L"bob@example.org"},
        {"on behalf", 43, exchange, smtp, L"bob@example.org", L"ann@example.org"},
        {"on own behalf", 43, smtp, Address{.name = L"A", .address = L"ANN@example.org"}, L"ann@example.org",
         L"ann@example.org"},
        {"post", 45, smtp, {}, L"ann@example.org", L"ann@example.org"},
        {"report", 46, exchange, {}, L"bob@example.org", L"bob@example.org"},
    };
    TestWorld world;
    for (const auto& given : cases) {
        host::Message message;
        message.itemClass = given.itemClass;
        message.from = given.from;
        message.onBehalfOf = given.onBehalfOf;
        const outlook::Item item(world.outlook.receive(message));
        EXPECT_EQ(mail::SenderEmailWithoutOnBehalf(world.globals, item), given.sender) << given.name;
        EXPECT_EQ(mail::SenderEmail(world.globals, item), given.shown) << given.name;
    }
}

TEST(GoogleApps, AreKnownByTheirStoreOrUser) {
    const struct {
        const char* name;
        std::wstring version;
        std::wstring store;
        std::wstring userType;
        bool expected;
    } cases[] = {
        {"neither", L"14.0", L"Personal Folders", L"SMTP", false},
        {"store", L"14.0", L"GOOGLE Apps", L"SMTP", true},
        {"user", L"14.0", L"Personal Folders", L"goog", true},
        {"version 9", L"9.0.0.1", L"Google Apps", L"GOOG", false},
    };
    for (const auto& given : cases) {
        host::Profile profile;
        profile.version = given.version;
        profile.stores[0].name = given.store;
        profile.user = Address{.name = L"Me", .address = L"me@example.org", .type = given.userType};
        TestWorld world({}, profile);
        EXPECT_EQ(mail::GoogleAppConnected(world.globals), given.expected) << given.name;
    }
}

TEST(UserProperties, AreAddedFoundAndDeleted) {
    TestWorld world;
    const outlook::Item item(world.outlook.receive({}));
    EXPECT_TRUE(mail::AddUserProperties(world.globals, item, L"mark", L"1;2"));
    EXPECT_EQ(world.outlook.view(item.object()).userProperties.at(L"mark"), L"1;2");
    EXPECT_TRUE(world.outlook.fieldsOf(L"Inbox").empty()) << "a mark is no column for the user";
    EXPECT_TRUE(mail::DeleteUserProperties(world.globals, item, L"mark"));
    EXPECT_TRUE(item.object().get(L"Saved").toBool()) << "the user has changed nothing";
    EXPECT_FALSE(mail::DeleteUserProperties(world.globals, item, L"mark"));
    EXPECT_TRUE(world.outlook.view(item.object()).userProperties.empty());
}

TEST(EmailAddress, IsValidOnlyInItsPlainForm) {
    const std::wstring longName(30, L'a');
    for (const std::wstring& valid : {std::wstring(L"a@b.c"), std::wstring(L"ann.lee@mail.example-site.org"),
                                      std::wstring(L"\u00E4_~@x.\u00FC"),
                                      longName + L"@" + longName + L".org", std::wstring(L"a@b.c.")}) {
        EXPECT_TRUE(basEmailAddressValidity::IsValidEmailAddress(valid)) << text::toUtf8(valid);
    }
    for (const std::wstring& invalid :
         {std::wstring(), std::wstring(L"@b.c"), std::wstring(L"a@b"), std::wstring(L"a@.c"),
          std::wstring(L"a@b."), std::wstring(L"a@b@c.d"), std::wstring(L"a..b@c.d"), std::wstring(L"a@b..c"),
          std::wstring(L"a b@c.d"), std::wstring(L"\"a\"@b.c"), std::wstring(L"a'b@c.d"),
          std::wstring(L"abc"), std::wstring(L"a@b.c "), longName + L"@" + longName + L".org;x"}) {
        EXPECT_FALSE(basEmailAddressValidity::IsValidEmailAddress(invalid)) << text::toUtf8(invalid);
    }
}

}  // namespace
