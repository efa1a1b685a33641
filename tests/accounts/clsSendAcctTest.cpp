#include "accounts/clsSendAcct.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

#include "accounts/listBody.h"
#include "tests/accounts/AccountsWorld.h"

namespace {

const Entries twoEntries{{L"ann@example.org", L"Work"}, {L"bob@example.org", L"Home"}};

TEST(StoredList, IsMadeOnceInItsFolder) {
    host::Profile profile;
    profile.folders = {tarnwellFolder};
    AccountsWorld world(profile);
    const auto items = world.outlook.itemsIn(tarnwellFolder);
    ASSERT_EQ(items.size(), 1U);
    const host::ItemView item = world.outlook.view(items[0]);
    EXPECT_EQ(item.subject, L"Email Address");
    EXPECT_EQ(item.body, accounts::emptyList);
    EXPECT_FALSE(item.unread);
    EXPECT_EQ(world.list.count(), 0U);
    EXPECT_TRUE(world.outlook.itemsIn(L"Drafts").empty());
    EXPECT_EQ(world.globals.settingsFolder, L"\\\\Personal Folders\\Tarnwell Settings\\Veltro");

    EXPECT_TRUE(world.add(L" bob@example.org ", L"Home"));
    EXPECT_TRUE(world.list.LoadList());
    EXPECT_EQ(world.loaded(), (Entries{{L"bob@example.org", L"Home"}}));
    EXPECT_EQ(world.outlook.itemsIn(tarnwellFolder).size(), 1U);
    EXPECT_TRUE(world.log.messages.empty());
}

/// The connector of Google Apps would carry a saved draft to the server before it is in its folder.
TEST(StoredList, IsSavedBeforeItIsMovedUnlessTheConnectorWouldCarryItOff) {
    for (const auto& [store, saves] : {std::pair{L"Personal Folders", 1}, {L"Google Apps", 0}}) {
        host::Profile profile;
        profile.folders = {tarnwellFolder};
        profile.stores[0].name = store;
        TestWorld world({}, profile);
        accounts::clsSendAcct list(world.globals);
        list.Initialise();
        world.outlook.meter()->record(true);
        EXPECT_TRUE(list.LoadList());
        EXPECT_EQ(std::ranges::count(world.outlook.meter()->log(), L"SafeMailItem.Save"), saves);
        EXPECT_EQ(world.outlook.view(world.outlook.itemsIn(tarnwellFolder).at(0)).body, accounts::emptyList);
    }
}

TEST(StoredList, FirstItemOfThatSubjectHoldsIt) {
    host::Profile profile = profileWith(listText(twoEntries));
    host::StoredMessage other = storedList(L"note");
    other.message.subject = L"email address";
    profile.messages = {other, storedList(listText(twoEntries)), storedList(accounts::emptyList)};
    AccountsWorld world(profile);
    EXPECT_EQ(world.loaded(), twoEntries);
}

TEST(StoredList, IsChangedAndFoundAgain) {
    AccountsWorld world(twoEntries);
    EXPECT_TRUE(world.change(1, L"ann@example.net", L"Home"));
    EXPECT_TRUE(world.remove(2));
    EXPECT_TRUE(world.add(L"'q'@example.org", L"R&D <lab>"));
    const Entries expected{{L"'q'@example.org", L"R&D <lab>"}, {L"ann@example.net", L"Home"}};
    EXPECT_EQ(world.stored(), expected);
    EXPECT_TRUE(world.list.LoadList());
    EXPECT_EQ(world.loaded(), expected);
}

/// The start-up moves the folder once; until the resource library says so, the list is looked for in both
/// places.
TEST(StoredList, IsFoundWhereverItsFolderIs) {
    const struct {
        const char* name;
        std::vector<std::wstring> folders;
        std::wstring listIn;
        std::wstring foundIn;
    } cases[] = {{"moved", {}, corvaneFolder, corvaneFolder},
                 {"moved, old parent kept", {L"Tarnwell Settings\\Other"}, corvaneFolder, corvaneFolder},
                 {"old folder left empty", {tarnwellFolder}, corvaneFolder, corvaneFolder},
                 {"new folder without list", {corvaneFolder}, tarnwellFolder, tarnwellFolder}};
    for (const auto& [name, folders, listIn, foundIn] : cases) {
        SCOPED_TRACE(name);
        host::Profile profile = profileWith({});
        profile.folders = folders;
        profile.messages = {storedList(listText(twoEntries), listIn.c_str())};
        AccountsWorld world(profile);
        EXPECT_EQ(world.loaded(), twoEntries);
        EXPECT_TRUE(world.list.CreatePostrouteFolder());
        EXPECT_TRUE(world.add(L"cy@example.org", L"Work"));
        EXPECT_EQ(world.stored(foundIn).size(), 3U);
        EXPECT_EQ(world.outlook.itemsIn(tarnwellFolder).size() + world.outlook.itemsIn(corvaneFolder).size(),
                  1U);
        EXPECT_TRUE(world.log.messages.empty());
    }
}

/// What a failing mailbox does not show is not missing.
TEST(StoredList, IsNeverMadeASecondTimeByAFailure) {
    host::Profile profile = profileWith({});
    profile.folders = {};
    profile.messages = {storedList(listText(twoEntries), corvaneFolder)};
    for (std::size_t call = 1; call <= 60; ++call) {
        AccountsWorld world(profile);
        world.outlook.failCall(call);
        world.list.CreatePostrouteFolder();
        world.list.LoadList();
        world.outlook.failCall(0);
        EXPECT_FALSE(world.outlook.folderExists(tarnwellFolder)) << "call " << call;
        EXPECT_EQ(world.outlook.itemsIn(corvaneFolder).size(), 1U) << "call " << call;
        EXPECT_TRUE(world.list.LoadList()) << "call " << call;
        EXPECT_EQ(world.loaded(), twoEntries) << "call " << call;
    }
}

TEST(StoredList, LeavesNoHalfMadeItem) {
    bool failed = true;
    for (std::size_t call = 1; failed; ++call) {
        AccountsWorld world(twoEntries);
        world.outlook.deleteItem(world.outlook.itemsIn(tarnwellFolder)[0]);
        const std::size_t before = world.outlook.calls();
        world.outlook.failCall(call);
        world.list.LoadList();
        failed = world.outlook.calls() - before >= call;
        world.outlook.failCall(0);
        EXPECT_TRUE(world.outlook.itemsIn(L"Drafts").empty()) << "call " << call;
        EXPECT_TRUE(world.list.LoadList()) << "call " << call;
        EXPECT_EQ(world.outlook.itemsIn(tarnwellFolder).size(), 1U) << "call " << call;
        EXPECT_EQ(world.storedBody(), accounts::emptyList) << "call " << call;
    }
}

TEST(StoredList, ChangesOfAnotherOutlookAreKept) {
    AccountsWorld world(twoEntries);
    accounts::clsSendAcct other(world.globals);
    other.LoadList();

    ASSERT_TRUE(world.add(L"aaa@example.org", L"Work"));
    other.AbsolutePosition(2);
    EXPECT_TRUE(other.Delete());
    EXPECT_EQ(world.stored(), (Entries{{L"aaa@example.org", L"Work"}, twoEntries[0]}));

    other.AbsolutePosition(2);  // Ann.
    world.list.LoadList();
    ASSERT_TRUE(world.change(2, L"ann@example.org", L"Home"));
    other.Edit();
    other.strAccount = L"Third";
    EXPECT_FALSE(other.Update());
    EXPECT_EQ(other.ErrorReport, L"This record has been changed or deleted meanwhile.");
    EXPECT_EQ(world.stored()[1].second, L"Home");
}

TEST(StoredList, AnUnreadableBodyIsLeftAlone) {
    const std::wstring body = listText(twoEntries).substr(0, 1900) + L" oops";
    AccountsWorld world(profileWith(body), {L"Veltro=OK", L"Veltro=OK"});
    EXPECT_FALSE(world.add(L"cy@example.org", L"Work"));
    EXPECT_FALSE(world.list.ErrorReport.empty());
    EXPECT_FALSE(
        world.list.EmailAddressMailSave(accounts::AccountRows(accounts::emptyList).rowset(), L"the folder"));
    EXPECT_EQ(world.storedBody(), body);
    EXPECT_EQ(world.list.count(), 0U);
    ASSERT_EQ(world.log.messages.size(), 2U);
    EXPECT_EQ(world.log.messages[0].title, L"Veltro");
    EXPECT_EQ(world.log.messages[0].style.icon, platform::Icon::Information);
    EXPECT_EQ(
        world.log.messages[0].text,
        L"The list of your Email Addresses appears to be corrupted. \r\n\r\nThis data is saved in an e-mail "
        L"labeled 'Email Addresses' in the folder \\\\Personal Folders\\Tarnwell Settings\\Veltro. This "
        L"error can only occur if someone has changed the e-mail by hand.\r\n\r\nYou can correct this by:\r\n"
        L"1. Deleting/renaming your old data email so that Veltro can automatically make a new email to save "
        L"its data OR\r\n2. Manually fixing the error in the data email");

    // Doing as told helps.
    world.outlook.typeSubject(world.outlook.itemsIn(tarnwellFolder)[0], L"Email Address, old");
    EXPECT_TRUE(world.list.LoadList());
    EXPECT_TRUE(world.add(L"cy@example.org", L"Work"));
}

TEST(StoredList, StaysAsItIsWhenTheStoreRefuses) {
    host::Profile profile = profileWith(listText(twoEntries));
    profile.stores[0].readOnly = true;
    AccountsWorld world(profile, {L"Veltro=OK", L"Veltro=OK", L"Veltro=OK"});
    EXPECT_FALSE(world.add(L"cy@example.org", L"Work"));
    EXPECT_FALSE(world.change(1, L"ann@example.org", L"Home"));
    EXPECT_FALSE(world.remove(1));
    EXPECT_EQ(world.storedBody(), listText(twoEntries));
    EXPECT_EQ(world.loaded(), twoEntries);
    ASSERT_EQ(world.log.messages.size(), 3U);
    EXPECT_TRUE(world.log.messages[0].text.starts_with(L"Error:EmailAddressMailSave - "));
}

/// Whichever call fails, the stored list is the old or the new one, and what is answered is true of it.
TEST(StoredList, SurvivesEveryFailure) {
    const std::function<bool(AccountsWorld&)> changes[] = {
        [](AccountsWorld& world) { return world.add(L"cy@example.org", L"Work"); },
        [](AccountsWorld& world) { return world.change(2, L"bob@example.net", L"Work"); },
        [](AccountsWorld& world) { return world.remove(2); }};
    for (const auto& change : changes) {
        bool failed = true;
        std::size_t call = 1;
        for (; failed; ++call) {
            AccountsWorld world(twoEntries);
            const std::size_t before = world.outlook.calls();
            world.outlook.failCall(call);
            const bool changed = change(world);
            failed = world.outlook.calls() - before >= call;
            world.outlook.failCall(0);

            ASSERT_EQ(world.outlook.itemsIn(tarnwellFolder).size(), 1U) << "call " << call;
            EXPECT_EQ(world.stored() == twoEntries, !changed) << "call " << call;
            EXPECT_TRUE(world.outlook.itemsIn(tarnwellFolder)[0].get(L"Saved").toBool())
                << "Outlook would store later what was given up, call " << call;
            EXPECT_EQ(world.list.ErrorReport.empty(), changed) << "call " << call;
            EXPECT_EQ(world.loaded().size(), world.stored().size()) << "call " << call;
        }
        EXPECT_GT(call, 20U);
    }
}

TEST(StoredList, SaysWhyItCannotBeChanged) {
    AccountsWorld world(host::Profile{});
    EXPECT_TRUE(world.list.Edit());
    EXPECT_EQ(world.list.ErrorReport, L"Cannot go to Edit mode as there is no current record");
    world.list.strEmailAddress = L"ann@example.org";
    EXPECT_FALSE(world.list.Update());
    EXPECT_EQ(world.list.ErrorReport, L"AddNew or Edit method must be done before the Update");
    EXPECT_FALSE(world.list.Delete());
    EXPECT_EQ(world.list.ErrorReport, L"No active record to delete");
    EXPECT_FALSE(world.add(L"   ", L"Work"));
    EXPECT_EQ(world.list.ErrorReport, L"Email Address cannot be saved because it has not been entered.");
    EXPECT_FALSE(world.add(std::wstring(256, L'a'), L"Work"));
    for (const wchar_t control : {L'\t', L'\n', L'\x1', L'\x7F', L'\x85'}) {
        for (const Entries::value_type& entry : {Entries::value_type(std::wstring(L"a") + control, L"Work"),
                                                 {L"a", std::wstring(L"W") + control}}) {
            EXPECT_FALSE(world.add(entry.first, entry.second));
            EXPECT_EQ(
                world.list.ErrorReport,
                L"Email Address cannot be saved because it or its account contains a control character, such "
                L"as a tab or a line break.");
        }
    }
    EXPECT_TRUE(world.add(std::wstring(255, L'a'), L"Work"));
    EXPECT_TRUE(world.list.ErrorReport.empty());
    EXPECT_FALSE(world.add(L"", L"Work"));
    world.list.AbsolutePosition(1);
    EXPECT_TRUE(world.list.Edit());
    EXPECT_TRUE(world.list.ErrorReport.empty());
}

TEST(StoredList, FindsExactlyWhatItHolds) {
    AccountsWorld world(Entries{{L"ann@example.org", L"Work"}, {L"o&#x27;neil@example.org", L"Home"}},
                        {L"AbsolutePosition_Get_Error - Veltro=OK"});
    EXPECT_TRUE(world.list.Find(L"ann@example.org"));
    EXPECT_EQ(world.list.strAccount, L"Work");
    EXPECT_FALSE(world.list.Find(L"o'neil@example.org"));
    EXPECT_EQ(world.list.strEmailAddress, L"ann@example.org");
    EXPECT_FALSE(world.list.Find(L"Ann@example.org"));
    EXPECT_EQ(world.list.AbsolutePosition(), accounts::clsSendAcct::endOfList);

    world.list.AbsolutePosition(2);
    EXPECT_EQ(world.list.strEmailAddress, L"o'neil@example.org");
    EXPECT_FALSE(world.list.Find(L"ann@example.org"));
    world.list.AbsolutePosition(3);
    ASSERT_EQ(world.log.messages.size(), 1U);
    EXPECT_TRUE(world.log.messages[0].text.starts_with(L"clsSendAcct.AbsolutePosition - Error 3001: "));
}

TEST(ListFolder, IsMadeAndToldOf) {
    host::Profile none;
    none.folders = {};
    AccountsWorld made(none, {L"Veltro=OK", L"Folder already exists - Veltro=OK"});
    EXPECT_FALSE(made.list.LoadList());
    EXPECT_TRUE(made.list.CreatePostrouteFolder());
    EXPECT_TRUE(made.outlook.folderExists(tarnwellFolder));
    ASSERT_EQ(made.log.messages.size(), 1U);
    EXPECT_EQ(made.log.messages[0].style.icon, platform::Icon::Information);
    EXPECT_EQ(
        made.log.messages[0].text,
        L"Veltro has created the following folder in Outlook for you:\r\n\\\\Personal "
        L"Folders\\Tarnwell Settings\\Veltro\r\n\r\nThis folder is used to save your Veltro Settings.\r\n"
        L"Please do not delete or change the folder or the e-mails in it.");
    EXPECT_TRUE(made.list.CreatePostrouteFolder());
    EXPECT_EQ(made.log.messages.size(), 1U);
    EXPECT_TRUE(made.list.CreatePostrouteFolder(accounts::clsSendAcct::Asked::ByUser));
    ASSERT_EQ(made.log.messages.size(), 2U);
    EXPECT_EQ(made.log.messages[1].title, L"Folder already exists - Veltro");

    none.stores[0].readOnly = true;
    AccountsWorld refused(none, {L"Veltro=OK"});
    EXPECT_FALSE(refused.list.CreatePostrouteFolder());
    ASSERT_EQ(refused.log.messages.size(), 1U);
    EXPECT_EQ(refused.log.messages[0].text, L"Unable to create the folder.");
}

/// Nor with a row that grows beyond what can be read.
TEST(StoredList, IsNotSavedAsWhatCannotBeReadAgain) {
    std::wstring columns;
    std::wstring row = L"<z:row";
    for (int number = 0; number < 9'999; ++number) {
        const std::wstring name = L"c" + std::to_wstring(number);
        columns += L"<s:AttributeType name='" + name + L"' rs:number='9'/>";
        row += L" " + name + L"=''";
    }
    const std::wstring body = text::replaceAll(listText(row + L"/>"), L"<s:extends", columns + L"<s:extends");
    AccountsWorld world(profileWith(body));
    ASSERT_EQ(world.list.count(), 1U);
    EXPECT_FALSE(world.change(1, L"ann@example.org", L"Work"));
    EXPECT_EQ(world.list.ErrorReport, L"The list would be too large to be read again.");
    EXPECT_EQ(world.storedBody(), body);
}

TEST(ListFolder, IsMissedWhenTheListIsToBeSaved) {
    AccountsWorld world(twoEntries, std::vector<std::wstring>(2, L"Error: ProjectListMailSave - Veltro=OK"));
    world.list.GetDefaultFolder().remove();
    EXPECT_FALSE(world.add(L"cy@example.org", L"Work"));
    ASSERT_EQ(world.log.messages.size(), 1U);
    EXPECT_EQ(world.log.messages[0].title, L"Error: ProjectListMailSave - Veltro");
    EXPECT_EQ(world.log.messages[0].style.icon, platform::Icon::Critical);
    EXPECT_EQ(world.log.messages[0].text, L"Unable to find mail item that is used to save e-mail addresses");
    EXPECT_EQ(world.list.ErrorReport, L"The list could not be saved. It is as it was before.");
    EXPECT_FALSE(
        world.list.EmailAddressMailSave(accounts::AccountRows(accounts::emptyList).rowset(), L"the folder"));
}

TEST(ListBody, IsTheSameWhereItsRowsAre) {
    const std::wstring body = listText(twoEntries);
    EXPECT_TRUE(accounts::listBody::holdSameList(body, text::replaceAll(body, L"\t<z:row", L"<z:row")));
    EXPECT_TRUE(accounts::listBody::holdSameList(L"note", L"note"));
    for (const std::wstring& other : {listText(Entries{twoEntries[0]}), std::wstring(L"note")}) {
        EXPECT_FALSE(accounts::listBody::holdSameList(body, other));
    }
}

TEST(ListFolder, IsMissedOnceItWasKnown) {
    AccountsWorld world(twoEntries, {L"Veltro=OK"});
    world.list.GetDefaultFolder().remove();
    EXPECT_FALSE(world.list.LoadList());
    EXPECT_EQ(world.list.count(), 0U);
    ASSERT_EQ(world.log.messages.size(), 1U);
    EXPECT_EQ(world.log.messages[0].style.icon, platform::Icon::Critical);
    EXPECT_EQ(world.log.messages[0].text,
              L"Unable to load list from the folder \\\\Personal Folders\\Tarnwell Settings\\Veltro as the "
              L"folder could not be found!");
}

}  // namespace
