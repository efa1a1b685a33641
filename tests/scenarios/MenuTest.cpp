#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "platform/text.h"
#include "tests/accounts/listTexts.h"
#include "tests/scenarios/Bench.h"

namespace {

using automation::Object;
using automation::Value;

const std::vector<std::wstring> accountList{L"Tarnwell", L"Veltro", L"Send Account (Preferred) List"};

void openList(Bench& bench) {
    bench.outlook().pressControl(bench.outlook().explorers().back(), accountList);
}

/// The last Outlook whose main windows have menus.
Given inOutlook2007(Given setup = {}) {
    setup.profile.version = L"12.0.0.4518";
    return setup;
}

Given withList(std::vector<std::wstring> answers) {
    return inOutlook2007(
        {.profile = profileWith(
             listText(Entries{{L"ann@example.org", L"Work"}, {L"bob@example.org", L"Gone"}}), corvaneFolder),
         .answers = std::move(answers)});
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
    EXPECT_EQ(entriesOf(accounts::AccountRows(bench.outlook().view(item).body)),
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

Object menuBar(const Object& explorer) {
    return explorer.get(L"CommandBars")
        .toObject()
        .get(L"Item", L"Menu Bar")
        .toObject()
        .get(L"Controls")
        .toObject();
}

Object firstMenuBar(Bench& bench) {
    return menuBar(bench.outlook().explorers().front());
}

Object entriesOf(const Object& controls, const wchar_t* caption) {
    return controls.get(L"Item", caption).toObject().get(L"Controls").toObject();
}

std::vector<std::wstring> captions(const Object& controls) {
    std::vector<std::wstring> list;
    for (std::int32_t index = 1; index <= controls.get(L"Count").toInteger(); ++index) {
        list.push_back(controls.get(L"Item", index).toObject().get(L"Caption").toText());
    }
    return list;
}

/// What stands behind Outlook's own menus, Help included.
std::vector<std::wstring> lastMenus(const Object& explorer) {
    auto list = captions(menuBar(explorer));
    list.erase(list.begin(), std::ranges::find(list, L"&Actions") + 1);
    return list;
}

TEST(Menu, HasItsCommandsInOrder) {
    const struct {
        const wchar_t* caption;
        bool lineAbove;
        bool picture;
    } expected[] = {
        {L"Send Account (Preferred) List", false, false},
        {L"Settings", false, false},
        {L"Check for Updates", true, false},
        {L"Veltro Help", false, true},
        {L"Contact Support", false, false},
        {L"About Veltro", true, false},
    };
    Bench bench(inOutlook2007());
    const Object explorer = bench.outlook().openExplorer();
    const Object commands = entriesOf(entriesOf(menuBar(explorer), L"Tarnwell"), L"Veltro");
    ASSERT_EQ(commands.get(L"Count").toInteger(), static_cast<std::int32_t>(std::size(expected)));
    std::set<std::wstring> tags;
    for (std::int32_t index = 1; const auto& [caption, lineAbove, picture] : expected) {
        const Object command = commands.get(L"Item", index++).toObject();
        EXPECT_EQ(command.get(L"Caption").toText(), caption);
        EXPECT_EQ(command.get(L"BeginGroup").toBool(), lineAbove) << text::toUtf8(caption);
        EXPECT_TRUE(command.get(L"Enabled").toBool()) << text::toUtf8(caption);
        EXPECT_EQ(static_cast<bool>(command.get(L"Picture").toObject()), picture) << text::toUtf8(caption);
        EXPECT_EQ(static_cast<bool>(command.get(L"Mask").toObject()), picture) << text::toUtf8(caption);
        tags.insert(command.get(L"Tag").toText());
    }
    EXPECT_EQ(tags.size(), std::size(expected)) << "buttons of one tag are pressed together";
}

constexpr std::int32_t button = 1;
constexpr std::int32_t popup = 10;

/// Another add-in makes a control, at the end.
Object addControl(const Object& controls, std::int32_t type, const wchar_t* caption) {
    const Object control = controls.call(L"Add", type, Value(), Value(), Value(), true).toObject();
    control.put(L"Caption", caption);
    return control;
}

void addBrandMenu(const Object& bar, const wchar_t* caption, const wchar_t* entry, std::int32_t type) {
    addControl(addControl(bar, popup, caption).get(L"Controls").toObject(), type, entry);
}

/// What the add-in finds in the menu bar, and what is there while it is connected and after its removal.
struct MenuCase {
    const char* name;
    void (*prepare)(const Object& bar);
    std::vector<std::wstring> menus;
    std::vector<std::wstring> entries;
    std::vector<std::wstring> menusAfter;
    std::vector<std::wstring> entriesAfter;
    bool resourceLibrary = true;
};

class MenuBar : public testing::TestWithParam<MenuCase> {};

TEST_P(MenuBar, HasOneMenuOfTheBrandThatOtherProductsKeep) {
    const MenuCase& given = GetParam();
    Given setup = withList({L"frmEmailAddress=cmdClose", L"frmEmailAddress=cmdClose"});
    setup.connected = false;
    setup.resourceLibrary = given.resourceLibrary;
    Bench bench(setup);
    given.prepare(firstMenuBar(bench));
    bench.connect();
    bench.outlook().openExplorer();
    for (const Object& explorer : bench.outlook().explorers()) {
        EXPECT_EQ(lastMenus(explorer), given.menus);
        EXPECT_EQ(captions(entriesOf(menuBar(explorer), L"Tarnwell")), given.entries);
        bench.outlook().pressControl(explorer, accountList);
    }
    EXPECT_EQ(bench.prompts().size(), 2U);

    bench.disconnect(1);
    for (const Object& explorer : bench.outlook().explorers()) {
        EXPECT_EQ(lastMenus(explorer), given.menusAfter);
        if (!given.entriesAfter.empty()) {
            EXPECT_EQ(captions(entriesOf(menuBar(explorer), L"Tarnwell")), given.entriesAfter);
        }
    }
}

void leave(const Object&) {}

INSTANTIATE_TEST_SUITE_P(
    Found, MenuBar,
    testing::Values(
        MenuCase{"OutlooksOwn", leave, {L"Tarn&well", L"&Help"}, {L"Veltro"}, {L"&Help"}, {}},
        MenuCase{
            "WithoutResourceLibrary", leave, {L"Tarn&well", L"&Help"}, {L"Veltro"}, {L"&Help"}, {}, false},
        MenuCase{"HelpIsNotTheLast",
                 [](const Object& bar) { addControl(bar, popup, L"Zoo"); },
                 {L"Tarn&well", L"&Help", L"Zoo"},
                 {L"Veltro"},
                 {L"&Help", L"Zoo"},
                 {}},
        MenuCase{"HelpInGerman",
                 [](const Object& bar) { bar.get(L"Item", L"Help").toObject().put(L"Caption", L"&?"); },
                 {L"Tarn&well", L"&?"},
                 {L"Veltro"},
                 {L"&?"},
                 {}},
        MenuCase{"AnotherHelpInFront",
                 [](const Object& bar) {
                     bar.get(L"Item", L"Help").toObject().put(L"Caption", L"&?");
                     addControl(bar, popup, L"Help");
                 },
                 {L"Tarn&well", L"&?", L"Help"},
                 {L"Veltro"},
                 {L"&?", L"Help"},
                 {}},
        MenuCase{"HelpOfAnotherMaker",
                 [](const Object& bar) {
                     bar.get(L"Item", L"Help").toObject().call(L"Delete");
                     addControl(bar, popup, L"Help");
                 },
                 {L"Tarn&well", L"Help"},
                 {L"Veltro"},
                 {L"Help"},
                 {}},
        MenuCase{"NoHelp",
                 [](const Object& bar) { bar.get(L"Item", L"Help").toObject().call(L"Delete"); },
                 {L"Tarn&well"},
                 {L"Veltro"},
                 {},
                 {}},
        MenuCase{"AnotherProduct",
                 [](const Object& bar) { addBrandMenu(bar, L"&TARNwell", L"Quire", button); },
                 {L"&Help", L"&TARNwell"},
                 {L"Quire", L"Veltro"},
                 {L"&Help", L"&TARNwell"},
                 {L"Quire"}},
        MenuCase{"LeftFromBefore",
                 [](const Object& bar) { addBrandMenu(bar, L"Tarnwell", L"&veltro", popup); },
                 {L"&Help", L"Tarnwell"},
                 {L"&veltro"},
                 {L"&Help"},
                 {}},
        MenuCase{"ButtonOfTheBrand",
                 [](const Object& bar) { addControl(bar, button, L"Tarnwell"); },
                 {L"Tarn&well", L"&Help", L"Tarnwell"},
                 {L"Veltro"},
                 {L"&Help", L"Tarnwell"},
                 {}}),
    [](const auto& test) { return test.param.name; });

TEST(Menu, StaysWhenOutlookShutsDownAndIsNotDoubledAfterwards) {
    Bench bench(withList({L"frmEmailAddress=cmdClose"}));
    bench.disconnect(0);
    const Object explorer = bench.outlook().explorers().front();
    const std::vector<std::wstring> menus{L"Tarn&well", L"&Help"};
    EXPECT_EQ(lastMenus(explorer), menus);
    openList(bench);
    EXPECT_TRUE(bench.prompts().empty());
    const Object left =
        entriesOf(entriesOf(menuBar(explorer), L"Tarnwell"), L"Veltro").get(L"Item", 1).toObject();
    left.put(L"BeginGroup", true);  // Another version had it so.
    bench.connect();
    EXPECT_FALSE(left.get(L"BeginGroup").toBool());
    EXPECT_EQ(lastMenus(explorer), menus);
    EXPECT_EQ(captions(entriesOf(menuBar(explorer), L"Tarnwell")), std::vector<std::wstring>{L"Veltro"});
    openList(bench);
    EXPECT_EQ(bench.prompts().size(), 1U);
}

TEST(Menu, OfAWindowOutlivesTheOtherWindow) {
    for (const bool closeFirst : {true, false}) {
        Bench bench(withList({L"frmEmailAddress=cmdClose"}));
        bench.outlook().openExplorer();
        const auto explorers = bench.outlook().explorers();
        bench.outlook().closeExplorer(closeFirst ? explorers.front() : explorers.back());
        openList(bench);
        EXPECT_EQ(bench.prompts().size(), 1U);
        bench.disconnect(1);
        EXPECT_EQ(lastMenus(bench.outlook().explorers().front()), std::vector<std::wstring>{L"&Help"});
    }
}

const host::Message brokenPromise = plainMail(L"Budget", L"See attached");

/// Each call that builds the menu of a new window fails once. Replies in that window are guarded, which shows
/// by the offer to write to all.
TEST(FailingMenu, LeavesTheWindowGuarded) {
    constexpr std::size_t most = 200;
    Given setup = withList(std::vector<std::wstring>(most, L"frmReplyMultRecipt=lstRecipients=1,2; cmdOK"));
    setup.answers.push_back(L"Attachment(s) missing=No");
    Bench bench(setup);
    host::Message toTwo = plainMail();
    toTwo.from = host::Address{.name = L"Ann", .address = L"ann@example.com"};
    toTwo.to.push_back({.name = L"Me", .address = L"me@example.org"});
    const Object item = bench.outlook().receive(toTwo);
    bool failed = true;
    std::size_t call = 0;
    while (failed && ++call < most) {
        firstMenuBar(bench).get(L"Item", L"Tarnwell").toObject().call(L"Delete");
        const std::size_t before = bench.outlook().calls();
        bench.outlook().failCall(call);
        bench.outlook().meter()->record(true);
        const Object window = bench.outlook().openExplorer();
        const auto& made = bench.outlook().meter()->log();
        const bool inMenu = std::ranges::find(made, L"Explorer.CommandBars") != made.end();
        failed = bench.outlook().calls() - before >= call;
        bench.outlook().failCall(0);
        bench.outlook().activate(bench.outlook().explorers().front());
        bench.outlook().activate(window);
        EXPECT_EQ(lastMenus(window).size(), inMenu ? 2U : 1U) << "call " << call;
        bench.outlook().select(window, {item});
        const host::ReplyOutcome outcome = bench.outlook().reply(item);
        EXPECT_FALSE(outcome.opened && inMenu) << "call " << call;
        for (const Object& opened : outcome.newInspectors) {
            bench.outlook().closeInspector(opened);
        }
        addControl(firstMenuBar(bench), popup, L"Tarnwell");
        bench.outlook().closeExplorer(window);
    }
    EXPECT_GT(call, 20U);
    EXPECT_LT(call, most);
    EXPECT_EQ(bench.send(brokenPromise).state, host::SendState::Cancelled);
}

/// Inside each call of a window's opening the user goes to another window and back.
TEST(Menu, IsBuiltOnceHoweverOftenItsWindowIsActivatedMeanwhile) {
    bool inside = true;
    for (std::size_t call = 1; inside; ++call) {
        Bench bench(inOutlook2007());
        firstMenuBar(bench).get(L"Item", L"Tarnwell").toObject().call(L"Delete");
        inside = false;
        bench.outlook().duringCall(call, [&] {
            inside = true;
            const auto explorers = bench.outlook().explorers();
            bench.outlook().activate(explorers.front());
            bench.outlook().activate(explorers.back());
        });
        const Object window = bench.outlook().openExplorer();
        bench.outlook().duringCall(0, nullptr);
        EXPECT_EQ(lastMenus(window), (std::vector<std::wstring>{L"Tarn&well", L"&Help"})) << "call " << call;
        EXPECT_EQ(captions(entriesOf(menuBar(window), L"Tarnwell")), std::vector<std::wstring>{L"Veltro"});
    }
}

/// Each call that takes the menu away fails once.
TEST(FailingMenu, DoesNotKeepTheAddInFromLeaving) {
    bool failed = true;
    std::size_t call = 0;
    while (failed) {
        Bench bench(inOutlook2007());
        bench.outlook().openExplorer();
        const std::size_t before = bench.outlook().calls();
        bench.outlook().failCall(++call);
        bench.disconnect(1);
        failed = bench.outlook().calls() - before >= call;
        bench.outlook().failCall(0);
        std::size_t left = 0;
        for (const Object& explorer : bench.outlook().explorers()) {
            left += lastMenus(explorer).size() - 1;
        }
        EXPECT_LE(left, failed ? 1U : 0U) << "call " << call;
        EXPECT_EQ(bench.send(brokenPromise).state, host::SendState::Sent) << "call " << call;
    }
    EXPECT_GT(call, 20U);
}

}  // namespace
