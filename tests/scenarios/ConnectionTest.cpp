#include <gtest/gtest.h>

#include <algorithm>

#include "tests/scenarios/Bench.h"

namespace {

using host::SendState;

constexpr wchar_t promise[] = L"See the attached report.";

host::Profile startedWith(int explorers, int inspectors) {
    host::Profile profile;
    profile.explorers = explorers;
    profile.inspectors = inspectors;
    return profile;
}

/// A mail with a broken promise is stopped in a window that opens now.
bool guards(Bench& bench) {
    return bench.send(plainMail(L"Budget", promise)).state == SendState::Cancelled;
}

TEST(Connection, GuardsWindowsThatOpenAfterIt) {
    for (const auto& [explorers, inspectors] : {std::pair{1, 0}, {0, 1}, {2, 1}, {0, 0}}) {
        Bench bench(
            {.profile = startedWith(explorers, inspectors), .answers = {L"Attachment(s) missing=No"}});
        EXPECT_TRUE(guards(bench)) << explorers << " explorers, " << inspectors << " inspectors";
    }
}

TEST(Connection, GuardsWindowsThatWereOpenBefore) {
    Bench bench({.answers = {L"Attachment(s) missing=No", L"BCCed e-mail=No"}, .connected = false});
    const auto window = bench.outlook().openNewMail(plainMail(L"Budget", promise));
    const auto item = bench.outlook().receive(plainMail());
    bench.outlook().select(bench.outlook().explorers().front(), {item});
    bench.connect();
    EXPECT_EQ(bench.outlook().send(window).state, SendState::Cancelled);
    bench.outlook().replyAll(item);
    EXPECT_EQ(bench.prompts().size(), 2U);
    bench.outlook().closeInspector(window);
}

TEST(Connection, EndsWithDisconnection) {
    Bench bench;
    bench.disconnect();
    EXPECT_FALSE(guards(bench));
    EXPECT_TRUE(bench.outlook().errors().empty());
}

TEST(Connection, SurvivesTheClosingOfTheLastWindow) {
    Bench bench({.answers = {L"Attachment(s) missing=No"}});
    bench.outlook().closeExplorer(bench.outlook().explorers().front());
    EXPECT_TRUE(guards(bench));
}

TEST(Connection, OutlivesOtherWindowsWhileAMailIsOpen) {
    Bench bench({.settings = {{L"DisplayConfirmation", L"1"}},
                 .answers = {L"Attachment(s) missing=Yes", L"Confirm=No"}});
    const auto mail = bench.outlook().openNewMail(plainMail(L"Budget", promise));
    const auto otherMail = bench.outlook().openNewMail(plainMail());
    bench.outlook().closeExplorer(bench.outlook().explorers().front());
    bench.outlook().closeInspector(otherMail);
    EXPECT_EQ(bench.outlook().send(mail).state, SendState::Cancelled);
    EXPECT_EQ(bench.prompts().size(), 2U);
}

/// What runs without a window is none of the add-in's business.
TEST(Connection, LetsGoOfOutlookWithTheLastWindow) {
    for (const bool mailLast : {false, true}) {
        Bench bench;
        const auto draft = bench.outlook().store(L"Drafts", plainMail());
        const auto other = bench.outlook().store(L"Drafts", plainMail());
        const auto callsOf = [&](const automation::Object& item) {
            const std::size_t before = bench.outlook().calls();
            bench.outlook().sendByProgram(item);
            return bench.outlook().calls() - before;
        };
        if (mailLast) {
            bench.outlook().openNewMail(plainMail());
        }
        bench.outlook().closeExplorer(bench.outlook().explorers().front());
        if (mailLast) {
            EXPECT_GT(callsOf(draft), 0U);
            bench.outlook().closeInspector(bench.outlook().inspectors().front());
        }
        EXPECT_EQ(callsOf(other), 0U) << mailLast;
    }
}

/// Outlook lets events in while it is called: a main window opens inside each call of the start.
TEST(Connection, WatchesAWindowThatOpensMeanwhileOnce) {
    std::size_t checked = 0;
    bool inside = true;
    for (std::size_t call = 1; inside; ++call) {
        Bench bench({.answers = {L"BCCed e-mail=Yes", L"frmReplyMultRecipt=cmdOK", L"BCCed e-mail=Yes",
                                 L"frmReplyMultRecipt=cmdOK"},
                     .connected = false});
        inside = false;
        bench.outlook().duringCall(call, [&] {
            inside = true;
            bench.outlook().openExplorer();
        });
        bench.connect();
        bench.outlook().duringCall(0, nullptr);
        const auto item = bench.outlook().receive(plainMail());
        bench.outlook().select(bench.outlook().explorers().back(), {item});
        bench.outlook().replyAll(item);
        EXPECT_LE(bench.prompts().size(), 2U) << "call " << call;
        checked += bench.prompts().size() / 2;
    }
    EXPECT_GT(checked, 1U);
}

TEST(Connection, LeavesMainWindowsAloneAfterAStartWithoutAny) {
    Bench bench({.profile = startedWith(0, 0)});
    const auto window = bench.outlook().openExplorer();
    const auto item = bench.outlook().receive(plainMail());
    bench.outlook().select(window, {item});
    bench.outlook().replyAll(item);
    EXPECT_TRUE(bench.prompts().empty());
}

TEST(Connection, HoldsNothingOfWindowsThatItDoesNotWatch) {
    const auto held = [](int itemClass) {
        Bench bench;
        host::Message message = plainMail();
        message.itemClass = itemClass;
        bench.outlook().openNewMail(message);
        bench.outlook().openNewMail(plainMail());
        return bench.world().heldObjects();
    };
    EXPECT_LT(held(host::itemClass::note), held(host::itemClass::post));
}

TEST(Connection, KeepsGuardingThroughAThousandWindows) {
    Bench bench({.answers = {L"Attachment(s) missing=No"}});
    for (int window = 0; window < 1000; ++window) {
        bench.outlook().closeInspector(bench.outlook().openNewMail(plainMail()));
        bench.outlook().closeExplorer(bench.outlook().openExplorer());
    }
    EXPECT_TRUE(guards(bench));
    EXPECT_TRUE(bench.outlook().errors().empty());
}

TEST(Connection, NeedsNoResourceLibrary) {
    Bench bench({.answers = {L"Attachment(s) missing - Veltro=No"}, .resourceLibrary = false});
    EXPECT_TRUE(guards(bench));
}

TEST(Connection, KnowsItsOwnNameHoweverOutlookStarts) {
    for (const int explorers : {1, 0}) {
        Bench bench({.profile = startedWith(explorers, 0), .connected = false});
        bench.outlook().meter()->record(true);
        bench.connect();
        const auto& calls = bench.outlook().meter()->log();
        EXPECT_NE(std::ranges::find(calls, L"COMAddIn.ProgId"), calls.end()) << explorers << " explorers";
    }
}

TEST(Connection, ItemThatIsGoneIsNotChecked) {
    Bench bench;
    const auto inspector = bench.outlook().openNewMail(plainMail(L"", promise));
    bench.outlook().deleteItem(bench.outlook().itemOf(inspector));
    try {
        bench.outlook().send(inspector);
    } catch (const automation::Error&) {
        // Outlook itself cannot send it; what counts is that nobody was asked about it.
    }
    EXPECT_TRUE(bench.prompts().empty());
}

TEST(Presets, AreCopiedOncePerId) {
    struct Case {
        const char* name;
        std::map<std::wstring, std::wstring> presets;
        std::map<std::wstring, std::wstring> settings;
        std::wstring delay;
        std::wstring id;
    };
    const Case cases[] = {
        {"none", {}, {{L"DelayTime", L"5"}}, L"5", L""},
        {"new id", {{L"PreSetupID", L"7"}, {L"DelayTime", L"90"}}, {{L"DelayTime", L"5"}}, L"90", L"7"},
        {"same id",
         {{L"PreSetupID", L" 7"}, {L"DelayTime", L"90"}},
         {{L"PreSetupID", L"7 "}, {L"DelayTime", L"5"}},
         L"5",
         L"7 "},
        {"no id", {{L"DelayTime", L"90"}}, {{L"DelayTime", L"5"}}, L"5", L""},
    };
    for (const Case& given : cases) {
        Bench bench({.settings = given.settings, .presets = given.presets});
        EXPECT_EQ(bench.world().setting(L"DelayTime").value_or(L""), given.delay) << given.name;
        EXPECT_EQ(bench.world().setting(L"PreSetupID").value_or(L""), given.id) << given.name;
    }
}

TEST(OwnAddresses, FollowTheProfileUnlessTheUserListsThem) {
    Given setup{.settings = {{L"EmailList", L"old@example.org"}}};
    setup.profile.accounts = {{.name = L"Work", .address = L"me@work.example"},
                              {.name = L"Mailbox", .address = L"", .type = host::AccountType::Exchange},
                              {.name = L"Home", .address = L"me@home.example"}};
    setup.profile.stores[0].kind = host::StoreKind::PrimaryExchange;
    setup.profile.stores[0].owner = host::Address{
        .name = L"Me", .address = L"/o=x/cn=me", .type = L"EX", .smtpAddress = L"me@corp.example"};
    setup.profile.user = setup.profile.stores[0].owner;
    for (const auto& [useProfile, expected] :
         {std::pair{L"True", L"me@work.example;me@corp.example;me@home.example"},
          {L"False", L"old@example.org"}}) {
        setup.settings[L"UseOutlookSettings"] = useProfile;
        Bench bench(setup);
        EXPECT_EQ(bench.world().setting(L"EmailList"), expected);
    }
}

TEST(OwnAddresses, OfAnUnreadableProfileStayAsTheyWere) {
    Given setup{.settings = {{L"EmailList", L"me@example.org"}}, .answers = {L"Veltro=OK"}};
    setup.profile.redemptionRegistered = false;
    Bench bench(setup);
    EXPECT_EQ(bench.world().setting(L"EmailList"), L"me@example.org");
}

}  // namespace
