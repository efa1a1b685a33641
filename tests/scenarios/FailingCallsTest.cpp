#include <gtest/gtest.h>

#include <algorithm>

#include "tests/accounts/listTexts.h"
#include "tests/scenarios/Bench.h"

namespace {

/// A user's session: connect, open a mail that promises a file, send it, disconnect.
struct Session {
    bool sent = false;
    bool askedAndDenied = false;
    std::size_t calls = 0;
};

Session run(std::size_t failing) {
    Given setup{.connected = false};
    setup.answers = std::vector<std::wstring>(20, L"Veltro=OK");
    setup.answers.push_back(L"Attachment(s) missing=No");
    Bench bench(setup);
    bench.outlook().failCall(failing);
    bench.connect();
    Session session;
    session.sent = bench.send(plainMail(L"Budget", L"See attached")).state == host::SendState::Sent;
    bench.disconnect();
    bench.outlook().failCall(0);
    const auto names = bench.promptNames();
    session.askedAndDenied = std::ranges::find(names, attachmentPrompt) != names.end();
    session.calls = bench.outlook().calls();
    return session;
}

TEST(FailingCalls, NeverCancelASendThatNobodyDenied) {
    const Session whole = run(0);
    ASSERT_TRUE(whole.askedAndDenied);
    ASSERT_FALSE(whole.sent);
    for (std::size_t n = 1; n <= whole.calls; ++n) {
        const Session session = run(n);
        EXPECT_NE(session.sent, session.askedAndDenied) << "call " << n << " of " << whole.calls;
    }
}

/// A session with a mail whose every text is told apart from what else could be in a trace.
struct Traced {
    std::vector<std::string> lines;
    bool escaped = false;
    std::size_t calls = 0;
};

Traced trace(std::size_t failing) {
    Given setup{.settings = {{L"DisplayConfirmation", L"1"}}, .connected = false};
    setup.answers = std::vector<std::wstring>(20, L"Veltro=OK");
    setup.answers.insert(setup.answers.end(), {L"Attachment(s) missing=Yes", L"Confirm Email Send=Yes"});
    Bench bench(setup);
    bench.outlook().failCall(failing);
    Traced traced;
    traced.escaped = !bench.connect();
    bench.send(plainMail(L"MailText", L"MailText attached"));
    bench.disconnect();
    bench.outlook().failCall(0);
    traced.escaped = traced.escaped || !bench.outlook().errors().empty();
    traced.lines = bench.world().debugLines();
    traced.calls = bench.outlook().calls();
    return traced;
}

/// Whatever fails is in the trace or known to Outlook; what the mail says is not.
TEST(FailingCalls, LeaveAnEntryInTheTraceWithoutTheMailsTexts) {
    const Traced whole = trace(0);
    const auto failures = [](const Traced& traced) {
        return std::ranges::count_if(traced.lines, [](const std::string& line) {
            return line.ends_with("): error " + std::to_string(automation::errors::failed));
        });
    };
    for (std::size_t n = 1; n <= whole.calls; ++n) {
        const Traced traced = trace(n);
        EXPECT_TRUE(traced.escaped || failures(traced) > failures(whole)) << "call " << n;
        for (const std::string& line : traced.lines) {
            EXPECT_EQ(line.find("MailText"), std::string::npos) << line;
            EXPECT_EQ(line.find("bob"), std::string::npos) << line;
        }
    }
}

struct Pressed {
    host::ReplyOutcome outcome;
    std::size_t calls = 0;
};

/// Presses the button for a mail from Ann to Bob and the user, while the n-th call fails.
Pressed press(Bench& bench, host::ReplyKind kind, std::size_t failing) {
    host::Message message = plainMail();
    message.from = host::Address{.name = L"Ann", .address = L"ann@example.com"};
    message.to.push_back({.name = L"Me", .address = L"me@example.org"});
    const auto item = bench.outlook().receive(message);
    bench.outlook().select(bench.outlook().explorers().front(), {item});
    const std::size_t before = bench.outlook().calls();
    bench.outlook().failCall(failing);
    Pressed pressed{.outcome = bench.outlook().answer(kind, item)};
    bench.outlook().failCall(0);
    pressed.calls = bench.outlook().calls() - before;
    return pressed;
}

/// A Reply to All whose user unticks Bob.
struct Answering {
    bool opened = false;
    bool bobDropped = false;
    bool reported = false;
    std::size_t calls = 0;
};

Answering replyAll(std::size_t failing, const wchar_t* blindCopyCheck) {
    Given given{.settings = {{L"PromptReplyOnOlderEmails", L"False"}, {L"ReplyALL_BCC", blindCopyCheck}}};
    given.answers = std::vector<std::wstring>(20, L"Veltro=OK");
    given.answers.insert(given.answers.end(),
                         {L"BCCed e-mail=Yes", L"frmReplyMultRecipt=lstRecipients=2; cmdOK"});
    Bench bench(given);
    const auto [outcome, calls] = press(bench, host::ReplyKind::ReplyAll, failing);
    Answering answering{.opened = outcome.opened, .calls = calls};
    if (outcome.opened) {
        answering.bobDropped =
            std::ranges::none_of(bench.outlook().view(outcome.item).recipients,
                                 [](const auto& recipient) { return recipient.address.name == L"Bob"; });
    }
    const auto names = bench.promptNames();
    // Without the dialog nobody asked for Bob to be dropped.
    answering.reported = std::ranges::find(names, L"Veltro") != names.end() ||
                         std::ranges::find(names, L"frmReplyMultRecipt") == names.end();
    return answering;
}

TEST(FailingCalls, NeverCancelAReplyNorKeepADroppedRecipientSilently) {
    for (const wchar_t* blindCopyCheck : {L"True", L"False"}) {
        const Answering whole = replyAll(0, blindCopyCheck);
        ASSERT_TRUE(whole.opened && whole.bobDropped && !whole.reported);
        for (std::size_t n = 1; n <= whole.calls; ++n) {
            const Answering answering = replyAll(n, blindCopyCheck);
            EXPECT_TRUE(answering.opened) << "call " << n << " of " << whole.calls;
            EXPECT_TRUE(answering.bobDropped || answering.reported) << "call " << n << " of " << whole.calls;
        }
    }
}

TEST(FailingCalls, NeverLoseAPlainReplyNorLeaveASecond) {
    std::size_t calls = 1;
    std::wstring reports;
    for (std::size_t n = 0; n <= calls; ++n) {
        // Where there is a list the reply is the first to ask for Outlook's version.
        Given given{.profile = profileWith(listText(Entries{}), corvaneFolder),
                    .answers = std::vector<std::wstring>(20, L"Veltro=OK")};
        given.answers.push_back(L"frmReplyMultRecipt=lstRecipients=1,2; cmdOK");
        Bench bench(given);
        const auto [outcome, made] = press(bench, host::ReplyKind::Reply, n);
        EXPECT_FALSE(outcome.newInspectors.empty()) << "call " << n << " of " << calls;
        // The draft is the reply of the add-in's own making; one that was given up leaves nothing behind.
        EXPECT_EQ(bench.outlook().itemsIn(L"Drafts").size(), outcome.opened ? 0U : 1U) << "call " << n;
        EXPECT_TRUE(bench.outlook().itemsIn(L"Deleted Items").empty()) << "call " << n;
        if (n == 0) {
            calls = made;
            ASSERT_FALSE(outcome.opened) << "the other recipients were not offered";
        }
        for (const PromptLog::Prompt& prompt : bench.prompts()) {
            reports += prompt.text + L"\n";
        }
    }
    for (const wchar_t* report :
         {L"\nbasVeltro.vtOldSubject - Error ", L") in procedure vtGetUserEmails of Module basVeltro\n"}) {
        EXPECT_NE(reports.find(report), std::wstring::npos) << text::toUtf8(report);
    }
}

}  // namespace
