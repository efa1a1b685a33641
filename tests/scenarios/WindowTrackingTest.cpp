#include <gtest/gtest.h>

#include <algorithm>

#include "platform/outlook.h"
#include "tests/scenarios/Bench.h"

namespace {

using automation::Object;
using host::ReplyKind;
using host::SendState;
using Names = std::vector<std::wstring>;

const host::Message brokenPromise = plainMail(L"Budget", L"See attached.");

std::vector<std::wstring> answers(const wchar_t* answer, std::size_t times = 1) {
    return std::vector<std::wstring>(times, answer);
}

/// Sets the cancel flag of an item's event, as another add-in may.
automation::Subscription refuse(const Object& item, std::int32_t refused) {
    return automation::subscribe(item, outlook::events::item,
                                 [refused](std::int32_t event, std::span<automation::Value> arguments) {
                                     if (event == refused) {
                                         arguments.back().variable() = true;
                                     }
                                 });
}

struct RefusedClose {
    const char* name;
    void (*close)(host::Outlook& outlook, const Object& window);
};

const RefusedClose refusals[] = {
    {"by the user", [](host::Outlook& outlook, const Object& window) { outlook.cancelClosing(window); }},
    {"twice",
     [](host::Outlook& outlook, const Object& window) {
         outlook.cancelClosing(window);
         outlook.cancelClosing(window);
     }},
    {"by another add-in",
     [](host::Outlook& outlook, const Object& window) {
         const auto token = refuse(outlook.itemOf(window), outlook::events::itemClose);
         outlook.closeInspector(window);
     }},
};

TEST(RefusedClose, LeavesTheWindowGuarded) {
    for (const RefusedClose& given : refusals) {
        for (const bool leftMeanwhile : {false, true}) {
            Bench bench({.answers = answers(L"Attachment(s) missing=No", 2)});
            const Object window = bench.outlook().openNewMail(brokenPromise);
            given.close(bench.outlook(), window);
            if (leftMeanwhile) {
                bench.outlook().activate(bench.outlook().explorers().front());
            }
            EXPECT_EQ(bench.outlook().send(window).state, SendState::Cancelled) << given.name;
            EXPECT_EQ(bench.outlook().send(window).state, SendState::Cancelled) << given.name;
            EXPECT_EQ(bench.prompts().size(), 2U) << given.name;
        }
    }
}

TEST(RefusedClose, KeepsNothingOnceTheWindowHasClosed) {
    for (const RefusedClose& given : refusals) {
        for (const bool leftMeanwhile : {false, true}) {
            Bench bench;
            const auto openAndClose = [&] {
                const Object window = bench.outlook().openNewMail(brokenPromise);
                given.close(bench.outlook(), window);
                if (leftMeanwhile) {
                    bench.outlook().activate(bench.outlook().explorers().front());
                    bench.outlook().activate(window);
                }
                bench.outlook().closeInspector(window);
            };
            openAndClose();
            const std::size_t before = bench.outlook().liveObjects();
            openAndClose();
            EXPECT_EQ(bench.outlook().liveObjects(), before) << given.name;
        }
    }
}

TEST(RefusedClose, IsForgottenWithTheAddIn) {
    Bench bench;
    const Object window = bench.outlook().openNewMail(brokenPromise);
    bench.outlook().cancelClosing(window);
    bench.disconnect();
    const std::size_t said = bench.world().debugLines().size();
    EXPECT_EQ(bench.outlook().send(window).state, SendState::Sent);
    EXPECT_TRUE(bench.prompts().empty());
    EXPECT_EQ(bench.world().debugLines().size(), said) << "events still come";
}

/// Each call of the opening of another window fails once.
TEST(ShownWindow, StaysGuardedWhateverFailsWhileOthersOpen) {
    std::size_t calls = 1;
    for (std::size_t call = 1; call <= calls; ++call) {
        Bench bench({.answers = answers(L"Attachment(s) missing=No")});
        const Object window = bench.outlook().openNewMail(brokenPromise);
        const std::size_t before = bench.outlook().calls();
        bench.outlook().failCall(call);
        bench.outlook().openNewMail(plainMail());
        bench.outlook().failCall(0);
        calls = std::max(calls, bench.outlook().calls() - before);
        EXPECT_EQ(bench.outlook().send(window).state, SendState::Cancelled) << "call " << call;
    }
    EXPECT_GT(calls, 2U);
}

/// A mail from Ann to Bob and the user: a Reply offers to write to Bob, too.
Object receiveFromAnn(Bench& bench) {
    host::Message message = plainMail();
    message.from = host::Address{.name = L"Ann", .address = L"ann@example.com"};
    message.to.push_back({.name = L"Me", .address = L"me@example.org"});
    return bench.outlook().receive(message);
}

constexpr wchar_t toBobToo[] = L"frmReplyMultRecipt=lstRecipients=1,2; cmdOK";

TEST(MailInTwoMainWindows, IsCheckedOnceAndAnsweredOnce) {
    for (const auto& [kind, inFront] : {std::pair{ReplyKind::Reply, std::size_t{0}},
                                        {ReplyKind::Reply, 1},
                                        {ReplyKind::ReplyAll, 0},
                                        {ReplyKind::ReplyAll, 1}}) {
        Bench bench({.answers = answers(toBobToo)});
        bench.outlook().openExplorer();
        const auto windows = bench.outlook().explorers();
        const Object item = receiveFromAnn(bench);
        for (const Object& window : windows) {
            bench.outlook().select(window, {item});
        }
        bench.outlook().activate(windows[inFront]);
        EXPECT_EQ(bench.outlook().answer(kind, item).newInspectors.size(), 1U);
        EXPECT_EQ(bench.prompts().size(), 1U) << inFront;
    }
}

/// A program answers a mail that is selected in `selected` of three main windows, none of them in front.
TEST(MailInMainWindowsBehind, IsCheckedOnceWhenAProgramAnswersIt) {
    for (const std::size_t selected : {1, 2}) {
        Bench bench({.answers = answers(toBobToo)});
        bench.outlook().openExplorer();
        bench.outlook().openExplorer();
        const auto windows = bench.outlook().explorers();
        const Object item = receiveFromAnn(bench);
        const Object other = bench.outlook().receive(plainMail());
        for (std::size_t window = 0; window < windows.size(); ++window) {
            bench.outlook().select(windows[window], {window < selected ? item : other});
        }
        bench.outlook().activate(windows.back());
        item.call(L"ReplyAll");
        EXPECT_EQ(bench.prompts().size(), 1U) << selected;
    }
}

/// Rather once too often than never.
TEST(MailInTwoMainWindows, IsCheckedWhenTheWindowInFrontCannotBeTold) {
    Bench bench({.answers = answers(toBobToo, 10)});
    bench.outlook().openExplorer();
    const Object item = receiveFromAnn(bench);
    for (const Object& window : bench.outlook().explorers()) {
        bench.outlook().select(window, {item});
    }
    const auto reply = [&] {
        for (const Object& opened : bench.outlook().reply(item).newInspectors) {
            bench.outlook().closeInspector(opened);
        }
    };
    bench.outlook().meter()->record(true);
    reply();
    const Names calls = bench.outlook().meter()->log();
    std::size_t failures = 0;
    for (std::size_t call = 0; call < calls.size(); ++call) {
        if (calls[call] == L"Application.ActiveExplorer" || calls[call] == L"Application.ActiveInspector") {
            const std::size_t before = bench.prompts().size();
            bench.outlook().failCall(call + 1);
            reply();
            EXPECT_GT(bench.prompts().size(), before) << "call " << call + 1;
            ++failures;
        }
    }
    EXPECT_GE(failures, 4U) << "each of the windows asks";
}

/// The window in front shows something else, and whether it does cannot be told.
TEST(MailInMainWindowsBehind, IsCheckedWhenTheMailInFrontCannotBeTold) {
    Bench bench({.answers = answers(toBobToo, 2)});
    bench.outlook().openExplorer();
    const auto windows = bench.outlook().explorers();
    const Object item = receiveFromAnn(bench);
    bench.outlook().select(windows[0], {bench.outlook().receive(plainMail())});
    bench.outlook().select(windows[1], {item});
    bench.outlook().activate(windows[0]);
    bench.outlook().meter()->record(true);
    item.call(L"ReplyAll");
    const Names calls = bench.outlook().meter()->log();
    const auto asked = std::ranges::find(calls, L"Application.ActiveExplorer");
    ASSERT_LT(asked + 1, calls.end());
    EXPECT_EQ(asked[1], L"MailItem.EntryID");
    bench.outlook().failCall(static_cast<std::size_t>(asked - calls.begin()) + 2);
    item.call(L"ReplyAll");
    EXPECT_EQ(bench.prompts().size(), 2U);
}

/// The window was open before the add-in came, and its mail is selected in the main window, too.
TEST(MailInAWindowFromBefore, IsCheckedOnce) {
    Bench bench({.answers = answers(toBobToo), .connected = false});
    const Object item = receiveFromAnn(bench);
    bench.outlook().openItem(item);
    bench.connect();
    bench.outlook().select(bench.outlook().explorers().front(), {item});
    bench.outlook().reply(item);
    EXPECT_EQ(bench.prompts().size(), 1U);
}

/// Outlook lets events in while it is called: windows come and go inside each call of a send and of a reply.
TEST(EventsInsideCalls, TakeNoQuestionAway) {
    bool inside = true;
    for (std::size_t call = 1; inside; ++call) {
        Bench bench({.answers = {L"Attachment(s) missing=No", toBobToo, toBobToo}});
        bench.outlook().openExplorer();
        const Object item = receiveFromAnn(bench);
        for (const Object& window : bench.outlook().explorers()) {
            bench.outlook().select(window, {item});
        }
        inside = false;
        const auto interrupt = [&] {
            bench.outlook().meter()->duringCall(call, [&] {
                inside = true;
                bench.outlook().closeInspector(bench.outlook().openNewMail(plainMail()));
                bench.outlook().closeExplorer(bench.outlook().openExplorer());
            });
        };
        const Object window = bench.outlook().openNewMail(brokenPromise);
        interrupt();
        EXPECT_EQ(bench.outlook().send(window).state, SendState::Cancelled) << "call " << call;
        interrupt();
        EXPECT_FALSE(bench.outlook().reply(item).newInspectors.empty()) << "call " << call;
        EXPECT_GE(bench.prompts().size(), 2U) << "call " << call;
        EXPECT_TRUE(bench.outlook().errors().empty()) << "call " << call;
    }
}

TEST(CancelledAnswer, IsNotChecked) {
    for (const auto& [event, kind] : {std::pair{outlook::events::itemReply, ReplyKind::Reply},
                                      {outlook::events::itemReplyAll, ReplyKind::ReplyAll},
                                      {outlook::events::itemForward, ReplyKind::Forward}}) {
        Bench bench;
        host::Message spam = plainMail(L"SPAM-LOW: Budget");
        spam.deliveryTime = automation::Date{36526};  // 1 January 2000
        const Object item = bench.outlook().receive(spam);
        const auto otherAddIn = refuse(item, event);
        bench.outlook().select(bench.outlook().explorers().front(), {item});
        EXPECT_TRUE(bench.outlook().answer(kind, item).newInspectors.empty());
        EXPECT_TRUE(bench.prompts().empty());
    }
}

TEST(Outbox, EndsTheWatchOfTheMailSelectedBefore) {
    Bench bench;
    const Object item = receiveFromAnn(bench);
    const Object window = bench.outlook().explorers().front();
    bench.outlook().select(window, {item});
    bench.outlook().switchFolder(window, L"Outbox");
    item.call(L"Reply");
    EXPECT_TRUE(bench.prompts().empty());
}

}  // namespace
