#include <gtest/gtest.h>

#include "host/hostErrors.h"
#include "tests/host/EventLog.h"

namespace {

using automation::Object;

Object session(host::Outlook& outlook) {
    return outlook.application().get(L"Session").toObject();
}

Object inbox(host::Outlook& outlook) {
    return session(outlook).call(L"GetDefaultFolder", 6).toObject();
}

TEST(HostMailboxTest, FoldersAreMadeMovedAndDeleted) {
    host::Outlook outlook({.folders = {L"Tarnwell Settings\\Veltro"}});
    const Object root = inbox(outlook).get(L"Parent").toObject();
    const Object folders = root.get(L"Folders").toObject();
    const Object old = folders.get(L"Item", L"tarnwell settings").toObject();
    const Object veltro = old.get(L"Folders", L"Veltro").toObject();
    EXPECT_EQ(veltro.get(L"FolderPath").toText(), L"\\\\Personal Folders\\Tarnwell Settings\\Veltro");
    EXPECT_NE(errorOf([&] { folders.call(L"Add", L"Inbox"); }), 0) << "the name is taken";

    const Object made = folders.call(L"Add", L"Corvane Settings").toObject();
    EXPECT_NE(errorOf([&] { made.call(L"MoveTo", made); }), 0) << "into itself";
    veltro.call(L"MoveTo", made);
    EXPECT_TRUE(outlook.folderExists(L"Corvane Settings\\Veltro"));
    EXPECT_EQ(old.get(L"Folders").toObject().get(L"Count").toInteger(), 0);
    outlook.store(L"Tarnwell Settings\\Old", mailTo(L"me@example.org"));
    const Object lost = outlook.itemsIn(L"Tarnwell Settings\\Old").front();
    old.call(L"Delete");
    EXPECT_NE(errorOf([&] { lost.get(L"Subject"); }), 0) << "gone with its folder";
    EXPECT_NE(errorOf([&] { inbox(outlook).call(L"Delete"); }), 0) << "a default folder";
    EXPECT_FALSE(outlook.folderExists(L"Tarnwell Settings"));
    EXPECT_NE(errorOf([&] { old.get(L"Name"); }), 0);
    EXPECT_NE(errorOf([&] { folders.get(L"Item", L"Tarnwell Settings"); }), 0);
    EXPECT_EQ(session(outlook).call(L"GetFolderFromID", made.get(L"EntryID")).toObject(), made);
}

TEST(HostMailboxTest, AMovedItemGoesOnAsANewOne) {
    host::Outlook outlook({.folders = {L"Tarnwell Settings\\Veltro"}});
    const Object mail = outlook.application().call(L"CreateItem", 0).toObject();
    EXPECT_EQ(mail.get(L"EntryID").toText(), L"") << "never saved";
    mail.put(L"Subject", L"Email Address");
    mail.put(L"Body", L"list");
    mail.call(L"Save");
    const auto target =
        inbox(outlook).get(L"Parent").toObject().get(L"Folders", L"Tarnwell Settings").toObject();
    const Object moved = mail.call(L"Move", target.get(L"Folders", L"Veltro")).toObject();
    try {
        mail.get(L"EntryID");
        FAIL() << "a moved item answered";
    } catch (const automation::Error& error) {
        EXPECT_EQ(error.description(), L"The item has been moved or deleted.");
    }
    EXPECT_EQ(moved.get(L"Body").toText(), L"list");
    const Object found = session(outlook).call(L"GetItemFromID", moved.get(L"EntryID")).toObject();
    EXPECT_EQ(found.get(L"Body").toText(), L"list");
    EXPECT_FALSE(found == moved) << "another object for the same item";
    EXPECT_EQ(outlook.itemsIn(L"Tarnwell Settings\\Veltro"), std::vector<Object>{moved});
    EXPECT_TRUE(outlook.itemsIn(L"Drafts").empty());
}

TEST(HostMailboxTest, DeletingAnOpenItemClosesItsWindow) {
    host::Outlook outlook({});
    const Object item = outlook.receive(mailTo(L"me@example.org"));
    const auto recipients = item.get(L"Recipients").toObject();
    outlook.openItem(item);
    outlook.deleteItem(item);
    EXPECT_TRUE(outlook.inspectors().empty());
    EXPECT_NE(errorOf([&] { item.get(L"Subject"); }), 0);
    EXPECT_NE(errorOf([&] { recipients.get(L"Count"); }), 0) << "what belongs to the item went with it";
    EXPECT_EQ(outlook.itemsIn(L"Deleted Items").size(), 1U);
}

TEST(HostMailboxTest, AReadOnlyStoreRefusesChanges) {
    host::Outlook outlook({.stores = {{.readOnly = true}}});
    const Object root = inbox(outlook).get(L"Parent").toObject();
    EXPECT_TRUE(outlook.folderExists(host::settingsFolder));
    EXPECT_NE(errorOf([&] { root.get(L"Folders").toObject().call(L"Add", L"New"); }), 0);
    const Object mail = outlook.application().call(L"CreateItem", 0).toObject();
    EXPECT_NE(errorOf([&] { mail.call(L"Save"); }), 0);
    EXPECT_EQ(mail.get(L"EntryID").toText(), L"");
}

TEST(HostMailboxTest, SavingRaisesWriteWhichCanBeRefused) {
    host::Outlook outlook({});
    const Object mail = outlook.application().call(L"CreateItem", 0).toObject();
    EventLog log;
    log.watch(mail, outlook::events::item, L"item");
    log.cancelOn(L"item Write");
    mail.call(L"Save");
    EXPECT_TRUE(outlook.itemsIn(L"Drafts").empty());
    log.on(L"item Write", [](std::span<automation::Value>) {});
    mail.call(L"Save");
    EXPECT_EQ(outlook.itemsIn(L"Drafts").size(), 1U);
    EXPECT_TRUE(mail.get(L"Saved").toBool());
    mail.put(L"Subject", L"x");
    EXPECT_FALSE(mail.get(L"Saved").toBool());
    EXPECT_EQ(log.lines().back(), L"item PropertyChange");
    log.endAll();
}

TEST(HostMailboxTest, UserPropertiesComeAndGo) {
    host::Outlook outlook({});
    const Object item = outlook.receive(mailTo(L"me@example.org"));
    const Object properties = item.get(L"UserProperties").toObject();
    EXPECT_FALSE(properties.call(L"Find", L"Mark").toObject()) << "nothing, and no error";
    const Object mark = properties.call(L"Add", L"Mark", 1).toObject();
    mark.put(L"Value", 7);
    EXPECT_EQ(outlook.view(item).userProperties.at(L"Mark"), L"7");
    properties.call(L"Find", L"MARK").toObject().call(L"Delete");
    EXPECT_TRUE(outlook.view(item).userProperties.empty());
    EXPECT_NE(errorOf([&] { mark.get(L"Value"); }), 0);

    properties.call(L"Add", L"Hidden", 1, false);
    EXPECT_EQ(outlook.fieldsOf(L"Inbox"), (std::set<std::wstring>{L"Mark"})) << "fields of the folder";
}

TEST(HostMailboxTest, ItemsHaveTheMembersOfTheirClassAndVersion) {
    struct Case {
        const wchar_t* version;
        int itemClass;
        const wchar_t* member;
        bool has;
    };
    const Case cases[] = {
        {L"14.0.0.4760", host::itemClass::mail, L"SendUsingAccount", true},
        {L"11.0.0.5510", host::itemClass::mail, L"SendUsingAccount", false},
        {L"9.0.0.2711", host::itemClass::mail, L"SenderEmailAddress", false},
        {L"14.0.0.4760", host::itemClass::contact, L"Recipients", false},
        {L"14.0.0.4760", host::itemClass::contact, L"EntryID", true},
        {L"14.0.0.4760", host::itemClass::note, L"Reply", false},
        {L"14.0.0.4760", host::itemClass::post, L"Reply", true},
        {L"14.0.0.4760", host::itemClass::post, L"ReplyAll", false},
        {L"14.0.0.4760", host::itemClass::report, L"DeferredDeliveryTime", false},
    };
    for (const Case& test : cases) {
        host::Outlook outlook({.version = test.version});
        const Object item = outlook.receive({.itemClass = test.itemClass});
        EXPECT_EQ(item.get(L"Class").toInteger(), test.itemClass);
        const auto number = errorOf([&] { item.target()->memberId(test.member); });
        EXPECT_EQ(number, test.has ? 0 : 438) << test.itemClass << " " << number;
    }
}

/// As on an Exchange mailbox: whoever saves second is refused, and has to open the item anew.
TEST(HostMailboxTest, AnotherOutlookWritesAnItem) {
    host::Outlook outlook({});
    const Object item = outlook.store(L"Drafts", {.subject = L"Budget", .body = L"old"});
    outlook.writeBodyElsewhere(item, L"theirs");
    EXPECT_EQ(item.get(L"Body").toText(), L"theirs");

    item.put(L"Body", L"ours");
    outlook.writeBodyElsewhere(item, L"theirs again");
    EXPECT_EQ(item.get(L"Body").toText(), L"ours");
    for (int attempt = 0; attempt < 2; ++attempt) {
        EXPECT_EQ(errorOf([&] { item.call(L"Save"); }), host::raise::objectChanged);
    }
    const Object drafts = item.get(L"Parent").toObject();
    const Object again = drafts.get(L"Items").toObject().get(L"Item", 1).toObject();
    EXPECT_EQ(again.get(L"Body").toText(), L"theirs again");
    again.put(L"Body", L"ours");
    EXPECT_NO_THROW(again.call(L"Save"));
    EXPECT_EQ(outlook.view(item).body, L"ours");
}

}  // namespace
