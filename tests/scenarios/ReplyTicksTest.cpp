#include <gtest/gtest.h>

#include <algorithm>

#include "tests/scenarios/replies.h"

namespace {

using namespace replies;

const host::Address mySelf{.name = L"Home", .address = L"home@example.net"};
const host::Address boss{.name = L"Boss", .address = L"/o=x/cn=boss", .type = L"EX"};
const host::Address otherBoss{.name = L"Boss", .address = L"/o=x/cn=boss2", .type = L"EX"};

host::Message from(const host::Address& sender, host::Message message) {
    message.from = sender;
    return message;
}

host::Message onBehalfOf(const host::Address& principal, host::Message message) {
    message.onBehalfOf = principal;
    return message;
}

host::Message withReplyTo(const host::Address& address, host::Message message) {
    message.replyTo = {address};
    return message;
}

struct Case {
    const char* name;
    host::Message mail;
    /// As the list shows it, and who is ticked.
    std::wstring rows;
    std::wstring ticked;
    Names recipients;
};

class TickedRecipients : public testing::TestWithParam<Case> {};

/// With all settings as they are after the installation.
TEST_P(TickedRecipients, AreThoseOfThePlainReply) {
    const Case& given = GetParam();
    Given setup{.answers = {L"frmReplyMultRecipt=cmdOK"}};
    setup.profile.accounts = {{.name = L"Work", .address = me.address},
                              {.name = L"Home", .address = mySelf.address}};
    Bench bench(setup);

    const auto outcome = bench.outlook().reply(selected(bench, given.mail));

    ASSERT_EQ(bench.promptNames(), (Names{L"frmReplyMultRecipt"}));
    EXPECT_EQ(bench.prompts()[0].control(L"lstRecipients").caption, given.rows);
    EXPECT_EQ(bench.prompts()[0].control(L"lstRecipients").value, given.ticked);
    ASSERT_EQ(outcome.newInspectors.size(), 1U);
    EXPECT_EQ(namesOf(bench, bench.outlook().itemOf(outcome.newInspectors[0])), given.recipients);
}

INSTANTIATE_TEST_SUITE_P(
    Mails, TickedRecipients,
    testing::Values(
        Case{"OfAnother", mailTo({bob, me}), L"Ann (ann@example.com)\nBob (bob@example.com)", L"1", {L"Ann"}},
        Case{"OnesOwn",
             from(me, mailTo({bob, me})),
             L"Me (ME@example.org)\nBob (bob@example.com)",
             L"1",
             {L"Me"}},
        Case{"FromASecondAccount",
             from(mySelf, mailTo({bob, me})),
             L"Home (home@example.net)\nBob (bob@example.com)",
             L"1",
             {L"Home"}},
        Case{"ReplyToOneself",
             withReplyTo(mySelf, mailTo({bob, me})),
             L"Home (home@example.net)\nBob (bob@example.com)",
             L"1",
             {L"Home"}},
        Case{"OnBehalfOfAnExchangeUser",
             onBehalfOf(boss, mailTo({bob, me})),
             L"Exchange Boss\nBob (bob@example.com)",
             L"1",
             {L"Boss"}},
        Case{"FromAnUnknownExchangeUser",
             from(boss, mailTo({otherBoss, me})),
             L"Exchange Boss\nExchange Boss",
             L"1",
             {L"Boss"}},
        Case{"ReplyToAnExchangeUser",
             withReplyTo(carl, mailTo({bob, me})),
             L"Exchange Carl (carl@example.com)\nBob (bob@example.com)",
             L"1",
             {L"Carl"}},
        Case{"FromAnExchangeUser",
             from(carl, mailTo({bob, me})),
             L"Exchange Carl (carl@example.com)\nBob (bob@example.com)",
             L"1",
             {L"Carl"}}),
    [](const auto& test) { return test.param.name; });

/// What answers leave in the mailbox when their windows are closed unsent.
TEST(ClosedAnswer, LeavesNothingBehind) {
    const struct {
        const char* name;
        host::ReplyKind kind;
        std::map<std::wstring, std::wstring> settings;
        std::wstring answer;
        Names recipients;
    } cases[] = {
        {"own address removed",
         host::ReplyKind::ReplyAll,
         {{L"ReplyAllAny", L"False"}},
         L"",
         {L"Ann", L"Bob"}},
        {"recipient unticked",
         host::ReplyKind::ReplyAll,
         {},
         L"frmReplyMultRecipt=lstRecipients=2; cmdOK",
         {L"Ann"}},
        {"reply given up", host::ReplyKind::ReplyAll, {}, L"frmReplyMultRecipt=cmdCancel", {}},
        {"other recipients refused", host::ReplyKind::Reply, {}, L"frmReplyMultRecipt=cmdCancel", {L"Ann"}},
    };
    for (const auto& given : cases) {
        Given setup{.settings = given.settings};
        if (!given.answer.empty()) {
            setup.answers = {given.answer};
        }
        Bench bench(setup);

        const auto outcome = bench.outlook().answer(given.kind, selected(bench, mailTo({bob, me})));

        for (const auto& inspector : outcome.newInspectors) {
            EXPECT_EQ(namesOf(bench, bench.outlook().itemOf(inspector)), given.recipients) << given.name;
            bench.outlook().closeInspector(inspector);
        }
        EXPECT_EQ(outcome.newInspectors.empty(), given.recipients.empty()) << given.name;
        EXPECT_TRUE(bench.outlook().itemsIn(L"Drafts").empty()) << given.name;
        EXPECT_TRUE(bench.outlook().itemsIn(L"Deleted Items").empty()) << given.name;
    }
}

/// The subject checks have been over it.
TEST(RefusedRecipients, LeaveThePlainReplyItsCleanedSubject) {
    Bench bench({.settings = {{L"AutoRemoveSpamWords", L"1"}}, .answers = {L"frmReplyMultRecipt=cmdCancel"}});
    host::Message mail = mailTo({bob, me});
    mail.subject = L"SPAM-LOW: Budget";
    const auto outcome = bench.outlook().reply(selected(bench, mail));
    ASSERT_EQ(outcome.newInspectors.size(), 1U);
    EXPECT_EQ(bench.outlook().view(bench.outlook().itemOf(outcome.newInspectors[0])).subject, L"RE: Budget");
}

/// Two persons may have one name; Outlook's own list tells them apart by their addresses.
TEST(UntickedRecipient, IsNotTakenForANamesake) {
    const host::Address otherBob{.name = L"Bob", .address = L"bob@example.net"};
    Bench bench({.answers = {L"frmReplyMultRecipt=lstRecipients=1,3,5; cmdOK"}});
    const auto outcome =
        bench.outlook().replyAll(selected(bench, mailTo({bob, otherBob, me, otherBoss, boss})));
    ASSERT_TRUE(outcome.opened);
    const auto recipients = bench.outlook().view(outcome.item).recipients;
    ASSERT_EQ(recipients.size(), 3U);
    EXPECT_EQ(recipients[1].address.address, bob.address);
    EXPECT_EQ(recipients[2].address.address, boss.address);
}

TEST(UntickedRecipient, StaysWhereTheSameOneIsStillTicked) {
    Bench bench({.answers = {L"frmReplyMultRecipt=lstRecipients=2,3; cmdOK"}});
    const auto outcome = bench.outlook().replyAll(selected(bench, mailTo({bob, me}, {bob})));
    EXPECT_EQ(namesOf(bench, outcome.item), (Names{L"Ann", L"Bob"}));
}

TEST(OfferedRecipients, IncludeTheUserWhereNothingTakesThemOff) {
    Bench bench({.settings = {{L"ReplyAllAutoRemove", L"False"}}, .answers = {L"frmReplyMultRecipt=cmdOK"}});
    bench.outlook().reply(selected(bench, mailTo({bob, me})));
    ASSERT_EQ(bench.promptNames(), (Names{L"frmReplyMultRecipt"}));
    EXPECT_EQ(bench.prompts()[0].control(L"lstRecipients").caption,
              L"Ann (ann@example.com)\nBob (bob@example.com)\nMe (ME@example.org)");
}

}  // namespace
