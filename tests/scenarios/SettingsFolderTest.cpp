#include <gtest/gtest.h>

#include <algorithm>

#include "program/SettingsFolder.h"
#include "tests/accounts/listTexts.h"
#include "tests/scenarios/Bench.h"

namespace {

constexpr wchar_t oldFolder[] = L"Tarnwell Settings\\Veltro";
constexpr wchar_t newFolder[] = L"Corvane Settings\\Veltro";

host::Message listItem(const std::wstring& subject) {
    host::Message message;
    message.subject = subject;
    message.body = program::preferredAccountsItem({}).body;
    return message;
}

struct Case {
    const char* name;
    std::vector<std::wstring> folders;
    std::vector<host::StoredMessage> messages;
    std::wstring done;
    std::wstring doneAfter;
    bool moved;
    bool oldParentStays;
};

class Migration : public testing::TestWithParam<Case> {};

TEST_P(Migration, MovesTheDataOnce) {
    const Case& given = GetParam();
    Given setup{.settings = {{L"blnMoveVT", given.done}}, .answers = {L"Move Veltro Settings - Veltro=OK"}};
    setup.profile.folders = given.folders;
    setup.profile.messages = given.messages;
    Bench bench(setup);

    EXPECT_EQ(bench.world().setting(L"blnMoveVT"), given.doneAfter);
    std::vector<std::wstring> moved;
    for (const auto& item : bench.outlook().itemsIn(newFolder)) {
        moved.push_back(bench.outlook().view(item).subject);
    }
    EXPECT_EQ(moved.empty(), !given.moved);
    for (const host::StoredMessage& stored : given.messages) {
        EXPECT_EQ(std::ranges::count(moved, stored.message.subject), given.moved ? 1 : 0);
    }
    EXPECT_EQ(bench.outlook().folderExists(L"Tarnwell Settings"), given.oldParentStays);
    ASSERT_EQ(bench.prompts().size(), given.moved ? 1U : 0U);
    if (given.moved) {
        EXPECT_EQ(bench.prompts()[0].style.icon, platform::Icon::Information);
        EXPECT_EQ(
            bench.prompts()[0].text,
            L"We have made a small change on how Veltro saves its data. This will make no difference to the "
            L"way you use Veltro.\r\n\r\nYour settings have been now moved from the 'Tarnwell "
            L"Settings\\Veltro' email folder to the 'Corvane Settings\\Veltro' email folder.\r\nThis message "
            L"will not be displayed again.");
    }
}

INSTANTIATE_TEST_SUITE_P(
    Profiles, Migration,
    testing::Values(
        Case{"Moves",
             {oldFolder},
             {{oldFolder, listItem(L"note")}, {oldFolder, listItem(L" EMAIL address ")}},
             L"",
             L"1",
             true,
             false},
        Case{"OtherFolderKeepsTheParent",
             {oldFolder, L"Tarnwell Settings\\Other"},
             {{oldFolder, listItem(L"Email Address")}},
             L"",
             L"1",
             true,
             true},
        Case{"NewParentExists",
             {oldFolder, L"Corvane Settings"},
             {{oldFolder, listItem(L"Email Address")}},
             L"",
             L"1",
             true,
             false},
        Case{"NoList", {oldFolder}, {}, L"", L"1", false, true},
        Case{"NoFolder", {}, {}, L"", L"", false, false},
        Case{"DoneBefore", {oldFolder}, {{oldFolder, listItem(L"Email Address")}}, L"1", L"1", false, true}),
    [](const auto& test) { return test.param.name; });

/// Mail to Bob goes with the account of the list unasked.
Given withLists(std::vector<host::StoredMessage> lists) {
    Given setup{.settings = {{L"DoNotShowSelect", L"1"}, {L"UseOutlookSettings", L"False"}},
                .answers = {L"Move Veltro Settings - Veltro=OK"}};
    setup.profile = profileWith({});
    setup.profile.messages = std::move(lists);
    return setup;
}

std::wstring accountForBob(Bench& bench) {
    const host::SendOutcome outcome = bench.send(plainMail());
    EXPECT_EQ(outcome.state, host::SendState::Sent);
    return outcome.mail.account;
}

std::vector<std::wstring> bodiesIn(Bench& bench, const wchar_t* folder) {
    std::vector<std::wstring> bodies;
    for (const auto& item : bench.outlook().itemsIn(folder)) {
        bodies.push_back(bench.outlook().view(item).body);
    }
    return bodies;
}

const std::wstring bobAtHome = listText(Entries{{L"bob@example.org", L"Home"}});
const std::wstring bobAtWork = listText(Entries{{L"bob@example.org", L"Work"}});

TEST(MigrationFailures, NeitherLoseNorDoubleTheList) {
    bool failed = true;
    std::size_t call = 0;
    std::size_t stayed = 0;
    while (failed) {
        SCOPED_TRACE(++call);
        Given setup = withLists({storedList(bobAtHome, oldFolder)});
        setup.profile.version = L"12.0.0.4518";  // With a menu, whose calls fail here, too.
        setup.connected = false;
        setup.answers.insert(setup.answers.end(), 5, L"Veltro=OK");
        Bench bench(setup);
        const std::size_t before = bench.outlook().calls();
        bench.outlook().failCall(call);
        bench.connect();
        failed = bench.outlook().calls() - before >= call;
        bench.outlook().failCall(0);
        bench.disconnect();
        bench.connect();

        EXPECT_EQ(accountForBob(bench), L"Home");
        auto bodies = bodiesIn(bench, oldFolder);
        stayed += bodies.size();
        std::ranges::copy(bodiesIn(bench, newFolder), std::back_inserter(bodies));
        EXPECT_EQ(bodies, std::vector<std::wstring>{bobAtHome});
    }
    EXPECT_GT(call, 70U);
    EXPECT_GT(stayed, 0U);
    EXPECT_LT(stayed, call / 2);
}

/// The folder cannot be moved to where there is one already.
TEST(Migration, LeavesTwoFoldersAndUsesTheOneWithTheList) {
    struct Both {
        std::vector<std::wstring> inNew;
        std::wstring account;
    };
    for (const auto& [inNew, account] : {Both{{}, L"Home"}, Both{{bobAtWork}, L"Work"}}) {
        SCOPED_TRACE(testing::PrintToString(account));
        Given setup = withLists({storedList(bobAtHome, oldFolder)});
        setup.profile.folders = {oldFolder, newFolder};
        for (const std::wstring& list : inNew) {
            setup.profile.messages.push_back(storedList(list, newFolder));
        }
        Bench bench(setup);
        for (int start = 0; start < 2; ++start) {
            EXPECT_EQ(accountForBob(bench), account);
            EXPECT_EQ(bodiesIn(bench, oldFolder), std::vector<std::wstring>{bobAtHome});
            EXPECT_EQ(bodiesIn(bench, newFolder), inNew);
            bench.disconnect();
            bench.connect();
        }
        EXPECT_TRUE(bench.prompts().empty());
    }
}

/// An archive may hold an old copy of the settings.
TEST(Migration, LooksOnlyIntoTheStoreOfTheInbox) {
    for (const bool ownList : {true, false}) {
        Given setup = withLists({});
        if (ownList) {
            setup.profile.messages = {storedList(bobAtHome, oldFolder)};
        }
        setup.profile.stores.push_back({.name = L"Archive"});
        setup.connected = false;
        setup.answers.push_back(L"Veltro=OK");
        Bench bench(setup);
        const auto child = [](const automation::Object& folder, const wchar_t* name) {
            return folder.get(L"Folders").toObject().call(L"Add", name).toObject();
        };
        const auto session = bench.outlook().application().call(L"GetNamespace", L"MAPI").toObject();
        const auto archive = session.get(L"Folders").toObject().get(L"Item", L"Archive").toObject();
        const auto archived = child(child(archive, L"Tarnwell Settings"), L"Veltro");
        bench.outlook().store(L"Copies", storedList(bobAtWork).message).call(L"Move", archived);
        bench.connect();
        EXPECT_EQ(accountForBob(bench), ownList ? L"Home" : L"Work");
        EXPECT_EQ(bodiesIn(bench, newFolder).size(), 1U);
        const auto kept = archived.get(L"Items").toObject();
        ASSERT_EQ(kept.get(L"Count").toInteger(), 1);
        EXPECT_EQ(kept.get(L"Item", 1).toObject().get(L"Body").toText(), bobAtWork);
    }
}

}  // namespace
