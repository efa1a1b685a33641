#include "accounts/accountStep.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

#include "mail/Provider.h"
#include "mail/redemption.h"
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
    const automation::Object window = world.outlook.openNewMail(message);
    const automation::Object mail = world.outlook.itemOf(window);
    Outcome outcome;
    mail::OutgoingMail outgoing(world.globals, outlook::Item(mail), true, outlook::Inspector(window));
    accounts::accountStep::checkPreferredAccount(world.globals, world.list, outgoing, {}, outcome.cancelled);
    outcome.account = world.outlook.view(mail).account;
    return outcome;
}

const Entries bobAtHome{{L"bob@example.org", L"Home"}};
const Entries bobGone{{L"bob@example.org", L"Gone"}};
const Entries ann{{L"ann@example.org", L"Home"}};

/// Outlook will refuse a mail to nobody itself, and an address that cannot be told cannot be listed.
TEST(AccountStep, LeavesAMailToNobodyKnownAlone) {
    AccountsWorld world(bobAtHome);
    host::Message unresolved = mailTo(L"bob@example.org");
    unresolved.to[0].resolvable = false;
    host::Message nobody = unresolved;
    nobody.to.clear();
    EXPECT_FALSE(sendThrough(world, unresolved).cancelled);
    EXPECT_FALSE(sendThrough(world, nobody).cancelled);
    host::Message unknown = mailTo(L"/o=x/cn=hidden");
    unknown.to[0].type = L"EX";
    EXPECT_FALSE(sendThrough(world, unknown).cancelled);
    EXPECT_TRUE(world.log.forms.empty());
    EXPECT_TRUE(world.log.messages.empty());
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
        mail::OutgoingMail outgoing(world.globals, outlook::Item(mail));
        accounts::accountStep::checkPreferredAccount(world.globals, world.list, outgoing, {}, cancelled);
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
        // All that is decisive of the stamp or none of it.
        const outlook::Item item(mail);
        const mail::SafeItem safe(world.globals, item);
        const bool stamped =
            !safe.object().get(L"Fields", redemption::tag::primarySendAccount).toText().empty();
        EXPECT_EQ(safe.object().get(L"Fields", redemption::tag::nextSendAccount).toText().empty(), !stamped)
            << "call " << call;
        EXPECT_TRUE(stamped || account == L"Work") << "call " << call;
    }
    EXPECT_GT(reported, 3U);
    EXPECT_LT(reported, call);
    EXPECT_GT(call, 40U);
}

/// Where Word is the editor the template asks, and answers through the list, or by its result where that is
/// out of reach.
TEST(AccountStepInWord, RunsTheMacros) {
    const automation::Value held = true;
    const automation::Value nothing;
    using Answers = accounts::wordSide::Answers;
    const std::vector<std::wstring> whichOne{L"Work", L"Home", L"bob@example.org"};
    const auto ignored = accounts::wordSide::DialogMode::AnswerIgnored;
    const struct {
        Entries list;
        std::wstring macro;
        std::vector<std::wstring> arguments;
        Answers answer;
        automation::Value result;
        Outcome outcome;
    } cases[] = {
        {bobAtHome, L"vtSelPostroute", whichOne, {L"CHANGE", L"Home"}, nothing, {false, L"Home"}},
        {bobAtHome, L"vtSelPostroute", whichOne, {L"CANCEL"}, nothing, {true, L"Work"}},
        {bobAtHome, L"vtSelPostroute", whichOne, {L"CANCEL", L"", ignored}, nothing, {false, L"Work"}},
        {bobAtHome, L"vtSelPostroute", whichOne, {}, held, {true, L"Work"}},
        {ann, L"vtAddEmail", {L"bob@example.org", L"Work"}, {}, nothing, {false, L"Work"}},
        {bobGone,
         L"vtPrefAcctExistsFalse",
         {L"4", L"Work", L"bob@example.org"},
         {L"CANCEL"},
         nothing,
         {true, L"Work"}},
    };
    for (const auto& given : cases) {
        host::Profile profile = profileWith(listText(given.list));
        profile.version = L"11.0.0.8161";
        profile.editor = host::Editor::Word;
        AccountsWorld world(profile);
        const Answers before{L"CHANGE", L"Work"};
        world.list.answeredInWord = before;  // Of a question inside of which this one comes.
        std::wstring ran;
        std::vector<std::wstring> arguments;
        world.outlook.onWordMacro([&](const std::wstring& name, std::span<const automation::Value> values) {
            ran = name;
            for (const automation::Value& value : values) {
                arguments.push_back(value.toText());
            }
            EXPECT_EQ(world.globals.promptsOpen, 1U);
            EXPECT_TRUE(world.list.answeredInWord.strChangeAcct.empty());
            world.list.answeredInWord = given.answer;
            return given.result;
        });
        const Outcome outcome = sendThrough(world, mailTo(L"bob@example.org"));
        EXPECT_EQ(ran, given.macro);
        arguments.resize(given.arguments.size());
        EXPECT_EQ(arguments, given.arguments);
        EXPECT_EQ(outcome.account, given.outcome.account);
        EXPECT_EQ(outcome.cancelled, given.outcome.cancelled);
        EXPECT_EQ(world.list.answeredInWord.strAccount, before.strAccount);
        EXPECT_TRUE(world.log.forms.empty());
    }
}

}  // namespace
