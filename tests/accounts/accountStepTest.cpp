#include "accounts/accountStep.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

#include "mail/SafeItems.h"
#include "tests/accounts/AccountsWorld.h"

namespace {

host::Message mailTo(const std::wstring& address) {
    host::Message message;
    message.to = {{.name = L"Bob", .address = address}};
    message.subject = L"Budget";
    return message;
}

/// Opens the mail and takes the step, as the send event does.
struct Outcome {
    bool cancelled = false;
    std::wstring account;
};

Outcome sendThrough(AccountsWorld& world, const host::Message& message) {
    const automation::Object mail = world.outlook.itemOf(world.outlook.openNewMail(message));
    Outcome outcome;
    accountStep::checkPreferredAccount(world.globals, world.list, outlook::Item(mail), outcome.cancelled);
    outcome.account = world.outlook.view(mail).account;
    return outcome;
}

struct Case {
    const char* name;
    Entries list;
    std::vector<std::wstring> answers;
    std::wstring account;
    bool cancelled = false;
    Entries listAfter;
    std::vector<std::pair<std::wstring, std::wstring>> settings{};
    /// The account that the user has chosen for the mail.
    std::wstring chosen{};
};

const Entries bobAtHome{{L"bob@example.org", L"Home"}};
const Entries bobAtWork{{L"bob@example.org", L"Work"}};
const Entries bobGone{{L"bob@example.org", L"Gone"}};
const Entries bobAnywhere{{L"bob@example.org", L"No Account Selected"}};
const Entries ann{{L"ann@example.org", L"Home"}};

Entries both(const Entries& first, const Entries& second) {
    return {first[0], second[0]};
}

class AccountStep : public testing::TestWithParam<Case> {};

TEST_P(AccountStep, LeavesTheMailWithTheRightAccount) {
    const Case& given = GetParam();
    AccountsWorld world(given.list, given.answers);
    for (const auto& [key, value] : given.settings) {
        world.settings.write(key, value);
    }
    host::Message message = mailTo(L"bob@example.org");
    message.account = given.chosen;

    const Outcome outcome = sendThrough(world, message);
    EXPECT_FALSE(world.desktop.unanswered());
    EXPECT_EQ(world.log.messages.size() + world.log.forms.size(), given.answers.size());
    EXPECT_EQ(outcome.account, given.account);
    EXPECT_EQ(outcome.cancelled, given.cancelled);
    EXPECT_EQ(world.stored(), given.listAfter);
}

INSTANTIATE_TEST_SUITE_P(
    Listed, AccountStep,
    testing::Values(
        Case{"SameAccount",
             {{L"BOB@Example.org ", L" work "}},
             {},
             L"Work",
             false,
             {{L"BOB@Example.org ", L" work "}}},
        Case{"SameAsChosen", bobAtHome, {}, L"Home", false, bobAtHome, {}, L"Home"},
        Case{"NoPreference", bobAnywhere, {}, L"Work", false, bobAnywhere},
        Case{"EndOfAListedAddress",
             {{L"jimbob@example.org", L"Home"}},
             {},
             L"Work",
             false,
             {{L"jimbob@example.org", L"Home"}}},
        Case{"WithoutAsking", bobAtHome, {}, L"Home", false, bobAtHome, {{L"DoNotShowSelect", L"1"}}},
        Case{"Preferred", bobAtHome, {L"frmSelectSendAcct=cmdOK"}, L"Home", false, bobAtHome},
        Case{
            "OverTheChosen", bobAtWork, {L"frmSelectSendAcct=cmdOK"}, L"Work", false, bobAtWork, {}, L"Home"},
        Case{"Another", bobAtHome, {L"frmSelectSendAcct=cmbAccts=Work; cmdOK"}, L"Work", false, bobAtHome},
        Case{"AnotherForGood",
             bobAtHome,
             {L"frmSelectSendAcct=optSelected=1; chkSetDefault=1; cmdOK"},
             L"Work",
             false,
             bobAtWork},
        Case{"GoesBack", bobAtHome, {L"frmSelectSendAcct=optCancel=1; cmdOK"}, L"Work", true, bobAtHome},
        Case{"ClosesTheBox", bobAtHome, {L"frmSelectSendAcct={Escape}"}, L"Work", true, bobAtHome},
        Case{"GoneReplaced",
             bobGone,
             {L"frmEmailAddressEdit=cmbAccounts=Home; cmdOK"},
             L"Home",
             false,
             bobAtHome},
        Case{"GoneDropped",
             bobGone,
             {L"frmEmailAddressEdit=cmbAccounts=No Account Selected; cmdOK"},
             L"Work",
             false,
             bobAnywhere},
        Case{"GoneCancelled", bobGone, {L"frmEmailAddressEdit=cmdCancel"}, L"Work", true, bobGone}),
    [](const auto& test) { return test.param.name; });

INSTANTIATE_TEST_SUITE_P(
    Unknown, AccountStep,
    testing::Values(Case{"NeverOffered", ann, {}, L"Work", false, ann, {{L"MsgAddAddress", L"1"}}},
                    Case{"NotNow", ann, {L"frmAddEmailToList=Command1"}, L"Work", false, ann},
                    Case{"Never", ann, {L"frmAddEmailToList=cmdNo"}, L"Work", false, both(ann, bobAnywhere)},
                    Case{"Added",
                         ann,
                         {L"frmAddEmailToList=cmdYes", L"frmEmailAddressEdit=cmdOK"},
                         L"Work",
                         false,
                         both(ann, bobAtWork)},
                    Case{"AddedWithAnotherAccount",
                         ann,
                         {L"frmAddEmailToList=cmdYes", L"frmEmailAddressEdit=cmbAccounts=Home; cmdOK"},
                         L"Home",
                         false,
                         both(ann, bobAtHome)},
                    Case{"AddedWithoutAccount",
                         ann,
                         {L"frmAddEmailToList=cmdYes",
                          L"frmEmailAddressEdit=cmbAccounts=No Account Selected; cmdOK"},
                         L"Work",
                         false,
                         both(ann, bobAnywhere)},
                    Case{"ThoughtBetter",
                         ann,
                         {L"frmAddEmailToList=cmdYes", L"frmEmailAddressEdit=cmdCancel"},
                         L"Work",
                         false,
                         ann}),
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
                 {"nobody", [](auto&, auto& message) { message.to.clear(); }}};
    for (const auto& [name, change] : cases) {
        SCOPED_TRACE(name);
        host::Profile profile = profileWith(listText(bobAtHome));
        host::Message message = mailTo(L"bob@example.org");
        change(profile, message);
        AccountsWorld world(profile);
        const Outcome outcome = sendThrough(world, message);
        EXPECT_EQ(outcome.account, L"Work");
        EXPECT_FALSE(outcome.cancelled);
        EXPECT_TRUE(world.log.forms.empty());
        EXPECT_TRUE(world.log.messages.empty());
    }
}

