#include <gtest/gtest.h>

#include <algorithm>

#include "tests/scenarios/replies.h"

namespace {

using namespace replies;

const host::Address team{.name = L"Team", .address = L"team", .type = L"MAPIPDL", .members = {me}};
const host::Address everybody{.name = L"Everybody",
                              .address = L"/o=x/cn=all",
                              .type = L"EX",
                              .smtpAddress = L"all@example.com",
                              .distributionList = true};
const host::Address hidden{.name = L"Hidden", .address = L"/o=x/cn=hidden", .type = L"EX"};
const host::Address nobody{.name = L"nobody", .address = L"", .resolvable = false};

struct BlindCopy {
    const char* name;
    host::Message mail;
    std::map<std::wstring, std::wstring> settings;
    bool warned;
    const wchar_t* wording = L"";
};

class BlindCopyWarning : public testing::TestWithParam<BlindCopy> {};

TEST_P(BlindCopyWarning, ComesWhenTheUserIsNotToBeSeen) {
    const BlindCopy& given = GetParam();
    for (const bool yes : {true, false}) {
        auto settings = given.settings;
        settings.emplace(L"ReplyALL_BCC", L"True");
        Bench bench(
            {.settings = quiet(settings), .answers = {yes ? L"BCCed e-mail=Yes" : L"BCCed e-mail=No"}});

        const auto outcome = bench.outlook().replyAll(selected(bench, given.mail));

        EXPECT_EQ(outcome.opened, yes || !given.warned);
        ASSERT_EQ(bench.prompts().size(), given.warned ? 1U : 0U);
        if (given.warned) {
            const auto& prompt = bench.prompts()[0];
            EXPECT_EQ(prompt.where, L"BCCed e-mail - Veltro");
            EXPECT_EQ(prompt.style.buttons, platform::Buttons::YesNo);
            EXPECT_EQ(prompt.text,
                      std::wstring(L"You clicked Reply to All.\r\n\r\n") + given.wording +
                          L"\r\n\r\nA Reply to All means that all recipients will become aware that you also "
                          L"received a copy of the email.\r\n\r\nDo you want to do a Reply to All to this "
                          L"e-mail?");
        }
    }
}

constexpr wchar_t appears[] =
    L"It appears that you were BCCed on this e-mail as your e-mail address could not be found on the list of "
    L"recipients!";
constexpr wchar_t may[] =
    L"You do not APPEAR to be in the addresses of this email, therefore you MAY be BCCed on this email!";

host::Message sentByMe() {
    host::Message message = mailTo({bob});
    message.from = me;
    return message;
}

/// Asking for its sender's address would end in a message.
host::Message fromNobody() {
    host::Message message = mailTo({bob, me});
    message.from = host::Address{.name = L"System"};
    return message;
}

INSTANTIATE_TEST_SUITE_P(
    Mails, BlindCopyWarning,
    testing::Values(BlindCopy{"InTo", mailTo({bob, me}), {}, false},
                    BlindCopy{"InCc", mailTo({bob}, {me}), {}, false},
                    BlindCopy{"Blind", mailTo({bob, carl}), {}, true, appears},
                    BlindCopy{"PerhapsInAList", mailTo({team}), {}, true, may},
                    BlindCopy{"PerhapsInAnExchangeList", mailTo({everybody}), {}, true, may},
                    BlindCopy{"PerhapsOneOfUnknownAddress", mailTo({hidden}), {}, true, may},
                    BlindCopy{"PerhapsTheUnresolvedOne", mailTo({nobody}), {}, true, may},
                    BlindCopy{"OwnMail", sentByMe(), {}, false},
                    BlindCopy{"FromNobody", fromNobody(), {}, false},
                    BlindCopy{"SwitchedOff", mailTo({bob}), {{L"ReplyALL_BCC", L"False"}}, false},
                    BlindCopy{"ListedAddresses",
                              mailTo({bob}),
                              {{L"UseOutlookSettings", L"False"}, {L"EmailList", L"x@y.z; BOB@example.com "}},
                              false},
                    BlindCopy{"NoOwnAddresses",
                              mailTo({me}),
                              {{L"UseOutlookSettings", L"False"}, {L"EmailList", L""}},
                              true,
                              may}),
    [](const auto& test) { return test.param.name; });

TEST(ReplyAllList, DropsWhomTheUserUnticks) {
    host::Address renamed = carl;  // After the mail was written.
    renamed.name = L"Carl Jones";
    Bench bench({.profile = {.addressBook = {renamed}},
                 .settings = quiet({{L"ReplyAllAny", L"True"}}),
                 .answers = {L"frmReplyMultRecipt=lstRecipients=2,3; cmdOK"}});

    const auto outcome = bench.outlook().replyAll(selected(bench, mailTo({bob, carl}, {me})));

    ASSERT_TRUE(outcome.opened);
    EXPECT_EQ(namesOf(bench, outcome.item), (Names{L"Ann", L"Carl", L"Me"}));
    EXPECT_TRUE(bench.outlook().view(outcome.item).userProperties.empty());
    EXPECT_TRUE(bench.outlook().fieldsOf(L"Drafts").empty()) << "the user's views offer the add-in's mark";
    const auto& form = bench.prompts().at(0);
    EXPECT_EQ(form.text, L"Reply to All - Veltro");
    EXPECT_EQ(form.control(L"lblLine1").caption,
              L"Reply to All was clicked! Do you want to do a Reply to All to this e-mail?");
    EXPECT_EQ(form.control(L"lblAbove").caption,
              L"You can change the recipients for the e-mail using the list below.");
    EXPECT_TRUE(form.control(L"lblAbove").visible);
    EXPECT_FALSE(form.control(L"lblBelow").visible);
    EXPECT_EQ(form.control(L"lstRecipients").caption,
              L"Bob (bob@example.com)\nExchange Carl Jones (carl@example.com)\nMe (ME@example.org)");
    EXPECT_EQ(form.control(L"lstRecipients").value, L"1,2,3");
}

TEST(ReplyAllList, CancelOpensNoReply) {
    Bench bench(
        {.settings = quiet({{L"ReplyAllAny", L"True"}}), .answers = {L"frmReplyMultRecipt=cmdCancel"}});
    EXPECT_FALSE(bench.outlook().replyAll(selected(bench, mailTo({bob, me}))).opened);
}

TEST(ReplyAllList, TicksAllOrNoneAtOnce) {
    Bench bench({.settings = quiet({{L"ReplyAllAny", L"True"}}),
                 .answers = {L"frmReplyMultRecipt=cmdNone", L"frmReplyMultRecipt=cmdAll",
                             L"frmReplyMultRecipt=cmdOK"}});
    const auto outcome = bench.outlook().replyAll(selected(bench, mailTo({bob, me})));
    ASSERT_EQ(bench.prompts().size(), 3U);
    EXPECT_EQ(bench.prompts()[1].control(L"lstRecipients").value, L"");
    EXPECT_EQ(bench.prompts()[2].control(L"lstRecipients").value, L"1,2");
    EXPECT_EQ(namesOf(bench, outcome.item), (Names{L"Ann", L"Bob", L"Me"}));
}

TEST(ReplyAllList, StaysAwayFromInternalMail) {
    const struct {
        const char* name;
        std::wstring domains;
        bool shown;
    } cases[] = {{"all inside", L"@EXAMPLE.COM;@example.org", false},
                 {"as the settings screen takes them", L" Example.COM ; example.org", false},
                 {"a mark and none, and blank entries", L";;example.com; @EXAMPLE.org ", false},
                 {"one outside", L"@example.com", true},
                 {"one outside, without a mark", L"example.com;", true},
                 {"a longer domain", L"the-example.com;example.org", true},
                 {"the end of a domain", L"com;org", true},
                 {"no domain", L"", true}};
    for (const auto& given : cases) {
        Bench bench({.settings = quiet({{L"ReplyAllAny", L"True"},
                                        {L"ReplyInternalCheck", L"True"},
                                        {L"DomainName", given.domains}}),
                     .answers = {L"frmReplyMultRecipt=cmdOK"}});
        bench.outlook().replyAll(selected(bench, mailTo({bob, me})));
        EXPECT_EQ(bench.prompts().size(), given.shown ? 1U : 0U) << given.name;
    }
}

TEST(ReplyAllAutoRemove, DropsTheUsersOwnAddress) {
    const struct {
        const char* name;
        std::wstring version;
        host::Message mail;
        Names expected;
    } cases[] = {
        {"others stay", L"14.0.0.4760", mailTo({bob, me}), {L"Ann", L"Bob"}},
        {"not in version 10", L"10.0.0.2627", mailTo({bob, me}), {L"Ann", L"Bob", L"Me"}},
    };
    for (const auto& given : cases) {
        Given setup{.settings = quiet({{L"ReplyAllAutoRemove", L"True"}})};
        setup.profile.version = given.version;
        setup.profile.guard = host::GuardMode::Off;  // The user allows the look at the recipients.
        Bench bench(setup);
        const auto outcome = bench.outlook().replyAll(selected(bench, given.mail));
        ASSERT_TRUE(outcome.opened) << given.name;
        EXPECT_EQ(namesOf(bench, outcome.item), given.expected) << given.name;
    }
}

TEST(ReplyAllAutoRemove, LeavesAMailToOneself) {
    Bench bench({.settings = quiet({{L"ReplyAllAutoRemove", L"True"}})});
    host::Message toMyself = mailTo({me});
    toMyself.from = me;
    const auto outcome = bench.outlook().replyAll(selected(bench, toMyself));
    EXPECT_EQ(namesOf(bench, outcome.item), (Names{L"Me"}));
}

struct Plain {
    const char* name;
    host::Message mail;
    std::wstring answer;
    bool asked;
    Names recipients;
};

host::Message withReplyTo(host::Message message, const host::Address& address) {
    message.replyTo = {address};
    return message;
}

class ReplyToSeveral : public testing::TestWithParam<Plain> {};

TEST_P(ReplyToSeveral, OffersTheOtherRecipients) {
    const Plain& given = GetParam();
    Given setup{.settings = quiet({{L"ReplyMultiple", L"True"}})};
    if (!given.answer.empty()) {
        setup.answers = {given.answer};
    }
    Bench bench(setup);

    const auto outcome = bench.outlook().reply(selected(bench, given.mail));

    EXPECT_EQ(outcome.opened, !given.asked);
    ASSERT_EQ(bench.prompts().size(), given.asked ? 1U : 0U);
    ASSERT_EQ(outcome.newInspectors.size(), 1U);
    EXPECT_EQ(namesOf(bench, bench.outlook().itemOf(outcome.newInspectors[0])), given.recipients);
    EXPECT_EQ(bench.outlook().view(bench.outlook().itemOf(outcome.newInspectors[0])).subject, L"RE: Budget");
}

INSTANTIATE_TEST_SUITE_P(
    Mails, ReplyToSeveral,
    testing::Values(
        Plain{"OneRecipient", mailTo({me}), L"", false, {L"Ann"}},
        Plain{"BlindCopy", mailTo({bob, carl}), L"", false, {L"Ann"}},
        Plain{"AsOffered", mailTo({bob, me}), L"frmReplyMultRecipt=cmdOK", true, {L"Ann"}},
        Plain{"OneMore",
              mailTo({bob, me}),
              L"frmReplyMultRecipt=lstRecipients=1,2; cmdOK",
              true,
              {L"Ann", L"Bob"}},
        Plain{"Refused", mailTo({bob, me}), L"frmReplyMultRecipt=cmdCancel", true, {L"Ann"}},
        Plain{"ReplyTo", withReplyTo(mailTo({bob, me}), carl), L"frmReplyMultRecipt=cmdOK", true, {L"Carl"}}),
    [](const auto& test) { return test.param.name; });

/// Nothing is known of a blind copy then; that they cannot be read is said once.
TEST(UnreadableOwnAddresses, AskNothing) {
    for (const auto kind : {host::ReplyKind::Reply, host::ReplyKind::ReplyAll}) {
        Bench bench(
            {.settings = quiet(
                 {{L"ReplyMultiple", L"True"}, {L"ReplyALL_BCC", L"True"}, {L"ReplyAllAutoRemove", L"True"}}),
             .answers = {L"Veltro=OK", L"Veltro=OK"}});
        const auto item = selected(bench, mailTo({bob, carl}));
        std::function<void()> failReading = [&] {
            if (bench.outlook().meter()->log().back().ends_with(L".Accounts")) {
                bench.outlook().failCall(1);
            }
            bench.outlook().duringCall(1, failReading);
        };
        bench.outlook().meter()->record(true);
        bench.outlook().duringCall(1, failReading);
        EXPECT_TRUE(bench.outlook().answer(kind, item).opened);
        bench.outlook().duringCall(0, nullptr);
        ASSERT_EQ(bench.prompts().size(), 1U);
        EXPECT_NE(bench.prompts()[0].text.find(L"vtAccountsEmailAddress"), std::wstring::npos);
    }
}

TEST(ReplyFromAWindow, IsCheckedOnce) {
    Bench bench({.settings = quiet({{L"ReplyALL_BCC", L"True"}}), .answers = {L"BCCed e-mail=Yes"}});
    const auto item = selected(bench, mailTo({bob}));
    bench.outlook().openItem(item);
    EXPECT_TRUE(bench.outlook().replyAll(item).opened);
    EXPECT_EQ(bench.prompts().size(), 1U);
}

/// The mail is open, perhaps below the window of another one, while Reply to All is pressed in the main
/// window.
TEST(ReplyToAMailOpenBehind, IsCheckedOnce) {
    for (const bool belowAnother : {false, true}) {
        Bench bench({.settings = quiet({{L"ReplyALL_BCC", L"True"}}), .answers = {L"BCCed e-mail=Yes"}});
        const auto item = selected(bench, mailTo({bob}));
        bench.outlook().openItem(item);
        if (belowAnother) {
            bench.outlook().openItem(bench.outlook().receive(mailTo({carl})));
        }
        const auto mainWindow = bench.outlook().explorers().front();
        const auto outcome = bench.outlook().answerIn(mainWindow, host::ReplyKind::ReplyAll, item);
        EXPECT_TRUE(outcome.opened) << belowAnother;
        EXPECT_EQ(bench.prompts().size(), 1U) << belowAnother;
    }
}

/// A recipient whom the address book resolves only now is a person in the reply that opens, too.
TEST(ReplyToSeveral, StoresWhatTheAddressBookKnows) {
    const host::Address dora{.name = L"Dora", .address = L"dora@example.com"};
    Bench bench({.profile = {.addressBook = {dora}},
                 .settings = quiet({{L"ReplyMultiple", L"True"}}),
                 .answers = {L"frmReplyMultRecipt=lstRecipients=1,2; cmdOK"}});
    const auto outcome = bench.outlook().reply(selected(bench, mailTo({{.name = L"Dora"}, me})));
    ASSERT_EQ(outcome.newInspectors.size(), 1U);
    const auto reply = bench.outlook().view(bench.outlook().itemOf(outcome.newInspectors[0]));
    ASSERT_EQ(reply.recipients.size(), 2U);
    EXPECT_EQ(reply.recipients[1].address.address, L"dora@example.com");
    EXPECT_TRUE(reply.recipients[1].resolved);
}

/// Outlook lets events in while it is called: inside each call of a reply another mail is answered, whose
/// check must not be taken for one of the add-in's own answer.
TEST(ReplyInsideAReply, IsCheckedAsWell) {
    bool inside = true;
    for (std::size_t call = 1; inside; ++call) {
        Bench bench({.settings = quiet({{L"ReplyMultiple", L"True"}, {L"ReplyALL_BCC", L"True"}}),
                     .answers = {L"frmReplyMultRecipt=lstRecipients=1,2; cmdOK", L"BCCed e-mail=No"}});
        const auto first = selected(bench, mailTo({bob, me}));
        const auto second = bench.outlook().receive(mailTo({carl}));
        bench.outlook().select(bench.outlook().openExplorer(), {second});
        std::optional<bool> secondOpened;
        inside = false;
        bench.outlook().duringCall(call, [&] {
            inside = true;
            secondOpened = bench.outlook().replyAll(second).opened;
        });
        const auto outcome = bench.outlook().reply(first);
        bench.outlook().duringCall(0, nullptr);
        EXPECT_EQ(secondOpened.value_or(false), false) << "call " << call;
        EXPECT_EQ(bench.prompts().size(), inside ? 2U : 1U) << "call " << call;
        ASSERT_EQ(outcome.newInspectors.size(), 1U) << "call " << call;
        EXPECT_EQ(namesOf(bench, bench.outlook().itemOf(outcome.newInspectors[0])), (Names{L"Ann", L"Bob"}))
            << "call " << call;
    }
}

TEST(ReplyTwice, IsCheckedTwice) {
    Bench bench({.settings = quiet({{L"ReplyMultiple", L"True"}}),
                 .answers = {L"frmReplyMultRecipt=cmdCancel", L"frmReplyMultRecipt=cmdOK"}});
    const auto item = selected(bench, mailTo({bob, me}));
    bench.outlook().closeInspector(bench.outlook().reply(item).newInspectors.at(0));
    bench.outlook().reply(item);
    EXPECT_EQ(bench.prompts().size(), 2U);
}

TEST(UnresolvedRecipient, NeitherHidesTheUserNorStopsTheOthers) {
    Bench bench({.settings = quiet({{L"ReplyALL_BCC", L"True"}, {L"ReplyAllAny", L"True"}}),
                 .answers = {L"frmReplyMultRecipt=lstRecipients=1,3; cmdOK"}});
    const auto outcome = bench.outlook().replyAll(selected(bench, mailTo({nobody, bob, me})));
    const Names names = namesOf(bench, outcome.item);
    EXPECT_EQ(std::ranges::find(names, L"Bob"), names.end());
    EXPECT_NE(std::ranges::find(names, L"Me"), names.end());
}

TEST(OrderOfReplyQuestions, IsAgeThenSpamThenRecipients) {
    host::Message message = mailTo({bob});
    message.subject = L"SPAM-LOW: Budget";
    message.deliveryTime = automation::Date{36526};  // 1 January 2000
    Bench bench({.settings = {{L"ReplyAllAutoRemove", L"False"}},
                 .answers = {L"frmOldSubject=cmdOK", L"frmRemoveSpam=cmdYes", L"BCCed e-mail=Yes",
                             L"frmReplyMultRecipt=cmdOK"}});

    const auto outcome = bench.outlook().replyAll(selected(bench, message));

    EXPECT_EQ(bench.promptNames(),
              (Names{L"frmOldSubject", L"frmRemoveSpam", L"BCCed e-mail - Veltro", L"frmReplyMultRecipt"}));
    EXPECT_EQ(bench.outlook().view(outcome.item).subject, L"RE: Budget");
}

}  // namespace
