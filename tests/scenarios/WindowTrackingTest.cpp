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
    EXPECT_EQ(bench.outlook().send(window).state, SendState::Sent);
    EXPECT_TRUE(bench.prompts().empty());
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

}  // namespace