TEST(AccountStepPrompts, SayWhatTheyAreAbout) {
    AccountsWorld gone(Entries{{L"bob@example.org", L"R&amp;D"}}, {L"frmEmailAddressEdit=cmdCancel"});
    sendThrough(gone, mailTo(L"bob@example.org"));
    ASSERT_EQ(gone.log.forms.size(), 1U);
    const auto control = [](const platform::FormPrompt& form, std::wstring_view name) {
        return *std::ranges::find(form.controls, name, &platform::ControlState::name);
    };
    EXPECT_EQ(gone.log.forms[0].caption, L"Select Preferred Account");
    EXPECT_EQ(
        control(gone.log.forms[0], L"lblMsg").caption,
        L"Veltro has detected that the preffered account \r\n(R&&D) for bob@example.org is not "
        L"available.\r\n\r\nThis may be due to the account being renamed or deleted.\r\n\r\nPlease select "
        L"another preferred account for this e-mail address.\r\n\r\nIf you click Cancel, then the "
        L"currently selected account will be used.");
    EXPECT_EQ(control(gone.log.forms[0], L"cmbAccounts").value, L"Work");
    EXPECT_EQ(control(gone.log.forms[0], L"cmbAccounts").caption, L"No Account Selected\nWork\nHome");

    AccountsWorld unknown(ann, {L"frmAddEmailToList=chkDontShowMessAgain=1; Command1", L"Veltro=Yes"});
    sendThrough(unknown, mailTo(L"bob@example.org"));
    EXPECT_EQ(unknown.log.forms[0].caption, L"Add To List");
    EXPECT_EQ(control(unknown.log.forms[0], L"lblMessage").caption,
              L"Do you want to add bob@example.org to Veltro list?\r\n\r\nIf you click Yes, the next screen "
              L"will let you choose the e-mail\r\naccount that you use to send e-mails to "
              L"bob@example.org.\r\n\r\nThis will ensure that you always use the correct account to "
              L"send\r\ne-mails to bob@example.org.\r\n\r\nIf you click Never, then you will not get this "
              L"reminder for \r\nbob@example.org again.");
    EXPECT_EQ(unknown.settings.read(L"MsgAddAddress"), L"1");

    AccountsWorld differs(bobAtHome, {L"frmSelectSendAcct=chkDoNotShow=1; cmdOK"});
    sendThrough(differs, mailTo(L"bob@example.org"));
    EXPECT_EQ(differs.log.forms[0].caption, L"Veltro");
    EXPECT_EQ(control(differs.log.forms[0], L"lblPrefAcct").caption, L"(Home)");
    EXPECT_EQ(control(differs.log.forms[0], L"cmbAccts").caption, L"Work");
    EXPECT_EQ(differs.settings.read(L"DoNotShowSelect"), L"1");
}

TEST(AccountStepPrompts, TickThatIsTakenBackIsNotKept) {
    AccountsWorld world(ann, {L"frmAddEmailToList=chkDontShowMessAgain=1; Command1", L"Veltro=No"});
    sendThrough(world, mailTo(L"bob@example.org"));
    EXPECT_EQ(world.settings.read(L"MsgAddAddress"), std::nullopt);
}

