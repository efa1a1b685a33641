#include <gtest/gtest.h>

#include <algorithm>

#include "tests/accounts/listTexts.h"
#include "tests/scenarios/Bench.h"

/// What may happen while Word asks, or goes wrong then.
namespace {

using automation::Object;
using host::SendState;
using Names = std::vector<std::wstring>;

const Entries bobAtHome{{L"bob@example.org", L"Home"}};
const Entries bobGone{{L"bob@example.org", L"Gone"}};
const Entries ann{{L"ann@example.org", L"Home"}};

Given inWord(const Entries& list, Names answers) {
    Given result{.profile = profileWith(listText(list), corvaneFolder), .answers = std::move(answers)};
    result.profile.version = L"11.0.0.5510";
    result.profile.editor = host::Editor::Word;
    return result;
}

host::Message mailToBob(std::wstring subject = L"Budget") {
    host::Message message = plainMail(std::move(subject));
    message.to[0].address = L"bob@example.org";
    return message;
}

/// Each call of a send fails once: a mail that the user has denied stays, and every other leaves.
TEST(WordRaces, NoFailingCallLosesANoOrHoldsAMail) {
    const struct {
        Entries list;
        std::wstring answer;
        std::wstring subject;
        std::map<std::wstring, std::wstring> settings;
    } cases[] = {
        {{}, L"frmNoSubject=cmdCancel", L"", {}},
        {bobAtHome, L"frmSelectSendAcct=optCancel=1; cmdOK", L"Budget", {}},
        {bobGone, L"frmEmailAddressEdit=cmdCancel", L"Budget", {}},
        {ann, L"frmAddEmailToList=Command1", L"Budget", {{L"MsgAddAddress", L"0"}}},
    };
    for (const auto& [list, answer, subject, settings] : cases) {
        const bool denies = list != ann;
        std::size_t asked = 0;
        std::size_t call = 1;
        for (bool failed = true; failed; ++call) {
            Given setup = inWord(list, {answer});
            setup.settings = settings;
            setup.answers.insert(setup.answers.end(), 9, L"Veltro=OK");
            Bench bench(setup);
            const Object window = bench.outlook().openNewMail(mailToBob(subject));
            bench.outlook().failCall(call);
            const std::size_t before = bench.outlook().calls();
            const SendState state = bench.outlook().send(window).state;
            failed = call <= bench.outlook().calls() - before;
            bench.outlook().failCall(0);
            const auto names = bench.promptNames();
            const bool question =
                std::ranges::any_of(names, [](const auto& name) { return name.starts_with(L"frm"); });
            // The account step holds a mail that it cannot look at, and says so.
            const bool heldByReport = std::ranges::any_of(bench.prompts(), [](const auto& prompt) {
                return prompt.text.starts_with(L"Error Number : ");
            });
            EXPECT_EQ(state == SendState::Cancelled, (question && denies) || heldByReport)
                << text::toUtf8(answer) << ", call " << call;
            asked += question ? 1 : 0;
        }
        EXPECT_GT(asked, 1U) << text::toUtf8(answer);
        EXPECT_GT(call, 12U) << text::toUtf8(answer);
    }
}

/// While Word asks about one mail, another is sent: neither gets the other's answer.
TEST(WordRaces, AnswersGoToTheirOwnMail) {
    for (const bool firstLeaves : {true, false}) {
        const std::wstring leave = L"frmSelectSendAcct=cmdOK";
        const std::wstring stay = L"frmSelectSendAcct=optCancel=1; cmdOK";
        Bench bench(inWord(bobAtHome, {firstLeaves ? leave : stay, firstLeaves ? stay : leave}));
        SendState inner = SendState::Deferred;
        bench.meanwhile([&] {
            bench.meanwhile(nullptr);
            inner = bench.send(mailToBob()).state;
        });
        const host::SendOutcome outer = bench.send(mailToBob());
        EXPECT_EQ(outer.state, firstLeaves ? SendState::Sent : SendState::Cancelled);
        EXPECT_EQ(outer.mail.account, firstLeaves ? L"Home" : L"Work");
        EXPECT_EQ(inner, firstLeaves ? SendState::Cancelled : SendState::Sent);
    }
}

TEST(WordRaces, ANoToOneSubjectIsNoneToAnother) {
    Bench bench(inWord({}, {L"frmNoSubject=txtSubject=Plan; cmdOK", L"frmNoSubject=cmdCancel"}));
    SendState inner = SendState::Sent;
    bench.meanwhile([&] {
        bench.meanwhile(nullptr);
        inner = bench.send(plainMail(L"")).state;
    });
    EXPECT_EQ(bench.send(plainMail(L"")).state, SendState::Sent);
    EXPECT_EQ(inner, SendState::Cancelled);
}

/// Word dies when it has been answered, before the macro is over: what was said counts.
TEST(WordRaces, AnAnswerCountsThoughWordIsGone) {
    const struct {
        Entries list;
        std::wstring answer;
        std::wstring subject;
        SendState state;
        std::wstring account;
    } cases[] = {
        {{}, L"frmNoSubject=cmdCancel", L"", SendState::Cancelled, L"Work"},
        {{}, L"frmNoSubject=txtSubject=Plan; cmdOK", L"", SendState::Sent, L"Work"},
        {bobAtHome, L"frmSelectSendAcct=optCancel=1; cmdOK", L"Budget", SendState::Cancelled, L"Work"},
        {bobAtHome, L"frmSelectSendAcct=cmdOK", L"Budget", SendState::Sent, L"Home"},
        {bobGone, L"frmEmailAddressEdit=cmbAccounts=Home; cmdOK", L"Budget", SendState::Sent, L"Home"},
    };
    for (const auto& [list, answer, subject, state, account] : cases) {
        Bench bench(inWord(list, {answer}));
        bench.meanwhile([&] { bench.outlook().endWord(); });
        const host::SendOutcome outcome = bench.send(mailToBob(subject));
        EXPECT_EQ(outcome.state, state) << text::toUtf8(answer);
        EXPECT_EQ(outcome.mail.account, account) << text::toUtf8(answer);
    }
}

/// The user takes the add-in off while Word asks: what is answered then reaches nobody. A mail that was
/// denied stays; one whose account was chosen stays, too, and the user is told why.
TEST(WordRaces, TheAddInGoesWhileWordAsks) {
    const struct {
        Names answers;
        SendState state;
    } cases[] = {{{L"frmSelectSendAcct=cmdOK", L"Send Account - Veltro=OK"}, SendState::Cancelled},
                 {{L"frmSelectSendAcct=optCancel=1; cmdOK"}, SendState::Cancelled},
                 {{L"frmNotifyB4Delay=cmdYes"}, SendState::Deferred}};
    for (const auto& [answers, state] : cases) {
        Given setup = inWord(bobAtHome, answers);
        if (state == SendState::Deferred) {
            setup.settings = {{L"DelayEmails", L"True"},
                              {L"AutoDelayAll", L"1"},
                              {L"DelayTime", L"90"},
                              {L"NotifyBeforeDelaying", L"True"}};
        }
        Bench bench(setup);
        bench.meanwhile([&] {
            bench.meanwhile(nullptr);
            bench.disconnect(1);
        });
        EXPECT_EQ(bench.send(mailToBob()).state, state);
        EXPECT_EQ(bench.prompts().size(), answers.size());
    }
}

/// A program's mail, written in a window that nobody sees: Outlook's last window may close while Word asks.
TEST(WordRaces, TheLastWindowClosesWhileWordAsks) {
    Bench bench(inWord(bobAtHome, {L"frmSelectSendAcct=optCancel=1; cmdOK"}));
    const Object window = bench.outlook().openNewMail(mailToBob());
    bench.meanwhile([&] {
        bench.meanwhile(nullptr);
        bench.outlook().closeExplorer(bench.outlook().explorers().front());
    });
    EXPECT_EQ(bench.outlook().send(window).state, SendState::Cancelled);
}

/// Where it cannot be told whether a mail is in Word, Word stays.
TEST(WordRaces, TheTimerNeverClosesAMailThatItCannotSee) {
    std::size_t call = 1;
    for (bool failed = true; failed; ++call) {
        Bench bench(inWord({}, {}));
        bench.outlook().closeInspector(bench.outlook().openNewMail(plainMail(L"Plan")));
        const Object window = bench.outlook().openNewMail(plainMail());
        const Object document = window.get(L"WordEditor").toObject();
        const std::size_t before = bench.outlook().calls();
        bench.outlook().failCall(call);
        EXPECT_TRUE(bench.world().fireTimer());
        failed = call <= bench.outlook().calls() - before;
        bench.outlook().failCall(0);
        EXPECT_EQ(document.get(L"Name").toText(), L"Budget") << call;
    }
    EXPECT_GT(call, 4U);
}

}  // namespace
