#include <gtest/gtest.h>

#include <algorithm>

#include "host/SettingsFolder.h"
#include "tests/scenarios/Bench.h"

namespace {

constexpr wchar_t oldFolder[] = L"Tarnwell Settings\\Veltro";
constexpr wchar_t newFolder[] = L"Corvane Settings\\Veltro";

host::Message listItem(const std::wstring& subject) {
    host::Message message;
    message.subject = subject;
    message.body = host::preferredAccountsItem({}).body;
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

}  // namespace
