#include "accounts/basSendAcct.h"

#include <gtest/gtest.h>

#include "mail/SafeItems.h"
#include "tests/accounts/AccountsWorld.h"

namespace {

TEST(Accounts, AreThoseOfTheProfileInItsOrder) {
    host::Profile profile = profileWith(emptyList);
    profile.accounts.push_back({.name = L"Directory", .type = host::AccountType::Ldap});
    AccountsWorld world(profile);
    EXPECT_EQ(world.list.LoadAccounts(), L"No Account Selected;Work;Home;");
    EXPECT_EQ(world.list.GetAccountInUse(), L"Work");
    EXPECT_TRUE(world.list.PrefAcctExists(L" hOME "));
    EXPECT_FALSE(world.list.PrefAcctExists(L"Hom"));
    EXPECT_FALSE(world.list.PrefAcctExists(L""));
}

TEST(Accounts, AreStampedOnTheMail) {
    host::Profile profile = profileWith(emptyList);
    profile.accounts[1].stamp = L"00000002";
    profile.accounts[1].sendStamp = L"00000002\x1me@example.net";
    AccountsWorld world(profile);
    const automation::Object mail = world.outlook.store(L"Drafts", {.subject = L"Budget"});
    const outlook::Item item(mail);
    EXPECT_EQ(world.list.GetSelectedMailAccount(item), L"");
    EXPECT_FALSE(world.list.SendUsingPrefAccount(item, L"Gone"));
    EXPECT_EQ(world.outlook.view(mail).account, L"Work");

    EXPECT_TRUE(world.list.SendUsingPrefAccount(item, L" home "));
    EXPECT_EQ(world.list.GetSelectedMailAccount(item), L"Home");
    const redemption::SafeItem safe(world.platform.automation, item);
    EXPECT_EQ(safe.field(redemption::tag::primarySendAccount).toText(), profile.accounts[1].sendStamp);
    EXPECT_EQ(safe.field(redemption::tag::nextSendAccount).toText(), profile.accounts[1].sendStamp);
    EXPECT_EQ(safe.field(redemption::tag::itemAccountName).toText(), L"Home");
    EXPECT_EQ(safe.field(redemption::tag::itemAccountStamp).toText(), L"00000002");
}

TEST(ListLookups, FollowTheList) {
    AccountsWorld world(Entries{{L"ann@example.org", L"Work"}, {L"jimbob@example.org", L"Home"}});
    EXPECT_EQ(basSendAcct::PreferredAddresses(world.list), L"ann@example.org;jimbob@example.org;");
    EXPECT_EQ(basSendAcct::PreferredAccount(world.list, L" JimBob@Example.org"), L"Home");
    EXPECT_EQ(basSendAcct::PreferredAccount(world.list, L"bob@example.org"), L"");

    const struct {
        std::wstring address;
        bool listed;
    } cases[] = {{L"ANN@example.org", true}, {L" ann@example.org ", true},
                 {L"bob@example.org", true},  // The end of a listed address.
                 {L"ann@example.or", true},  {L"joann@example.org", false},
                 {L"cy@example.org", false}};
    for (const auto& [address, listed] : cases) {
        host::Message message;
        message.to = {{.name = L"Someone", .address = address}, {.address = L"ann@example.org"}};
        const outlook::Item item(world.outlook.store(L"Drafts", message));
        const auto membership = basSendAcct::ListMembership(world.globals, world.list, item);
        EXPECT_EQ(membership.listed, listed) << text::toUtf8(address);
        EXPECT_EQ(membership.address, text::trim(address));
        EXPECT_EQ(membership.message.empty(), !listed);
    }
}

}  // namespace
