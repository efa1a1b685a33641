#include <gtest/gtest.h>

#include "tests/accounts/listTexts.h"
#include "tests/scenarios/Bench.h"

namespace {

const std::vector<std::wstring> accountList{L"Tarnwell", L"Veltro", L"Send Account (Preferred) List"};

void openList(Bench& bench) {
    bench.outlook().pressControl(bench.outlook().explorers().back(), accountList);
}

Given withList(std::vector<std::wstring> answers) {
    return {
        .profile = profileWith(
            listText(Entries{{L"ann@example.org", L"Work"}, {L"bob@example.org", L"Gone"}}), corvaneFolder),
        .answers = std::move(answers)};
}

TEST(Menu, OpensTheAccountList) {
    Bench bench(withList({L"frmEmailAddress=cmdAdd",
                          L"frmEmailAddressEdit=txtEmailAddress=  dan@example.org ; cmbAccounts=Home; cmdOK",
                          L"frmEmailAddress=lstEmailAddress=ann@example.org (Work); cmdEdit",
                          L"frmEmailAddressEdit=txtEmailAddress=zoe@example.org; cmdOK",
                          L"frmEmailAddress=lstEmailAddress=bob@example.org (Gone); cmdDelete", L"Veltro=Yes",
                          L"frmEmailAddress=cmdClose"}));
    openList(bench);
    const auto item = bench.outlook().itemsIn(corvaneFolder).at(0);
    EXPECT_EQ(entriesOf(AccountRows(bench.outlook().view(item).body)),
              (Entries{{L"dan@example.org", L"Home"}, {L"zoe@example.org", L"Work"}}));
    ASSERT_EQ(bench.prompts().size(), 7U);
    EXPECT_EQ(bench.prompts()[0].text, L"Veltro Account List");
    EXPECT_EQ(bench.prompts()[6].control(L"lstEmailAddress").caption,
              L"dan@example.org (Home)\nzoe@example.org (Work)");
    EXPECT_TRUE(bench.outlook().errors().empty());
}

/// Each window has one menu, its own.
TEST(Menu, IsInEveryMainWindow) {
    Bench bench(withList({L"frmEmailAddress=cmdClose", L"frmEmailAddress=cmdClose"}));
    openList(bench);
    bench.outlook().openExplorer();
    openList(bench);
    EXPECT_EQ(bench.prompts().size(), 2U);
    bench.outlook().closeExplorer(bench.outlook().explorers().front());
    EXPECT_EQ(bench.outlook().explorers().size(), 1U);
}

TEST(Menu, GoesWithTheAddIn) {
    Bench removed(withList({}));
    removed.outlook().openExplorer();
    removed.disconnect(1);
    for (const auto& explorer : removed.outlook().explorers()) {
        EXPECT_THROW(removed.outlook().pressControl(explorer, {L"Tarnwell"}), automation::Error);
    }
}

TEST(Menu, SaysWhichOutlooksHaveNoAccountList) {
    Given setup{.answers = {L"Account Sentry - Veltro=OK"}};
    setup.profile.version = L"10.0.0.2627";
    Bench bench(setup);
    openList(bench);
    EXPECT_EQ(bench.prompts().at(0).text, L"Account Sentry is only supported in Outlook 2003 and above.");
}

}  // namespace
