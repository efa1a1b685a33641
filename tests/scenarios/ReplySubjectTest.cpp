#include <gtest/gtest.h>

#include "platform/civilTime.h"
#include "platform/outlook.h"
#include "platform/text.h"
#include "tests/scenarios/Bench.h"

namespace {

using Settings = std::map<std::wstring, std::wstring>;

/// An event of items.
constexpr std::int32_t propertyChange = 0xF009;

const host::Address ann{.name = L"Ann", .address = L"ann@example.com"};
const host::Address me{.name = L"Me", .address = L"me@example.org"};

host::Message received(std::wstring subject) {
    host::Message message;
    message.from = ann;
    message.to = {me};
    message.subject = std::move(subject);
    return message;
}

automation::Object selected(Bench& bench, const host::Message& message) {
    const auto item = bench.outlook().receive(message);
    bench.outlook().select(bench.outlook().explorers().front(), {item});
    return item;
}

struct Subject {
    const char* name;
    std::wstring subject;
    std::vector<std::wstring> answers;
    std::wstring expected;
    Settings settings = {};
};

class SpamMarks : public testing::TestWithParam<Subject> {};

TEST_P(SpamMarks, GoFromTheSubjectOfReplyAndForward) {
    const Subject& given = GetParam();
    for (const auto kind : {host::ReplyKind::Reply, host::ReplyKind::Forward}) {
        Bench bench({.settings = given.settings, .answers = given.answers});
        const auto outcome = bench.outlook().answer(kind, selected(bench, received(given.subject)));
        const std::wstring prefix = kind == host::ReplyKind::Reply ? L"RE: " : L"FW: ";
        EXPECT_EQ(bench.outlook().view(outcome.item).subject, prefix + given.expected);
        EXPECT_EQ(bench.prompts().size(), given.answers.size());
    }
}

INSTANTIATE_TEST_SUITE_P(
    Subjects, SpamMarks,
    testing::Values(Subject{"None", L"Budget", {}, L"Budget"},
                    Subject{"Yes", L"SPAM-LOW: Budget", {L"frmRemoveSpam=cmdYes"}, L"Budget"},
                    Subject{"No", L"SPAM-LOW: Budget", {L"frmRemoveSpam=cmdNo"}, L"SPAM-LOW: Budget"},
                    Subject{"AnyCaseAnywhere", L"a Spam-Med: b", {L"frmRemoveSpam=cmdYes"}, L"a  b"},
                    Subject{"WithoutAsking", L"SPAM-HIGH: x", {}, L"x", {{L"AutoRemoveSpamWords", L"1"}}},
                    Subject{"NoGapWhereAMarkWas",
                            L"SPAM-HIGH:  x",
                            {},
                            L"x",
                            {{L"AutoRemoveSpamWords", L"1"}, {L"CheckMultipleReFwd", L"False"}}},
                    Subject{
                        "SwitchedOff", L"SPAM-LOW: x", {}, L"SPAM-LOW: x", {{L"RemoveSpamWords", L"False"}}},
                    Subject{"NoPhrases", L"SPAM-LOW: x", {}, L"SPAM-LOW: x", {{L"SpamKeyWords", L""}}}),
    [](const auto& test) { return test.param.name; });

TEST(SpamMarksDialog, TakesTheEditedSubjectAndCanBeSwitchedOff) {
    Bench bench({.answers = {L"frmRemoveSpam=txtNewSubject= RE: Figures ; chkAutoCorrect=1; cmdYes"}});

    const auto outcome = bench.outlook().reply(selected(bench, received(L"SPAM-LOW: Budget")));

    EXPECT_EQ(bench.outlook().view(outcome.item).subject, L"RE: Figures");
    EXPECT_EQ(bench.world().setting(L"AutoRemoveSpamWords"), L"1");
    const auto& form = bench.prompts().at(0);
    EXPECT_EQ(form.text, L"Remove Spam Mark Phrases - Veltro");
    EXPECT_EQ(form.control(L"txtOldSubject").value, L"RE: SPAM-LOW: Budget");
    EXPECT_EQ(form.control(L"txtNewSubject").value, L"RE: Budget");
}

TEST(OldMail, IsPromptedOncePastTheLimit) {
    struct Case {
        const char* name;
        double daysAgo;
        Settings settings;
        bool asked;
    };
    const Case cases[] = {
        {"28 days", 28, {}, false},
        {"29 days", 29, {}, true},
        {"own limit", 3, {{L"OldEmailDays", L"2.9"}}, true},
        {"bad limit", 28, {{L"OldEmailDays", L"soon"}}, false},
        {"limit beyond 32 bits", 400, {{L"OldEmailDays", L"99999999999"}}, false},
        {"switched off", 400, {{L"PromptReplyOnOlderEmails", L"False"}}, false},
    };
    for (const Case& given : cases) {
        Bench bench({.settings = given.settings, .answers = {L"frmOldSubject=txtSubject=RE: New; cmdOK"}});
        host::Message message = received(L"Budget");
        message.deliveryTime = automation::Date{bench.now().days - given.daysAgo};
        const auto outcome = bench.outlook().reply(selected(bench, message));
        EXPECT_EQ(bench.prompts().size(), given.asked ? 1U : 0U) << given.name;
        EXPECT_EQ(bench.outlook().view(outcome.item).subject, given.asked ? L"RE: New" : L"RE: Budget")
            << given.name;
    }
}

/// What counts are the midnights between, whatever the time of day.
TEST(OldMail, AgesAtMidnight) {
    const struct {
        const char* name;
        platform::CivilTime delivered;
        platform::CivilTime now;
        bool asked;
    } cases[] = {
        {"last second of the day", {2024, 5, 13, 0, 0, 0}, {2024, 5, 14, 23, 59, 59}, false},
        {"one second and a day, two midnights", {2024, 5, 13, 23, 59, 59}, {2024, 5, 15, 0, 0, 0}, true},
        {"end of a year", {2023, 12, 30, 23, 59, 59}, {2024, 1, 1, 0, 0, 0}, true},
        {"leap day", {2024, 2, 28, 12, 0, 0}, {2024, 3, 1, 11, 0, 0}, true},
        {"no leap day", {2023, 2, 28, 12, 0, 0}, {2023, 3, 1, 11, 0, 0}, false},
        {"from the future", {2024, 5, 16, 0, 0, 0}, {2024, 5, 14, 12, 0, 0}, false},
    };
    for (const auto& given : cases) {
        Bench bench({.settings = {{L"OldEmailDays", L"1"}},
                     .answers = {L"frmOldSubject=cmdOK"},
                     .now = platform::toDate(given.now)});
        host::Message message = received(L"Budget");
        message.deliveryTime = platform::toDate(given.delivered);
        bench.outlook().reply(selected(bench, message));
        EXPECT_EQ(bench.prompts().size(), given.asked ? 1U : 0U) << given.name;
    }
}

/// Outlook asks whether to save an answer of which something was set, be it to what it was.
TEST(OldMail, IsAnsweredWithASubjectThatIsSetOnlyToAnotherOne) {
    const struct {
        std::vector<std::wstring> answers;
        std::vector<host::Address> to;
        std::wstring subject;
        int changes;
    } cases[] = {
        {{L"frmOldSubject=cmdOK"}, {me}, L"RE: Budget", 0},
        {{L"frmOldSubject=txtSubject=RE: New; cmdOK"}, {me}, L"RE: New", 1},
        {{L"frmOldSubject=txtSubject=lost; {Escape}"}, {me}, L"RE: Budget", 0},
        {{L"frmOldSubject=cmdOK", L"frmReplyMultRecipt=cmdCancel"}, {me, ann}, L"RE: Budget", 0},
    };
    for (const auto& given : cases) {
        Bench bench({.answers = given.answers});
        host::Message message = received(L"Budget");
        message.to = given.to;
        message.deliveryTime = automation::Date{36526};
        const auto item = bench.outlook().receive(message);
        int changes = 0;
        std::vector<automation::Subscription> watched;
        const auto count = [&](std::int32_t event, std::span<automation::Value>) {
            changes += event == propertyChange ? 1 : 0;
        };
        watched.push_back(automation::subscribe(
            item, outlook::events::item, [&](std::int32_t event, std::span<automation::Value> arguments) {
                if (event == outlook::events::itemReply) {
                    watched.push_back(
                        automation::subscribe(arguments[0].toObject(), outlook::events::item, count));
                }
            }));
        bench.outlook().select(bench.outlook().explorers().front(), {item});
        const auto windows = bench.outlook().reply(item).newInspectors;
        ASSERT_EQ(windows.size(), 1U);
        EXPECT_EQ(bench.outlook().view(bench.outlook().itemOf(windows[0])).subject, given.subject);
        EXPECT_EQ(bench.prompts().size(), given.answers.size());
        EXPECT_EQ(changes, given.changes) << text::toUtf8(given.answers[0]);
    }
}

TEST(OldMail, PromptNamesTheLimit) {
    Bench bench({.answers = {L"frmOldSubject=cmdOK"}});
    host::Message message = received(L"Budget");
    message.deliveryTime = automation::Date{36526};
    bench.outlook().reply(selected(bench, message));
    const auto& form = bench.prompts().at(0);
    EXPECT_EQ(form.text, L"Is the Subject to this email correct? - Veltro");
    EXPECT_EQ(form.control(L"lblLine1").caption,
              L"You are replying to an email that is more than 28 days old.");
    EXPECT_EQ(form.control(L"txtSubject").value, L"RE: Budget");
}

}  // namespace
