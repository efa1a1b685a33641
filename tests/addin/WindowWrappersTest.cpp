#include "addin/WindowWrappers.h"

#include <gtest/gtest.h>

#include "addin/ExplorerWrap.h"
#include "addin/clsInspWrap.h"
#include "tests/TestWorld.h"

namespace {

/// A window that fails all calls, but for its caption unless it has closed.
class BrokenWindow : public automation::Target {
  public:
    BrokenWindow(automation::Error error, bool closed) : error_(std::move(error)), closed_(closed) {}

    std::int32_t memberId(std::wstring_view name) override { return name == L"Caption" ? 1 : 2; }
    automation::Value invoke(std::int32_t member, automation::Access,
                             std::span<const automation::Value>) override {
        if (member == 1 && !closed_) {
            return L"Inbox";
        }
        throw error_;
    }
    automation::Subscription subscribe(automation::EventInterface, automation::EventSink sink) override {
        sink_ = std::move(sink);
        return {};
    }
    void select() const { sink_(outlook::events::explorerSelectionChange, {}); }

  private:
    automation::Error error_;
    bool closed_;
    automation::EventSink sink_;
};

TEST(WindowWrappers, GoWithTheirWindowsWhileKeysGrow) {
    TestWorld world;
    addin::WindowWrappers wrappers(world.globals);
    for (int window = 0; window < 1000; ++window) {
        const outlook::Explorer explorer(world.outlook.openExplorer());
        const auto inspector = world.outlook.openNewMail({});
        wrappers.AddExpl(explorer);
        const outlook::Item item(world.outlook.itemOf(inspector));
        EXPECT_EQ(wrappers.AddInsp(outlook::Inspector(inspector), item, outlook::itemClass::mail),
                  std::to_wstring(window));
        world.outlook.closeInspector(inspector);
        world.outlook.closeExplorer(explorer.object());
        ASSERT_EQ(wrappers.explorers().count() + wrappers.inspectors().count(), 0U);
    }
    EXPECT_EQ(wrappers.explorers().nextKey(), 1000);
    EXPECT_TRUE(world.log.messages.empty());
}

TEST(WindowWrappers, RefuseToRemoveAnotherWindowsWrapper) {
    TestWorld world;
    addin::WindowWrappers wrappers(world.globals);
    wrappers.AddExpl(outlook::Explorer(world.outlook.openExplorer()));
    auto stranger = std::make_shared<addin::ExplorerWrap>(world.globals, addin::ExplorerWrap::Keeper{});
    try {
        wrappers.KillExpl(0, stranger);
        FAIL() << "removed";
    } catch (const automation::Error& error) {
        EXPECT_EQ(error.number(), 1);
        EXPECT_EQ(error.description(), L"Unexpected Error in KillExpl");
    }
    EXPECT_EQ(wrappers.explorers().count(), 1U);
    EXPECT_TRUE(stranger);
}

/// The item's Close only announces that of the window.
TEST(WindowWrappers, TakeAWindowBackThatStaysOpen) {
    TestWorld world;
    addin::WindowWrappers wrappers(world.globals);
    const auto inspector = world.outlook.openNewMail({});
    const outlook::Item item(world.outlook.itemOf(inspector));
    wrappers.AddInsp(outlook::Inspector(inspector), item, outlook::itemClass::mail);
    world.outlook.cancelClosing(inspector);
    EXPECT_EQ(wrappers.inspectors().count(), 0U);
    EXPECT_TRUE(wrappers.watches(outlook::Inspector(inspector)));

    world.outlook.activate(world.outlook.explorers().front());
    world.outlook.activate(inspector);
    EXPECT_EQ(wrappers.inspectors().count(), 1U);
    EXPECT_EQ(wrappers.inspectors().nextKey(), 2);

    world.outlook.closeInspector(inspector);
    EXPECT_EQ(wrappers.inspectors().count(), 0U);
    EXPECT_FALSE(wrappers.watches(outlook::Inspector(inspector)));
    EXPECT_TRUE(world.log.messages.empty());
}

/// Outlook lets events in while it is called.
TEST(WindowWrappers, KeepTheirKeysWhenWindowsOpenInsideEachOthersOpening) {
    bool inside = true;
    for (std::size_t call = 1; inside; ++call) {
        TestWorld world;
        addin::WindowWrappers wrappers(world.globals);
        const auto openBoth = [&] {
            wrappers.AddExpl(outlook::Explorer(world.outlook.openExplorer()));
            const auto inspector = world.outlook.openNewMail({});
            const outlook::Item item(world.outlook.itemOf(inspector));
            wrappers.AddInsp(outlook::Inspector(inspector), item, outlook::itemClass::mail);
        };
        inside = false;
        world.outlook.meter()->duringCall(call, [&] {
            inside = true;
            openBoth();
        });
        openBoth();
        for (const auto& inspector : world.outlook.inspectors()) {
            world.outlook.closeInspector(inspector);
        }
        for (const auto& explorer : world.outlook.explorers()) {
            world.outlook.closeExplorer(explorer);
        }
        EXPECT_EQ(wrappers.explorers().count() + wrappers.inspectors().count(), 0U) << "call " << call;
        EXPECT_TRUE(world.log.messages.empty()) << "call " << call;
    }
}

/// Items of any class, whose windows were not shown when they went away.
TEST(WindowWrappers, AreLetGoWithTheirItems) {
    for (const std::int32_t itemClass :
         {host::itemClass::mail, host::itemClass::contact, host::itemClass::post, host::itemClass::task,
          host::itemClass::appointment}) {
        TestWorld world;
        addin::WindowWrappers wrappers(world.globals);
        host::Message message;
        message.itemClass = itemClass;
        const auto add = [&] {
            const auto item = world.outlook.store(L"Drafts", message);
            wrappers.AddInsp(outlook::Inspector(item.get(L"GetInspector").toObject()), outlook::Item(item),
                             itemClass);
            return item;
        };
        const auto kept = add();
        world.outlook.deleteItem(add());
        const auto alsoKept = add();
        EXPECT_EQ(wrappers.inspectors().count(), 2U) << itemClass;
        wrappers.release();
    }
}

TEST(WindowWrappers, AreLetGoWithWindowsThatDoNotTell) {
    TestWorld world;
    addin::WindowWrappers wrappers(world.globals);
    const outlook::Item item(world.outlook.store(L"Drafts", {}));
    const auto closed = std::make_shared<BrokenWindow>(
        automation::Error(automation::errors::failed, L"The Inspector has been closed."), true);
    wrappers.AddInsp(outlook::Inspector(automation::Object(closed)), item, outlook::itemClass::mail);
    const outlook::Inspector open(item.object().get(L"GetInspector").toObject());
    wrappers.AddInsp(open, item, outlook::itemClass::mail);
    EXPECT_EQ(wrappers.inspectors().count(), 1U);
    EXPECT_TRUE(wrappers.watches(open));
    wrappers.release();
}

/// Opening one takes two looks at the others, so that it costs the same however many have been abandoned.
TEST(WindowWrappers, AreLetGoTwoAtATime) {
    TestWorld world;
    addin::WindowWrappers wrappers(world.globals);
    const auto add = [&] {
        const auto item = world.outlook.store(L"Drafts", {});
        wrappers.AddInsp(outlook::Inspector(item.get(L"GetInspector").toObject()), outlook::Item(item),
                         outlook::itemClass::mail);
        return item;
    };
    const std::vector items{add(), add(), add(), add(), add()};
    for (const auto& item : items) {
        world.outlook.deleteItem(item);
    }
    for (const std::size_t left : {4U, 3U, 3U, 4U}) {
        add();
        EXPECT_EQ(wrappers.inspectors().count(), left);
    }
    wrappers.release();
}

TEST(WindowWrappers, ReportWhereTheirClosingFailed) {
    TestWorld world({L"Veltro=OK", L"Veltro=OK"});
    const auto fail = [](const auto&) { throw automation::Error(1, L"Unexpected Error in KillInsp"); };
    const auto wrapper = std::make_shared<addin::clsInspWrap>(
        world.globals, addin::clsInspWrap::Keeper{[](const auto&) {}, fail, fail});
    const auto inspector = world.outlook.openNewMail({});
    wrapper->setInspector(outlook::Inspector(inspector));
    wrapper->setMailItem(outlook::Item(world.outlook.itemOf(inspector)));
    world.outlook.closeInspector(inspector);
    ASSERT_EQ(world.log.messages.size(), 2U);
    for (const platform::MessagePrompt& message : world.log.messages) {
        EXPECT_EQ(message.text, L"clsInspWrap.Close - Error 1: Unexpected Error in KillInsp");
    }
}

/// The mail of a window that was closing is moved away, and the window says no more.
TEST(WindowWrappers, AreLetGoWithWindowsThatVanishWhileTheyClose) {
    TestWorld world;
    addin::WindowWrappers wrappers(world.globals);
    const auto hidden = [&](const automation::Object& item) {
        const outlook::Inspector inspector(item.get(L"GetInspector").toObject());
        wrappers.AddInsp(inspector, outlook::Item(item), outlook::itemClass::mail);
        return inspector;
    };
    const auto drafts = std::vector{world.outlook.store(L"Drafts", {}), world.outlook.store(L"Drafts", {}),
                                    world.outlook.store(L"Drafts", {})};
    const outlook::Inspector closing = hidden(drafts[0]);
    world.outlook.openItem(drafts[0]);
    hidden(drafts[1]);
    world.outlook.typeSubject(drafts[0], L"Budget");
    world.outlook.cancelClosing(closing.object());
    EXPECT_TRUE(wrappers.watches(closing));
    const auto inbox = world.globals.outlook.mapiNameSpace().defaultFolder(outlook::folderId::inbox);
    drafts[0].call(L"Move", inbox.object());
    hidden(drafts[2]);
    EXPECT_FALSE(wrappers.watches(closing));
    EXPECT_EQ(wrappers.inspectors().count(), 2U);
    wrappers.release();
}

/// What one opening costs does not depend on the number of open windows, shown or not.
TEST(WindowWrappers, CostTheSameHoweverManyWindowsAreOpen) {
    TestWorld world;
    addin::WindowWrappers wrappers(world.globals);
    std::vector<automation::Object> items;
    const auto callsOfOne = [&] {
        const auto item = world.outlook.store(L"Drafts", {});
        const outlook::Inspector hidden(item.get(L"GetInspector").toObject());
        const outlook::Inspector shown(world.outlook.openNewMail({}));
        const std::size_t before = world.outlook.calls();
        wrappers.AddInsp(hidden, outlook::Item(item), outlook::itemClass::mail);
        const outlook::Item shownItem(world.outlook.itemOf(shown.object()));
        wrappers.AddInsp(shown, shownItem, outlook::itemClass::mail);
        items.push_back(item);
        return world.outlook.calls() - before;
    };
    for (int window = 0; window < 10; ++window) {
        callsOfOne();
    }
    const std::size_t few = callsOfOne();
    for (int window = 0; window < 1000; ++window) {
        callsOfOne();
    }
    EXPECT_EQ(callsOfOne(), few);
    EXPECT_EQ(wrappers.inspectors().count(), 2024U);
    wrappers.release();
}

TEST(ExplorerWrap, KeepsQuietAboutWindowsThatCloseInAnyLanguage) {
    constexpr std::int32_t other = -1234;
    const struct {
        std::int32_t number;
        const wchar_t* description;
        bool closed;
        bool reported;
    } cases[] = {
        {automation::errors::failed, L"Der Vorgang ist fehlgeschlagen.", false, false},
        {other, L"The operation failed.", false, false},
        {other,
         L"The Explorer has been closed and cannot be used for further operations. Review your code and "
         L"restart Outlook.",
         false, false},
        {other, L"Der Explorer wurde geschlossen.", true, false},
        {other, L"The store is offline.", false, true},
    };
    for (const auto& given : cases) {
        TestWorld world({L"Veltro=OK"});
        addin::WindowWrappers wrappers(world.globals);
        const auto explorer =
            std::make_shared<BrokenWindow>(automation::Error(given.number, given.description), given.closed);
        const auto wrapper =
            std::make_shared<addin::ExplorerWrap>(world.globals, addin::ExplorerWrap::Keeper{});
        wrapper->setExplorer(outlook::Explorer(automation::Object(explorer)));
        explorer->select();
        ASSERT_EQ(world.log.messages.size(), given.reported ? 1U : 0U);
        if (given.reported) {
            EXPECT_EQ(world.log.messages[0].text,
                      L"m_objExpl_SelectionChange - Error -1234: The store is offline.");
        }
    }
}

/// The selection gives an item in another object each time.
bool isWatched(const addin::ExplorerWrap& wrapper, const automation::Object& item) {
    return wrapper.watchedItem() && wrapper.watchedItem().entryId() == outlook::Item(item).entryId();
}

TEST(ExplorerWrap, WatchesTheSelectedMailOutsideTheOutbox) {
    TestWorld world;
    addin::WindowWrappers wrappers(world.globals);
    const auto window = world.outlook.openExplorer();
    auto wrapper = std::make_shared<addin::ExplorerWrap>(world.globals, addin::ExplorerWrap::Keeper{});
    wrapper->setExplorer(outlook::Explorer(window));
    host::Message contact;
    contact.itemClass = host::itemClass::contact;
    const auto first = world.outlook.receive({});
    const auto second = world.outlook.receive({});
    const auto person = world.outlook.store(L"Contacts", contact);
    const auto waiting = world.outlook.store(L"Outbox", {});

    EXPECT_FALSE(wrapper->watchedItem());
    world.outlook.select(window, {first, second});
    EXPECT_TRUE(isWatched(*wrapper, first));
    world.outlook.select(window, {person});
    EXPECT_FALSE(wrapper->watchedItem());
    world.outlook.select(window, {second});
    EXPECT_TRUE(isWatched(*wrapper, second));
    world.outlook.select(window, {waiting});
    EXPECT_FALSE(wrapper->watchedItem());
    EXPECT_TRUE(world.log.messages.empty());
}

TEST(ExplorerWrap, WatchesTheLatestSelectionWhenOneComesInsideAnother) {
    bool inside = true;
    for (std::size_t call = 1; inside; ++call) {
        TestWorld world;
        addin::WindowWrappers wrappers(world.globals);
        const auto window = world.outlook.openExplorer();
        const auto wrapper =
            std::make_shared<addin::ExplorerWrap>(world.globals, addin::ExplorerWrap::Keeper{});
        wrapper->setExplorer(outlook::Explorer(window));
        const auto first = world.outlook.receive({});
        const auto second = world.outlook.receive({});
        inside = false;
        world.outlook.meter()->duringCall(call, [&] {
            inside = true;
            world.outlook.select(window, {second});
        });
        world.outlook.select(window, {first});
        world.outlook.meter()->duringCall(0, nullptr);
        const outlook::Item selected = outlook::Explorer(window).selection().item(1);
        EXPECT_TRUE(isWatched(*wrapper, selected.object())) << "call " << call;
    }
}

}  // namespace
