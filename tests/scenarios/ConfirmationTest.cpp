#include <gtest/gtest.h>

#include "tests/scenarios/Bench.h"

namespace {

using host::SendState;
using Settings = std::map<std::wstring, std::wstring>;

constexpr wchar_t hint[] =
    L"\r\n\r\n(If you do not wish to see this message please go to the Veltro settings screen and click "
    L"Send-Confirm)";

host::Message mailTo(int recipients) {
    host::Message message = plainMail();
    message.to.clear();
    for (int number = 1; number <= recipients; ++number) {
        const std::wstring name = L"P" + std::to_wstring(number);
        message.to.push_back({.name = name, .address = name + L"@example.org"});
    }
    return message;
}

struct Case {
    const char* name;
    Settings settings;
    int recipients;
    bool asked;
};

class Confirmation : public testing::TestWithParam<Case> {};

TEST_P(Confirmation, IsAskedForOnceAndTheAnswerDecides) {
    const Case& given = GetParam();
    for (const bool yes : {true, false}) {
        Bench bench(
            {.settings = given.settings,
             .answers = {yes ? L"Confirm Email Send - Veltro=Yes" : L"Confirm Email Send - Veltro=No"}});
        const auto outcome = bench.send(mailTo(given.recipients));
        EXPECT_EQ(outcome.state, given.asked && !yes ? SendState::Cancelled : SendState::Sent);
        EXPECT_EQ(bench.prompts().size(), given.asked ? 1U : 0U);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Settings, Confirmation,
    testing::Values(
        Case{"Never", {}, 9, false}, Case{"Always", {{L"DisplayConfirmation", L"1"}}, 1, true},
        Case{"AlwaysBeforeTheCount",
             {{L"DisplayConfirmation", L"1"}, {L"ConfirmForXRecipients", L"True"}},
             9,
             true},
        Case{"Listed",
             {{L"DisplayConfirmation", L"2"}, {L"ConfirmEmailAddrs", L"a@b.c;p2@EXAMPLE.org"}},
             2,
             true},
        Case{"NotListed",
             {{L"DisplayConfirmation", L"2"}, {L"ConfirmEmailAddrs", L"p2@example.org"}},
             1,
             false},
        Case{"TailOfAListed",
             {{L"DisplayConfirmation", L"2"}, {L"ConfirmEmailAddrs", L"xp1@example.org"}},
             1,
             true},
        Case{"DomainAlone",
             {{L"DisplayConfirmation", L"2"}, {L"ConfirmEmailAddrs", L"example.org"}},
             1,
             false},
        Case{"EmptyList", {{L"DisplayConfirmation", L"2"}}, 1, false},
        Case{"ExactlyTheLimit", {{L"ConfirmForXRecipients", L"True"}}, 5, false},
        Case{"OverTheLimit", {{L"ConfirmForXRecipients", L"True"}}, 6, true},
        Case{"LimitIsNoNumber", {{L"ConfirmForXRecipients", L"True"}, {L"XRecipients", L"many"}}, 6, true},
        Case{"LimitBeyond16Bits",
             {{L"ConfirmForXRecipients", L"True"}, {L"XRecipients", L"70000"}},
             6,
             false}),
    [](const auto& test) { return test.param.name; });

TEST(ConfirmationQuestion, NamesTheFirstRecipient) {
    host::Message hidden = plainMail();
    hidden.bcc = std::exchange(hidden.to, {});
    const struct {
        host::Message message;
        std::wstring question;
    } cases[] = {{mailTo(2), L"Do you wish to send this email to P1?"},
                 {hidden, L"Do you wish to send this email?"}};
    for (const auto& given : cases) {
        Bench bench({.settings = {{L"DisplayConfirmation", L"1"}}, .answers = {L"Confirm Email Send=Yes"}});
        bench.send(given.message);
        ASSERT_EQ(bench.prompts().size(), 1U);
        EXPECT_EQ(bench.prompts()[0].text, given.question + hint);
        EXPECT_EQ(bench.prompts()[0].style.buttons, platform::Buttons::YesNo);
        EXPECT_EQ(bench.prompts()[0].style.icon, platform::Icon::Information);
    }
}

TEST(ApplicationStage, LeavesSendsByProgramsAlone) {
    Bench bench({.settings = {{L"DisplayConfirmation", L"1"}}});
    const auto draft = bench.outlook().store(L"Drafts", plainMail());
    EXPECT_EQ(bench.outlook().sendByProgram(draft).state, SendState::Sent);
}

TEST(ApplicationStage, LeavesOtherItemsThanMailAlone) {
    Bench bench({.settings = {{L"DisplayConfirmation", L"1"}}});
    host::Message meeting = plainMail();
    meeting.itemClass = host::itemClass::appointment;
    bench.outlook().openNewMail(plainMail());  // A window is in front.
    EXPECT_EQ(bench.outlook().sendByProgram(bench.outlook().store(L"Drafts", meeting)).state,
              SendState::Sent);
}

TEST(OrderOfQuestions, OfAllChecksInOneSend) {
    Bench bench({.settings = {{L"DisplayConfirmation", L"1"}, {L"DelayEmails", L"True"}},
                 .answers = {L"frmNoSubject=txtSubject=attached; cmdOK", L"Attachment(s) missing=Yes",
                             L"Confirm Email Send=Yes", L"frmNotifyB4Delay=cmdYes"}});
    EXPECT_EQ(bench.send(plainMail(L"")).state, SendState::Deferred);
    EXPECT_EQ(bench.promptNames(),
              (std::vector<std::wstring>{L"frmNoSubject", L"Attachment(s) missing - Veltro",
                                         L"Confirm Email Send - Veltro", L"frmNotifyB4Delay"}));
}

}  // namespace
