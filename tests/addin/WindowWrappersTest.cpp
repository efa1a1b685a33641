#include "addin/WindowWrappers.h"

#include <gtest/gtest.h>

#include "addin/ExplorerWrap.h"
#include "addin/clsInspWrap.h"
#include "tests/TestWorld.h"

namespace {

TEST(WindowWrappers, GoWithTheirWindowsWhileKeysGrow) {
    TestWorld world;
    WindowWrappers wrappers(world.globals);
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
    WindowWrappers wrappers(world.globals);
    wrappers.AddExpl(outlook::Explorer(world.outlook.openExplorer()));
    auto stranger = std::make_shared<ExplorerWrap>(world.globals, wrappers, 0);
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

TEST(ExplorerWrap, WatchesTheSelectedMailOutsideTheOutbox) {
    TestWorld world;
    WindowWrappers wrappers(world.globals);
    const auto window = world.outlook.openExplorer();
    auto wrapper = std::make_shared<ExplorerWrap>(world.globals, wrappers, 0);
    wrapper->setExplorer(outlook::Explorer(window));
    host::Message contact;
    contact.itemClass = host::itemClass::contact;
    const auto first = world.outlook.receive({});
    const auto second = world.outlook.receive({});
    const auto person = world.outlook.store(L"Contacts", contact);
    const auto waiting = world.outlook.store(L"Outbox", {});

    EXPECT_FALSE(wrapper->watchedItem());
    world.outlook.select(window, {first, second});
    EXPECT_TRUE(wrapper->watchedItem().object() == first);
    world.outlook.select(window, {person});
    EXPECT_FALSE(wrapper->watchedItem());
    world.outlook.select(window, {waiting});
    EXPECT_FALSE(wrapper->watchedItem());
    EXPECT_TRUE(world.log.messages.empty());
}

}  // namespace
