#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "tests/accounts/listTexts.h"
#include "tests/scenarios/Bench.h"

namespace {

/// What the user is told when a call of Outlook fails.
using Reports = std::set<std::wstring>;

// The forms of a report of the failure that the host makes.

std::wstring failed(const std::wstring& procedure) {
    return procedure + L" - Error -2147467259: The operation failed.";
}
std::wstring inCheck(const std::wstring& procedure) {
    return procedure + L" - Error: -2147467259 The operation failed.";
}
std::wstring inModule(const std::wstring& procedure) {
    return L"Error -2147467259 (The operation failed.) in procedure " + procedure + L" of Module basVeltro";
}

void addReports(const Bench& bench, Reports& reports) {
    for (const PromptLog::Prompt& prompt : bench.prompts()) {
        if (prompt.where == L"Veltro") {
            reports.insert(prompt.text);
        }
    }
}

/// A user's session: connect, open a mail that promises a file, send it, disconnect.
struct Session {
    bool sent = false;
    bool askedAndDenied = false;
    std::size_t calls = 0;
    Reports reports;
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
    addReports(bench, session.reports);
    return session;
}

TEST(FailingCalls, NeverCancelASendThatNobodyDenied) {
    const Session whole = run(0);
    ASSERT_TRUE(whole.askedAndDenied);
    ASSERT_FALSE(whole.sent);
    Reports reports;
    for (std::size_t n = 1; n <= whole.calls; ++n) {
        Session session = run(n);
        reports.merge(session.reports);
        EXPECT_NE(session.sent, session.askedAndDenied) << "call " << n << " of " << whole.calls;
    }
    EXPECT_EQ(reports,
              (Reports{inModule(L"vtAccountsEmailAddress"), failed(L"clsSendAcct.EmailAddressListMailOpen"),
                       inCheck(L"vtAttachMissingCheck"), inCheck(L"vtEmptySubjectCheck")}));
}

/// A session with a mail whose every text is told apart from what else could be in a trace.
struct Traced {
    std::vector<std::string> lines;
    Reports reports;
    bool escaped = false;
    std::size_t calls = 0;
};

Traced trace(const wchar_t* confirmation, std::size_t failing) {
    Given setup{.settings = {{L"DisplayConfirmation", confirmation},
                             {L"ConfirmEmailAddrs", L"bob@example.com"},
                             {L"DelayEmails", L"True"},
                             {L"NotifyBeforeDelaying", L"False"},
                             {L"AutoDelayAll", L"0"},
                             {L"DelayedEmailAddrs", L"bob@example.com"}},
                .connected = false};
    setup.answers = std::vector<std::wstring>(20, L"Veltro=OK");
    setup.answers.insert(setup.answers.end(), {L"Attachment(s) missing=Yes", L"Confirm Email Send=Yes"});
    Bench bench(setup);
    const std::size_t before = bench.outlook().calls();
    bench.outlook().failCall(failing);
    Traced traced;
    traced.escaped = !bench.connect();
    bench.send(plainMail(L"MailText", L"MailText attached"));
    bench.disconnect();
    bench.outlook().failCall(0);
    traced.escaped = traced.escaped || !bench.outlook().errors().empty();
    traced.lines = bench.world().debugLines();
    traced.calls = bench.outlook().calls() - before;
    addReports(bench, traced.reports);
    return traced;
}

/// Whatever fails is in the trace or known to Outlook; what the mail says is not.
TEST(FailingCalls, LeaveAnEntryInTheTraceWithoutTheMailsTexts) {
    Reports reports;
    const auto failures = [](const Traced& traced) {
        return std::ranges::count_if(traced.lines, [](const std::string& line) {
            return line.ends_with("): error " + std::to_string(automation::errors::failed));
        });
    };
    for (const wchar_t* confirmation : {L"1", L"2"}) {
        const Traced whole = trace(confirmation, 0);
        for (std::size_t n = 1; n <= whole.calls; ++n) {
            Traced traced = trace(confirmation, n);
            reports.merge(traced.reports);
            EXPECT_TRUE(traced.escaped || failures(traced) > failures(whole)) << "call " << n;
            for (const std::string& line : traced.lines) {
                EXPECT_EQ(line.find("MailText"), std::string::npos) << line;
                EXPECT_EQ(line.find("bob"), std::string::npos) << line;
            }
        }
    }
    EXPECT_EQ(reports,
              (Reports{inModule(L"vtAccountsEmailAddress"),
                       L"Error Number : -2147467259\r\nError Description : The operation failed.",
                       L"Unable to create the folder.", failed(L"basVeltro.AtLeast1EmailInRecipt"),
                       failed(L"basVeltro.GetFirstTORecipient"),
                       failed(L"clsSendAcct.EmailAddressListMailOpen"), inCheck(L"vtAttachMissingCheck"),
                       inCheck(L"vtDelayEmailSending"), inCheck(L"vtEmptySubjectCheck")}));
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
    Reports reports;
};

Answering replyAll(std::size_t failing, const wchar_t* blindCopyCheck) {
    Given given{.settings = {{L"PromptReplyOnOlderEmails", L"False"}, {L"ReplyALL_BCC", blindCopyCheck}}};
    given.answers = std::vector<std::wstring>(20, L"Veltro=OK");
    given.answers.insert(given.answers.end(),
                         {L"BCCed e-mail=Yes", L"frmReplyMultRecipt=lstRecipients=2; cmdOK"});
    Bench bench(given);
    const auto [outcome, calls] = press(bench, host::ReplyKind::ReplyAll, failing);
    Answering answering{.opened = outcome.opened, .calls = calls, .reports = {}};
    if (outcome.opened) {
        answering.bobDropped =
            std::ranges::none_of(bench.outlook().view(outcome.item).recipients,
                                 [](const auto& recipient) { return recipient.address.name == L"Bob"; });
    }
    const auto names = bench.promptNames();
    addReports(bench, answering.reports);
    // Without the dialog nobody asked for Bob to be dropped.
    answering.reported = std::ranges::find(names, L"Veltro") != names.end() ||
                         std::ranges::find(names, L"frmReplyMultRecipt") == names.end();
    return answering;
}

TEST(FailingCalls, NeverCancelAReplyNorKeepADroppedRecipientSilently) {
    Reports reports;
    for (const wchar_t* blindCopyCheck : {L"True", L"False"}) {
        const Answering whole = replyAll(0, blindCopyCheck);
        ASSERT_TRUE(whole.opened && whole.bobDropped && !whole.reported);
        for (std::size_t n = 1; n <= whole.calls; ++n) {
            Answering answering = replyAll(n, blindCopyCheck);
            reports.merge(answering.reports);
            EXPECT_TRUE(answering.opened) << "call " << n << " of " << whole.calls;
            EXPECT_TRUE(answering.bobDropped || answering.reported) << "call " << n << " of " << whole.calls;
        }
    }
    EXPECT_EQ(reports, (Reports{inModule(L"vtAccountsEmailAddress"), inModule(L"vtCheckIfUserInRecipients"),
                                inModule(L"vtReplyAllCheck"), failed(L"basGlobals.AddUserProperties"),
                                failed(L"basVeltro.pruneReply"), failed(L"basVeltro.vtRemoveSpamMarks")}));
}

/// Presses "Check now" for a mail that promises a file while the n-th call fails.
TEST(FailingCalls, NeverHaveACheckNowSayThatAllIsWell) {
    Reports reports;
    std::size_t calls = 1;
    for (std::size_t n = 0; n <= calls; ++n) {
        Given given{.answers = std::vector<std::wstring>(20, L"Veltro=OK")};
        given.answers.push_back(L"Attachment(s) missing=No");
        Bench bench(given);
        const auto window = bench.outlook().openNewMail(plainMail(L"Budget", L"See attached"));
        const std::size_t before = bench.outlook().calls();
        bench.outlook().failCall(n);
        bench.outlook().pressRibbon(window, L"Check now");
        bench.outlook().failCall(0);
        calls = n == 0 ? bench.outlook().calls() - before : calls;
        EXPECT_FALSE(bench.prompts().empty()) << "call " << n << " of " << calls;
        EXPECT_EQ(bench.outlook().inspectors().size(), 1U);
        addReports(bench, reports);
    }
    EXPECT_GT(calls, 8U);
    EXPECT_EQ(reports, (Reports{failed(L"Ribbon.Pressed"), inCheck(L"vtAttachMissingCheck"),
                                inCheck(L"vtEmptySubjectCheck")}));
}

/// Which call of a start asks for Outlook's version.
std::size_t callForVersion() {
    Bench bench({.profile = profileWith(listText(Entries{}), corvaneFolder), .connected = false});
    bench.outlook().meter()->record(true);
    bench.connect();
    const auto log = bench.outlook().meter()->log();
    const auto found = std::ranges::find(log, L"Application.Version");
    return static_cast<std::size_t>(found - log.begin()) + 1;
}

TEST(FailingCalls, NeverLoseAPlainReplyNorLeaveASecond) {
    const std::size_t versionCall = callForVersion();
    std::size_t calls = 1;
    Reports reports;
    for (std::size_t n = 0; n <= calls; ++n) {
        // Where there is a list, and the start could not read Outlook's version, the reply is the next to
        // ask.
        Given given{.profile = profileWith(listText(Entries{}), corvaneFolder),
                    .answers = std::vector<std::wstring>(20, L"Veltro=OK"),
                    .connected = false};
        given.answers.push_back(L"frmReplyMultRecipt=lstRecipients=1,2; cmdOK");
        Bench bench(given);
        bench.outlook().failCall(versionCall);
        bench.connect();
        bench.outlook().failCall(0);
        const auto [outcome, made] = press(bench, host::ReplyKind::Reply, n);
        EXPECT_FALSE(outcome.newInspectors.empty()) << "call " << n << " of " << calls;
        // The draft is the reply of the add-in's own making; one that was given up leaves nothing behind.
        EXPECT_EQ(bench.outlook().itemsIn(L"Drafts").size(), outcome.opened ? 0U : 1U) << "call " << n;
        EXPECT_TRUE(bench.outlook().itemsIn(L"Deleted Items").empty()) << "call " << n;
        if (n == 0) {
            calls = made;
            ASSERT_FALSE(outcome.opened) << "the other recipients were not offered";
        }
        addReports(bench, reports);
    }
    Reports expected{inModule(L"vtAccountsEmailAddress"), inModule(L"vtCheckIfUserInRecipients"),
                     inModule(L"vtReplyCheck"),           failed(L"basVeltro.pruneReply"),
                     failed(L"basVeltro.vtOldSubject"),   failed(L"basVeltro.vtRemoveSpamMarks")};
    if (usualProvider == Provider::Redemption) {  // Else the start has insisted on the version.
        expected.insert(inModule(L"vtGetUserEmails"));
    }
    EXPECT_EQ(reports, expected);
}

}  // namespace
