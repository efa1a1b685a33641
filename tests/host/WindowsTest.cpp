#include <gtest/gtest.h>

#include "tests/host/EventLog.h"

namespace {

using automation::Object;
using Lines = std::vector<std::wstring>;

TEST(HostWindowsTest, NewInspectorComesBeforeTheWindowShows) {
    host::Outlook outlook({});
    EventLog log;
    log.watch(outlook.application().get(L"Inspectors").toObject(), outlook::events::inspectors,
              L"inspectors");
    log.watch(outlook.explorers().front(), outlook::events::explorer, L"explorer");
    Object active;
    log.on(L"inspectors New", [&](std::span<automation::Value> arguments) {
        const Object inspector = arguments[0].toObject();
        active = outlook.application().call(L"ActiveInspector").toObject();
        log.watch(inspector, outlook::events::inspector, L"inspector");
        log.watch(inspector.get(L"CurrentItem").toObject(), outlook::events::item, L"item");
    });
    const Object inspector = outlook.openNewMail(mailTo(L"bob@example.com"));
    EXPECT_FALSE(active);
    EXPECT_EQ(log.lines(),
              (Lines{L"inspectors New", L"item Open", L"explorer Deactivate", L"inspector Activate"}));
    EXPECT_EQ(outlook.application().call(L"ActiveInspector").toObject(), inspector);
    log.endAll();
}

TEST(HostWindowsTest, SelectingRaisesSelectionChangeForTheOldAndTheNewSelection) {
    host::Outlook outlook({});
    const Object explorer = outlook.explorers().front();
    const Object item = outlook.receive(mailTo(L"me@example.org"));
    EventLog log;
    log.watch(explorer, outlook::events::explorer, L"explorer");
    std::vector<int> counts;
    log.on(L"explorer SelectionChange", [&](std::span<automation::Value>) {
        counts.push_back(explorer.get(L"Selection").toObject().get(L"Count").toInteger());
    });
    outlook.select(explorer, {item});
    EXPECT_EQ(counts, (std::vector<int>{0, 1}));
    const Object selected = explorer.get(L"Selection", 1).toObject();
    EXPECT_EQ(selected.get(L"EntryID").toText(), item.get(L"EntryID").toText());
    EXPECT_FALSE(selected == outlook.itemOf(outlook.openItem(item))) << "another object for the same item";
    outlook.closeInspector(outlook.inspectors().front());
    log.clear();
    outlook.switchFolder(explorer, L"Outbox");
    EXPECT_EQ(log.lines(),
              (Lines{L"explorer BeforeFolderSwitch", L"explorer FolderSwitch", L"explorer SelectionChange"}));
    log.endAll();
}

TEST(HostWindowsTest, AClosedWindowFailsInOutlooksWords) {
    host::Outlook outlook({});
    const Object explorer = outlook.explorers().front();
    EventLog log;
    log.watch(explorer, outlook::events::explorer, L"explorer");
    Object active = explorer;
    int counted = 0;
    log.on(L"explorer Close", [&](std::span<automation::Value>) {
        active = outlook.application().call(L"ActiveExplorer").toObject();
        counted = outlook.application().get(L"Explorers").toObject().get(L"Count").toInteger();
        explorer.get(L"CurrentFolder");  // Still alive while it closes.
        explorer.call(L"Close");
    });
    outlook.closeExplorer(explorer);
    EXPECT_EQ(log.lines(), (Lines{L"explorer Deactivate", L"explorer Close"}));
    EXPECT_FALSE(active);
    EXPECT_EQ(counted, 1);
    EXPECT_EQ(outlook.application().get(L"Explorers").toObject().get(L"Count").toInteger(), 0);
    try {
        explorer.get(L"Selection");
        FAIL() << "a closed explorer answered";
    } catch (const automation::Error& error) {
        EXPECT_EQ(error.description(),
                  L"The Explorer has been closed and cannot be used for further operations. Review your code "
                  L"and restart Outlook.");
    }
    EXPECT_TRUE(outlook.errors().empty());
    log.endAll();
}

TEST(HostWindowsTest, ClosingAnItemCanBeRefused) {
    host::Outlook outlook({});
    const Object inspector = outlook.openNewMail(mailTo(L"bob@example.com"));
    EventLog log;
    log.watch(inspector, outlook::events::inspector, L"inspector");
    log.watch(outlook.itemOf(inspector), outlook::events::item, L"item");
    log.cancelOn(L"item Close");
    outlook.closeInspector(inspector);
    EXPECT_EQ(outlook.inspectors().size(), 1U);
    log.on(L"item Close", [](std::span<automation::Value>) {});
    log.clear();
    inspector.call(L"Close", 1);
    EXPECT_EQ(log.lines(), (Lines{L"item Close", L"inspector Deactivate", L"inspector Close"}));
    EXPECT_NE(errorOf([&] { inspector.get(L"CurrentItem"); }), 0);
    log.endAll();
}

TEST(HostWindowsTest, TheUserIsAskedAboutChangesAfterTheItemsClose) {
    host::Outlook outlook({});
    const Object inspector = outlook.openNewMail(mailTo(L"bob@example.com"));
    EventLog log;
    log.watch(inspector, outlook::events::inspector, L"inspector");
    log.watch(outlook.itemOf(inspector), outlook::events::item, L"item");
    outlook.cancelClosing(inspector);
    EXPECT_EQ(log.lines(), Lines{L"item Close"});
    EXPECT_EQ(outlook.inspectors(), std::vector<Object>{inspector});
    log.clear();
    outlook.closeInspector(inspector, true);
    EXPECT_EQ(log.lines(),
              (Lines{L"item Close", L"item Write", L"inspector Deactivate", L"inspector Close"}));
    const Object saved = outlook.openItem(outlook.itemsIn(L"Drafts").at(0));
    EXPECT_NE(errorOf([&] { outlook.cancelClosing(saved); }), 0) << "nothing to ask about";
    log.endAll();
}

TEST(HostWindowsTest, TheTopmostWindowsAreTheActiveOnes) {
    host::Outlook outlook({});
    const Object application = outlook.application();
    const Object first = outlook.openNewMail(mailTo(L"a@example.com"));
    const Object second = outlook.openNewMail(mailTo(L"b@example.com"));
    const Object explorer = outlook.openExplorer();
    EXPECT_EQ(application.call(L"ActiveWindow").toObject(), explorer);
    EXPECT_EQ(application.call(L"ActiveInspector").toObject(), second);
    first.call(L"Activate");
    EXPECT_EQ(application.call(L"ActiveInspector").toObject(), first);
    outlook.closeInspector(first);
    EXPECT_EQ(application.call(L"ActiveWindow").toObject(), explorer);
    EXPECT_EQ(application.call(L"ActiveExplorer").toObject(), explorer);
}

TEST(HostWindowsTest, HandlersMaySubscribeAndEndDuringAnEvent) {
    host::Outlook outlook({});
    const Object application = outlook.application();
    std::vector<std::wstring> seen;
    automation::Subscription second;
    automation::Subscription late;
    automation::Subscription first =
        automation::subscribe(application, {0x0006302C}, [&](std::int32_t, std::span<automation::Value>) {
            seen.push_back(L"first");
            second.end();
            late = automation::subscribe(
                application, {0x0006300E},
                [&](std::int32_t, std::span<automation::Value>) { seen.push_back(L"late"); });
            first.end();  // Ends the handler that runs.
        });
    second =
        automation::subscribe(application, outlook::events::application,
                              [&](std::int32_t, std::span<automation::Value>) { seen.push_back(L"second"); });
    outlook.send(outlook.openNewMail(mailTo(L"bob@example.com")));
    EXPECT_EQ(seen, Lines{L"first"});
    outlook.send(outlook.openNewMail(mailTo(L"bob@example.com")));
    EXPECT_EQ(seen, (Lines{L"first", L"late"}));
    EXPECT_EQ(errorOf([&] { automation::subscribe(application, outlook::events::item, {}); }), 459);
}

TEST(HostWindowsTest, ATokenMayOutliveItsSource) {
    automation::Subscription token;
    {
        host::Outlook outlook({});
        token = automation::subscribe(outlook.explorers().front(), outlook::events::explorer,
                                      [](std::int32_t, std::span<automation::Value>) {});
    }
    token.end();
}

TEST(HostWindowsTest, WordEditsMailBelowVersion12OnlyWhenItIsTheEditor) {
    struct Case {
        const wchar_t* version;
        host::Editor editor;
        int type;
        bool word;
    };
    const Case cases[] = {
        {L"11.0.0.5510", host::Editor::Html, 2, false},
        {L"11.0.0.5510", host::Editor::Word, 4, true},
        {L"14.0.0.4760", host::Editor::Html, 4, true},
    };
    for (const Case& test : cases) {
        host::Outlook outlook({.version = test.version, .editor = test.editor});
        std::wstring ran;
        outlook.onWordMacro([&](const std::wstring& name, std::span<const automation::Value> arguments) {
            ran = name;
            arguments[0].variable() = true;
            return automation::Value();
        });
        const Object inspector = outlook.openNewMail(mailTo(L"bob@example.com"));
        EXPECT_EQ(inspector.get(L"EditorType").toInteger(), test.type);
        const Object document = inspector.get(L"WordEditor").toObject();
        ASSERT_EQ(static_cast<bool>(document), test.word);
        if (test.word) {
            automation::Value cancel(false);
            document.get(L"Application")
                .toObject()
                .call(L"Run", L"vtEmptySubjectCheckWord", automation::Value::reference(cancel));
            EXPECT_EQ(ran, L"vtEmptySubjectCheckWord");
            EXPECT_TRUE(cancel.toBool());
            EXPECT_NO_THROW(outlook.automation().activeObject(L"Word.Application"));
            outlook.closeInspector(inspector);
            EXPECT_NO_THROW(outlook.automation().activeObject(L"Word.Application"));
            outlook.endWord();
        }
        EXPECT_NE(errorOf([&] { outlook.automation().activeObject(L"Word.Application"); }), 0);
    }
}

TEST(HostWindowsTest, MenusBelongToTheirWindowAndNewWindowsTakeThemOver) {
    host::Outlook outlook({});
    const Object bar =
        outlook.explorers().front().get(L"CommandBars").toObject().get(L"Item", L"menu bar").toObject();
    const Object controls = bar.get(L"Controls").toObject();
    const int before = controls.get(L"Item", L"Help").toObject().get(L"Index").toInteger();
    const Object popup =
        controls.call(L"Add", 10, automation::Value(), automation::Value(), before, true).toObject();
    popup.put(L"Caption", L"Tarn&well");
    const Object button = popup.get(L"Controls").toObject().call(L"Add", 1).toObject();
    button.put(L"Caption", L"Settings");
    int clicks = 0;
    const auto token = automation::subscribe(button, {0x000C0351},
                                             [&](std::int32_t event, std::span<automation::Value> arguments) {
                                                 EXPECT_EQ(event, 1);
                                                 EXPECT_EQ(arguments[0].toObject(), button);
                                                 ++clicks;
                                             });
    outlook.pressControl(outlook.explorers().front(), {L"Tarnwell", L"Settings"});
    EXPECT_EQ(clicks, 1);

    const Object second = outlook.openExplorer();
    outlook.pressControl(second, {L"Tarnwell", L"Settings"});
    EXPECT_EQ(clicks, 1) << "the copy has no handlers";
    popup.call(L"Delete");
    EXPECT_NE(errorOf([&] { popup.get(L"Caption"); }), 0);
    EXPECT_NE(errorOf([&] { outlook.pressControl(outlook.explorers().front(), {L"Tarnwell"}); }), 0);
    EXPECT_NO_THROW(outlook.pressControl(second, {L"Tarnwell", L"Settings"}));
}

}  // namespace
