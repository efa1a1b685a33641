#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

#include "tests/accounts/listTexts.h"
#include "tests/scenarios/Bench.h"

/// The preferred accounts at a send.
namespace {

using host::SendState;
using Settings = std::map<std::wstring, std::wstring>;

host::Message mailToBob() {
    host::Message message = plainMail();
    message.to[0].address = L"bob@example.org";
    return message;
}

/// The list as it is stored after all.
Entries stored(Bench& bench) {
    return entriesOf(
        accounts::AccountRows(bench.outlook().view(bench.outlook().itemsIn(corvaneFolder).at(0)).body));
}

struct Case {
    const char* name;
    Entries list;
    std::vector<std::wstring> answers;
    std::wstring account;
    SendState state = SendState::Sent;
    Entries listAfter;
    Settings settings{};
    /// The account that the user has chosen for the mail.
    std::wstring chosen{};
};

const Entries bobAtHome{{L"bob@example.org", L"Home"}};
const Entries bobAtWork{{L"bob@example.org", L"Work"}};
const Entries bobGone{{L"bob@example.org", L"Gone"}};
const Entries bobAnywhere{{L"bob@example.org", L"No Account Selected"}};
const Entries ann{{L"ann@example.org", L"Home"}};
const Settings offered{{L"MsgAddAddress", L"0"}};

Entries both(const Entries& first, const Entries& second) {
    return {first[0], second[0]};
}

/// Work is the default account.
Given given(const Entries& list, std::vector<std::wstring> answers = {}, Settings settings = {}) {
    Given result{.profile = profileWith(listText(list), corvaneFolder),
                 .settings = std::move(settings),
                 .answers = std::move(answers)};
    result.profile.accounts.push_back({.name = L" Abroad ", .address = L"me@example.com"});
    return result;
}

class AccountStep : public testing::TestWithParam<Case> {};

TEST_P(AccountStep, SendsWithTheRightAccount) {
    const Case& test = GetParam();
    Bench bench(given(test.list, test.answers, test.settings));
    host::Message message = mailToBob();
    message.account = test.chosen;

    const host::SendOutcome outcome = bench.send(message);
    EXPECT_EQ(bench.prompts().size(), test.answers.size());
    EXPECT_EQ(outcome.mail.account, test.account);
    EXPECT_EQ(outcome.state, test.state);
    EXPECT_EQ(stored(bench), test.listAfter);
}

constexpr SendState sent = SendState::Sent;
constexpr SendState held = SendState::Cancelled;

INSTANTIATE_TEST_SUITE_P(
    Listed, AccountStep,
    testing::Values(
        Case{"SameAccount",
             {{L"BOB@Example.org ", L" work "}},
             {},
             L"Work",
             sent,
             {{L"BOB@Example.org ", L" work "}}},
        Case{"SameAsChosen", bobAtHome, {}, L"Home", sent, bobAtHome, {}, L"Home"},
        Case{"NoPreference", bobAnywhere, {}, L"Work", sent, bobAnywhere},
        Case{"EndOfAListedAddress",
             {{L"jimbob@example.org", L"Home"}},
             {},
             L"Work",
             sent,
             {{L"jimbob@example.org", L"Home"}}},
        Case{"WithoutAsking", bobAtHome, {}, L"Home", sent, bobAtHome, {{L"DoNotShowSelect", L"1"}}},
        Case{"Preferred", bobAtHome, {L"frmSelectSendAcct=cmdOK"}, L"Home", sent, bobAtHome},
        Case{"OverTheChosen", bobAtWork, {L"frmSelectSendAcct=cmdOK"}, L"Work", sent, bobAtWork, {}, L"Home"},
        Case{"Another", bobAtHome, {L"frmSelectSendAcct=cmbAccts=Work; cmdOK"}, L"Work", sent, bobAtHome},
        Case{"AnotherForGood",
             bobAtHome,
             {L"frmSelectSendAcct=optSelected=1; chkSetDefault=1; cmdOK"},
             L"Work",
             sent,
             bobAtWork},
        Case{"GoesBack", bobAtHome, {L"frmSelectSendAcct=optCancel=1; cmdOK"}, L"Work", held, bobAtHome},
        Case{"GoesBackWithAnotherForGood",
             bobAtHome,
             {L"frmSelectSendAcct=cmbAccts=Work; chkSetDefault=1; optCancel=1; cmdOK"},
             L"Work",
             held,
             bobAtWork},
        Case{"ClosesTheBox", bobAtHome, {L"frmSelectSendAcct={Escape}"}, L"Work", held, bobAtHome},
        Case{"GoneReplaced",
             bobGone,
             {L"frmEmailAddressEdit=cmbAccounts=Home; cmdOK"},
             L"Home",
             sent,
             bobAtHome},
        Case{"GoneDropped",
             bobGone,
             {L"frmEmailAddressEdit=cmbAccounts=No Account Selected; cmdOK"},
             L"Work",
             sent,
             bobAnywhere},
        Case{"GoneCancelled", bobGone, {L"frmEmailAddressEdit=cmdCancel"}, L"Work", held, bobGone},
        Case{"SpacesAroundTheProfilesName",
             {{L"bob@example.org", L"Abroad"}},
             {L"frmSelectSendAcct=cmdOK"},
             L" Abroad ",
             sent,
             {{L"bob@example.org", L"Abroad"}}},
        Case{"ListedInEitherCase",
             {{L"Bob@example.org", L"Gone"}, {L"bob@example.org", L"Gone too"}},
             {L"frmEmailAddressEdit=cmbAccounts=Home; cmdOK"},
             L"Home",
             sent,
             {{L"Bob@example.org", L"Home"}, {L"bob@example.org", L"Gone too"}}},
        Case{"NotConfirmed",
             bobAtHome,
             {L"Confirm Email Send - Veltro=No"},
             L"Work",
             held,
             bobAtHome,
             {{L"DisplayConfirmation", L"1"}}}),
    [](const auto& test) { return test.param.name; });

INSTANTIATE_TEST_SUITE_P(
    Unknown, AccountStep,
    testing::Values(
        Case{"NeverOffered", ann, {}, L"Work", sent, ann},
        Case{"NotNow", ann, {L"frmAddEmailToList=Command1"}, L"Work", sent, ann, offered},
        Case{"Never", ann, {L"frmAddEmailToList=cmdNo"}, L"Work", sent, both(ann, bobAnywhere), offered},
        Case{"Added",
             ann,
             {L"frmAddEmailToList=cmdYes", L"frmEmailAddressEdit=cmdOK"},
             L"Work",
             sent,
             both(ann, bobAtWork),
             offered},
        Case{"AddedWithAnotherAccount",
             ann,
             {L"frmAddEmailToList=cmdYes", L"frmEmailAddressEdit=cmbAccounts=Home; cmdOK"},
             L"Home",
             sent,
             both(ann, bobAtHome),
             offered},
        Case{"AddedWithoutAccount",
             ann,
             {L"frmAddEmailToList=cmdYes", L"frmEmailAddressEdit=cmbAccounts=No Account Selected; cmdOK"},
             L"Work",
             sent,
             both(ann, bobAnywhere),
             offered},
        Case{"ThoughtBetter",
             ann,
             {L"frmAddEmailToList=cmdYes", L"frmEmailAddressEdit=cmdCancel"},
             L"Work",
             sent,
             ann,
             offered}),
    [](const auto& test) { return test.param.name; });

TEST(AccountStepSkips, WhatItDoesNotConcern) {
    const struct {
        const char* name;
        std::function<void(host::Profile&, host::Message&)> change;
    } cases[] = {{"version 10", [](auto& profile, auto&) { profile.version = L"10.0.0.2627"; }},
                 {"version 9", [](auto& profile, auto&) { profile.version = L"9.0.0.2711"; }},
                 {"one account", [](auto& profile, auto&) { profile.accounts.resize(1); }},
                 {"distribution list",
                  [](auto&, auto& message) {
                      message.to[0].type = L"EX";
                      message.to[0].distributionList = true;
                  }},
                 {"personal list", [](auto&, auto& message) { message.to[0].type = L"MAPIPDL"; }},
                 {"task", [](auto&, auto& message) { message.itemClass = host::itemClass::task; }}};
    for (const auto& [name, change] : cases) {
        SCOPED_TRACE(name);
        Given setup = given(bobAtHome, {}, offered);
        host::Message message = mailToBob();
        change(setup.profile, message);
        Bench bench(setup);
        const host::SendOutcome outcome = bench.send(message);
        EXPECT_EQ(outcome.mail.account, L"Work");
        EXPECT_EQ(outcome.state, sent);
        EXPECT_TRUE(bench.prompts().empty());
    }
}

TEST(AccountPrompts, SayWhichAccountIsGone) {
    Bench bench(given({{L"bob@example.org", L"R&amp;D"}}, {L"frmEmailAddressEdit=cmdCancel"}));
    bench.send(mailToBob());
    const auto& editor = bench.prompts().at(0);
    EXPECT_EQ(editor.text, L"Select Preferred Account");
    EXPECT_EQ(
        editor.control(L"lblMsg").caption,
        L"Veltro has detected that the preffered account \r\n(R&D) for bob@example.org is not available.\r\n\r\n"
        L"This may be due to the account being renamed or deleted.\r\n\r\nPlease select another preferred "
        L"account for this e-mail address.\r\n\r\nIf you click Cancel, then the currently selected account "
        L"will be used.");
    EXPECT_EQ(editor.control(L"cmbAccounts").value, L"Work");
    EXPECT_EQ(editor.control(L"cmbAccounts").caption, L"No Account Selected\nWork\nHome\n Abroad ");
}

TEST(AccountPrompts, OfferAnAddressOnce) {
    Bench bench(given(ann, {L"frmAddEmailToList=chkDontShowMessAgain=1; Command1", L"Veltro=Yes"}, offered));
    bench.send(mailToBob());
    const auto& offer = bench.prompts().at(0);
    EXPECT_EQ(offer.text, L"Add To List");
    EXPECT_EQ(
        offer.control(L"lblMessage").caption,
        L"Do you want to add bob@example.org to Veltro list?\r\n\r\nIf you click Yes, the next screen "
        L"will let you choose the e-mail\r\naccount that you use to send e-mails to bob@example.org.\r\n\r\n"
        L"This will ensure that you always use the correct account to send\r\ne-mails to "
        L"bob@example.org.\r\n\r\nIf you click Never, then you will not get this reminder for \r\n"
        L"bob@example.org again.");
    EXPECT_EQ(bench.world().setting(L"MsgAddAddress"), L"1");
    EXPECT_EQ(bench.send(mailToBob()).state, sent) << "nothing more is asked";
}

TEST(AccountPrompts, NameTheAccountsToChooseFrom) {
    Bench bench(given(bobAtHome, {L"frmSelectSendAcct=chkDoNotShow=1; cmdOK"}));
    bench.send(mailToBob());
    const auto& select = bench.prompts().at(0);
    EXPECT_EQ(select.text, L"Veltro");
    EXPECT_EQ(select.control(L"lblPrefAcct").caption, L"(Home)");
    EXPECT_EQ(select.control(L"cmbAccts").caption, L"Work\n Abroad ");
    EXPECT_EQ(bench.world().setting(L"DoNotShowSelect"), L"1");
    EXPECT_EQ(bench.send(mailToBob()).mail.account, L"Home") << "without asking";
}

TEST(AccountPrompts, TickThatIsTakenBackIsNotKept) {
    Bench bench(given(ann, {L"frmAddEmailToList=chkDontShowMessAgain=1; Command1", L"Veltro=No"}, offered));
    bench.send(mailToBob());
    EXPECT_EQ(bench.world().setting(L"MsgAddAddress"), L"0");
}

/// What was answered at one send is not taken for an answer at the next.
TEST(AccountPrompts, AreAnsweredForOneSendOnly) {
    Bench bench(
        given(bobAtHome, {L"frmSelectSendAcct=optCancel=1; cmdOK", L"frmAddEmailToList=Command1"}, offered));
    EXPECT_EQ(bench.send(mailToBob()).state, held);
    host::Message other = mailToBob();
    other.to[0].address = L"cy@example.com";
    EXPECT_EQ(bench.send(other).state, sent);
}

TEST(AccountList, MovesWithTheSettingsFolderAndIsUsedThere) {
    Bench bench({.profile = profileWith(listText(bobAtHome)),
                 .settings = {{L"DoNotShowSelect", L"1"}},
                 .answers = {L"Move Veltro Settings - Veltro=OK"}});
    EXPECT_EQ(bench.send(mailToBob()).mail.account, L"Home");
    EXPECT_EQ(stored(bench), bobAtHome);
    EXPECT_FALSE(bench.outlook().folderExists(L"Tarnwell Settings"));
}

TEST(AccountList, IsMadeWithItsFolderAtTheFirstSend) {
    Given setup{.answers = {L"Veltro=OK"}};
    setup.profile.folders = {};
    Bench bench(setup);
    EXPECT_EQ(bench.send(plainMail()).state, sent);
    EXPECT_EQ(bench.send(plainMail()).state, sent);
    ASSERT_EQ(bench.prompts().size(), 1U);
    EXPECT_EQ(bench.prompts()[0].text,
              L"Veltro has created the following folder in Outlook for you:\r\n\\\\Personal Folders\\Corvane "
              L"Settings\\Veltro\r\n\r\nThis folder is used to save your Veltro Settings.\r\nPlease do not "
              L"delete or change the folder or the e-mails in it.");
    EXPECT_EQ(stored(bench), Entries{});
}

TEST(AccountList, ThatHasNoFolderLeavesTheMailAlone) {
    Given setup{.settings = {{L"DisplayConfirmation", L"1"}}, .answers = {L"Veltro=OK", L"Veltro=OK"}};
    setup.profile.folders = {};
    setup.profile.stores[0].readOnly = true;
    Bench bench(setup);
    bench.send(plainMail());
    // Whoever must save a mail to read it cannot do this either.
    const bool saves = usualProvider == Provider::Redemption;
    ASSERT_EQ(bench.prompts().size(), saves ? 2U : 1U) << "nothing is asked once the folder is refused";
    EXPECT_EQ(bench.prompts().front().text.starts_with(L"vtAttachMissingCheck - Error: "), saves);
    EXPECT_EQ(bench.prompts().back().text, L"Unable to create the folder.");
}

TEST(AccountList, ThatIsCorruptedIsLeftAloneAndTheMailGoes) {
    const std::wstring body = listText(bobAtHome).substr(0, 900);
    Given setup{.profile = profileWith(body, corvaneFolder), .settings = offered};
    setup.answers = {L"Veltro=OK", L"Veltro=OK"};
    Bench bench(setup);
    EXPECT_EQ(bench.send(mailToBob()).state, sent);
    EXPECT_EQ(bench.outlook().view(bench.outlook().itemsIn(corvaneFolder).at(0)).body, body);
    EXPECT_TRUE(bench.prompts().at(1).text.starts_with(L"The list of your Email Addresses appears"));
    EXPECT_EQ(bench.prompts()[1].style.icon, platform::Icon::Information);
}

/// A session of Outlook in which Bob's mail is switched to his account, while the n-th call fails.
TEST(AccountList, SurvivesEveryFailureAndNoMailIsHeldSilently) {
    std::size_t calls = 1;
    for (std::size_t n = 0; n <= calls; ++n) {
        Given setup =
            given(bobAtHome, std::vector<std::wstring>(20, L"Veltro=OK"), {{L"DoNotShowSelect", L"1"}});
        setup.connected = false;
        Bench bench(setup);
        bench.outlook().failCall(n);
        bench.connect();
        const host::SendOutcome outcome = bench.send(mailToBob());
        bench.disconnect();
        bench.outlook().failCall(0);
        if (n == 0) {
            calls = bench.outlook().calls();
            EXPECT_EQ(outcome.mail.account, L"Home");
        }
        EXPECT_EQ(stored(bench), bobAtHome) << "call " << n << " of " << calls;
        EXPECT_TRUE(outcome.mail.account == L"Home" || outcome.mail.account == L"Work");
        const bool told = std::ranges::any_of(bench.prompts(), [](const auto& prompt) {
            return prompt.style.icon == platform::Icon::Critical &&
                   prompt.text.starts_with(L"Error Number : ");
        });
        EXPECT_EQ(outcome.state == held, told) << "call " << n << " of " << calls;
    }
}

}  // namespace
