#include "accounts/basSendAcct.h"

#include <gtest/gtest.h>

#include <functional>

#include "mail/Provider.h"
#include "mail/redemption.h"
#include "tests/accounts/AccountsWorld.h"

namespace {

TEST(Accounts, AreThoseOfTheProfileInItsOrder) {
    host::Profile profile = profileWith(accounts::emptyList);
    profile.accounts.push_back({.name = L"Directory", .type = host::AccountType::Ldap});
    AccountsWorld world(profile);
    EXPECT_EQ(world.list.LoadAccounts(),
              (std::vector<std::wstring>{L"No Account Selected", L"Work", L"Home"}));
    mail::OutgoingMail mail(world.globals, {});
    EXPECT_EQ(world.list.GetAccountInUse(mail), L"Work");
    EXPECT_TRUE(world.list.PrefAcctExists(mail, L" hOME "));
    EXPECT_FALSE(world.list.PrefAcctExists(mail, L"Hom"));
    EXPECT_FALSE(world.list.PrefAcctExists(mail, L""));
}

TEST(Accounts, AreStampedOnTheMail) {
    host::Profile profile = profileWith(accounts::emptyList);
    profile.accounts[1].stamp = L"00000002";
    profile.accounts[1].sendStamp = L"00000002\x1me@example.net";
    AccountsWorld world(profile);
    const automation::Object mail = world.outlook.store(L"Drafts", {.subject = L"Budget"});
    const outlook::Item item(mail);
    mail::OutgoingMail outgoing(world.globals, item);
    EXPECT_EQ(world.list.GetSelectedMailAccount(outgoing), L"");
    EXPECT_FALSE(world.list.SendUsingPrefAccount(outgoing, L"Gone"));
    EXPECT_EQ(world.outlook.view(mail).account, L"Work");

    EXPECT_TRUE(world.list.SendUsingPrefAccount(outgoing, L" home "));
    EXPECT_EQ(world.list.GetSelectedMailAccount(outgoing), L"Home");
    const mail::SafeItem safe(world.globals, item);
    EXPECT_EQ(safe.object().get(L"Fields", redemption::tag::primarySendAccount).toText(),
              profile.accounts[1].sendStamp);
    EXPECT_EQ(safe.object().get(L"Fields", redemption::tag::nextSendAccount).toText(),
              profile.accounts[1].sendStamp);
    EXPECT_EQ(safe.object().get(L"Fields", redemption::tag::itemAccountName).toText(), L"Home");
    EXPECT_EQ(safe.object().get(L"Fields", redemption::tag::itemAccountStamp).toText(), L"00000002");
}

constexpr std::int32_t stampTags[]{redemption::tag::primarySendAccount, redemption::tag::nextSendAccount,
                                   redemption::tag::itemAccountName, redemption::tag::itemAccountStamp};

/// A mail that is switched to an account, while the n-th access to a property of its stamp fails.
struct Stamping {
    bool stamped = false;
    std::vector<std::wstring> fields;
    std::size_t accesses = 0;

    Stamping(const std::wstring& before, std::size_t failing) {
        AccountsWorld world(profileWith(accounts::emptyList));
        mail::OutgoingMail mail(world.globals,
                                outlook::Item(world.outlook.store(L"Drafts", {.subject = L"Budget"})));
        const mail::SafeItem safe = mail.safe();
        for (const std::int32_t tag : stampTags) {
            safe.object().put(L"Fields", tag, before);
        }
        mail.accounts();
        const auto meter = world.outlook.meter();
        const std::function<void()> next = [&] {
            if (meter->log().back() == L"SafeMailItem.Fields" && ++accesses == failing) {
                meter->failCall(0);
                throw automation::Error(automation::errors::failed, L"refused");
            }
            meter->duringCall(1, next);
        };
        meter->record(true);
        meter->duringCall(1, next);
        stamped = world.list.SendUsingPrefAccount(mail, L"Home");
        meter->duringCall(0, nullptr);
        for (const std::int32_t tag : stampTags) {
            fields.push_back(safe.object().get(L"Fields", tag).toText());
        }
    }
};

/// Outlook goes by the first two; a store may refuse the others.
TEST(Accounts, AreStampedWhereTheDecisiveHalfOfTheStampIsTaken) {
    for (const wchar_t* before : {L"", L"before"}) {
        const Stamping whole(before, 0);
        ASSERT_TRUE(whole.stamped);
        constexpr std::size_t decisiveAccesses = 4;
        for (std::size_t failing = 1; failing <= whole.accesses; ++failing) {
            const Stamping stamping(before, failing);
            const bool welcome = failing > decisiveAccesses;
            EXPECT_EQ(stamping.stamped, welcome) << failing;
            for (std::size_t index = 0; index < std::size(stampTags); ++index) {
                const bool written = welcome && (index < 2 || stamping.fields[index] != before);
                EXPECT_EQ(stamping.fields[index], written ? whole.fields[index] : before) << failing << index;
            }
        }
        EXPECT_GE(whole.accesses, 6U);
    }
}

TEST(ListLookups, FollowTheList) {
    AccountsWorld world(Entries{{L"ann@example.org", L"Work"}, {L"jimbob@example.org", L"Home"}});
    EXPECT_EQ(accounts::basSendAcct::PreferredAddresses(world.list), L"ann@example.org;jimbob@example.org;");
    EXPECT_EQ(accounts::basSendAcct::PreferredAccount(world.list, L" JimBob@Example.org"), L"Home");
    EXPECT_EQ(accounts::basSendAcct::PreferredAccount(world.list, L"bob@example.org"), L"");

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
        mail::OutgoingMail mail(world.globals, outlook::Item(world.outlook.store(L"Drafts", message)));
        const auto membership = accounts::basSendAcct::ListMembership(world.list, mail);
        EXPECT_EQ(membership.listed, listed) << text::toUtf8(address);
        EXPECT_EQ(membership.address, text::trim(address));
        EXPECT_EQ(membership.message.empty(), !listed);
    }
}

}  // namespace