/// What was answered at one send is not taken for an answer at the next.
TEST(AccountStepPrompts, AreAnsweredForOneSendOnly) {
    AccountsWorld world(bobAtHome, {L"frmSelectSendAcct=optCancel=1; cmdOK", L"frmAddEmailToList=Command1"});
    EXPECT_TRUE(sendThrough(world, mailTo(L"bob@example.org")).cancelled);
    EXPECT_FALSE(sendThrough(world, mailTo(L"cy@example.com")).cancelled);
}

TEST(AccountStepFailures, CancelTheSendOrLeaveTheMailAlone) {
    bool failed = true;
    std::size_t reported = 0;
    std::size_t call = 1;
    for (; failed; ++call) {
        AccountsWorld world(bobAtHome);
        world.settings.write(L"DoNotShowSelect", L"1");
        const automation::Object mail =
            world.outlook.itemOf(world.outlook.openNewMail(mailTo(L"bob@example.org")));
        const std::size_t before = world.outlook.calls();
        world.outlook.failCall(call);
        bool cancelled = false;
        accountStep::checkPreferredAccount(world.globals, world.list, outlook::Item(mail), cancelled);
        failed = world.outlook.calls() - before >= call;
        world.outlook.failCall(0);

        const std::wstring account = world.outlook.view(mail).account;
        EXPECT_TRUE(account == L"Work" || account == L"Home") << "call " << call;
        if (cancelled) {
            ++reported;
            EXPECT_EQ(world.log.messages.back().style.icon, platform::Icon::Critical);
            EXPECT_TRUE(world.log.messages.back().text.starts_with(
                L"Error Number : -2147467259\r\nError Description : "));
        }
        // All of the stamp or none of it.
        const outlook::Item item(mail);
        const redemption::SafeItem safe(world.platform.automation, item);
        const bool stamped = !safe.field(redemption::tag::primarySendAccount).toText().empty();
        for (const std::int32_t tag : {redemption::tag::nextSendAccount, redemption::tag::itemAccountName,
                                       redemption::tag::itemAccountStamp}) {
            EXPECT_EQ(safe.field(tag).toText().empty(), !stamped) << "call " << call;
        }
        EXPECT_EQ(stamped, account == L"Home") << "call " << call;
    }
    EXPECT_GT(reported, 3U);
    EXPECT_LT(reported, call);
    EXPECT_GT(call, 50U);
}

/// In Outlook versions below 12 with Word as the editor the template asks, and answers through the list.
TEST(AccountStepInWord, RunsTheMacros) {
    struct {
        Entries list;
        std::wstring macro;
        std::vector<std::wstring> arguments;
        std::wstring answer;
        Outcome outcome;
    } cases[] = {
        {bobAtHome, L"vtSelPostroute", {L"Work", L"Home", L"bob@example.org"}, L"CHANGE", {false, L"Home"}},
        {bobAtHome, L"vtSelPostroute", {L"Work", L"Home", L"bob@example.org"}, L"CANCEL", {true, L"Work"}},
        {bobAtHome, L"vtSelPostroute", {L"Work", L"Home", L"bob@example.org"}, L"", {false, L"Work"}},
        {ann, L"vtAddEmail", {L"bob@example.org", L"Work"}, L"", {false, L"Work"}},
        {bobGone, L"vtPrefAcctExistsFalse", {L"4", L"Work", L"bob@example.org"}, L"CANCEL", {true, L"Work"}},
    };
    for (auto& given : cases) {
        host::Profile profile = profileWith(listText(given.list));
        profile.version = L"11.0.0.8161";
        profile.editor = host::Editor::Word;
        AccountsWorld world(profile);
        std::wstring ran;
        std::vector<std::wstring> arguments;
        world.outlook.onWordMacro([&](const std::wstring& name, std::span<const automation::Value> values) {
            ran = name;
            for (const automation::Value& value : values) {
                arguments.push_back(value.toText());
            }
            world.list.strChangeAcct = given.answer;
            return automation::Value();
        });
        const Outcome outcome = sendThrough(world, mailTo(L"bob@example.org"));
        EXPECT_EQ(ran, given.macro);
        arguments.resize(given.arguments.size());
        EXPECT_EQ(arguments, given.arguments);
        EXPECT_EQ(outcome.account, given.outcome.account);
        EXPECT_EQ(outcome.cancelled, given.outcome.cancelled);
        EXPECT_TRUE(world.log.forms.empty());
    }
}

TEST(AccountStepInWord, WithoutTheTemplateNothingIsAsked) {
    host::Profile profile = profileWith(listText(bobAtHome));
    profile.version = L"11.0.0.8161";
    profile.editor = host::Editor::Word;
    profile.wordRegistered = false;
    AccountsWorld world(profile);
    world.outlook.onWordMacro(
        [](const std::wstring&, std::span<const automation::Value>) -> automation::Value {
            throw automation::Error(-2146822434, L"Unable to run the specified macro");
        });
    const Outcome outcome = sendThrough(world, mailTo(L"bob@example.org"));
    EXPECT_FALSE(outcome.cancelled);
    EXPECT_EQ(outcome.account, L"Work");
    EXPECT_TRUE(world.log.messages.empty());
}

}  // namespace
