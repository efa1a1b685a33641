#include <gtest/gtest.h>

#include "tests/host/EventLog.h"
#include "tests/host/stamps.h"

namespace {

using automation::Object;
using automation::Value;

constexpr auto tag(std::uint32_t value) {
    return static_cast<std::int32_t>(value);
}

/// An object of Redemption's with its Item set.
Object safe(host::Outlook& outlook, const wchar_t* progId, const Object& item) {
    const Object object = outlook.automation().createObject(progId);
    object.put(L"Item", item);
    return object;
}

host::Address exchangeUser() {
    return {.name = L"Ann",
            .address = L"/o=Org/ou=Site/cn=ann",
            .type = L"EX",
            .proxies = {L"smtp:old@example.com", L"SMTP:ann@example.com"},
            .smtpAddress = L"fallback@example.com"};
}

TEST(HostSafeItemTest, ReadsSendersByTagThroughTheObjectOfTheItemsClass) {
    struct Case {
        int itemClass;
        const wchar_t* progId;
    };
    const Case cases[] = {{host::itemClass::mail, L"vtRedemption.vtSafeMailItem"},
                          {host::itemClass::post, L"vtRedemption.vtSafePostItem"},
                          {host::itemClass::report, L"vtredemption.VTSAFEREPORTITEM"}};
    for (const Case& test : cases) {
        host::Outlook outlook({});
        const Object item =
            outlook.receive({.itemClass = test.itemClass,
                             .from = exchangeUser(),
                             .onBehalfOf = host::Address{.name = L"Boss", .address = L"boss@example.com"},
                             .deliveryTime = automation::Date{45000.25}});
        const Object mail = safe(outlook, test.progId, item);
        EXPECT_EQ(mail.get(L"Fields", tag(0x0C1E001E)).toText(), L"EX");
        EXPECT_EQ(mail.get(L"Fields", tag(0x0064001E)).toText(), L"SMTP");
        EXPECT_EQ(mail.get(L"Fields", tag(0x0065001E)).toText(), L"boss@example.com");
        EXPECT_EQ(mail.get(L"Fields", tag(0x0E060040)).toDate(), automation::Date{45000.25});
        EXPECT_TRUE(mail.get(L"Fields", tag(0x66660003)).isEmpty());
        const Object sender = mail.get(L"Sender").toObject();
        EXPECT_EQ(sender.get(L"SmtpAddress").toText(), L"fallback@example.com");
        const automation::Array proxies = sender.get(L"Fields", tag(0x800F101E)).toArray();
        ASSERT_EQ(proxies.size(), 2U);
        EXPECT_EQ(proxies[1].toText(), L"SMTP:ann@example.com");
    }
}

TEST(HostSafeItemTest, PassesUnknownNamesOnToTheItem) {
    host::Outlook outlook({});
    const Object inspector = outlook.openNewMail(mailTo(L"bob@example.com"));
    const Object item = outlook.itemOf(inspector);
    const Object mail = safe(outlook, L"vtRedemption.vtSafeMailItem", item);
    mail.put(L"Subject", L"New");
    mail.put(L"deferreddeliverytime", automation::Date{46000});
    EXPECT_EQ(item.get(L"EntryID").toText(), L"");
    mail.call(L"Save");
    EXPECT_FALSE(item.get(L"EntryID").toText().empty());
    const host::ItemView view = outlook.view(item);
    EXPECT_EQ(view.subject, L"New");
    EXPECT_EQ(view.deferred, automation::Date{46000});
    EXPECT_EQ(view.folderPath, L"\\\\Personal Folders\\Drafts");
    EXPECT_EQ(errorOf([&] { mail.get(L"Nonsense"); }), 438);
    EXPECT_EQ(errorOf([&] { mail.put(L"To", L"x@example.com"); }), 438) << "read-only on the safe item";

    const Object window = safe(outlook, L"vtRedemption.vtSafeInspector", inspector);
    EXPECT_EQ(window.get(L"CurrentItem").toObject(), item);
    // A folder can be walked through a safe item too, but it has no fields.
    const Object folder = safe(outlook, L"vtRedemption.vtSafeMailItem",
                               outlook.application()
                                   .call(L"GetNamespace", L"MAPI")
                                   .toObject()
                                   .call(L"GetDefaultFolder", 16)
                                   .toObject());
    EXPECT_EQ(folder.get(L"Items").toObject().get(L"Count").toInteger(), 1);
    EXPECT_NE(errorOf([&] { folder.get(L"Recipients"); }), 0);
}

TEST(HostSafeItemTest, AnEmptySafeItemRaises) {
    host::Outlook outlook({});
    const Object mail = outlook.automation().createObject(L"vtRedemption.vtSafeMailItem");
    EXPECT_NE(errorOf([&] { mail.get(L"Body"); }), 0);
    EXPECT_EQ(errorOf([&] { mail.call(L"Save"); }), 438);
    EXPECT_EQ(errorOf([&] { mail.put(L"Item", L"text"); }), 13);
}

TEST(HostSafeItemTest, RecipientsAndAttachmentsHaveFieldsOnlyWhenSafe) {
    host::Outlook outlook({});
    host::Message message = mailTo(L"bob@example.com");
    message.to = {exchangeUser(),
                  {.name = L"Team", .address = L"team", .type = L"MAPIPDL", .members = {exchangeUser()}}};
    message.attachments = {{.fileName = L"logo.png", .contentId = L"logo@1"}, {.fileName = L"plan.pdf"}};
    const Object item = outlook.itemOf(outlook.openNewMail(message));
    const Object mail = safe(outlook, L"vtRedemption.vtSafeMailItem", item);

    const Object recipients = mail.get(L"Recipients").toObject();
    EXPECT_EQ(recipients.get(L"Count").toInteger(), 0) << "what was never saved";
    EXPECT_EQ(item.get(L"Recipients").toObject().get(L"Count").toInteger(), 2) << "Outlook's own list";
    mail.call(L"Save");
    const Object list = recipients.get(L"Item", 2).toObject().get(L"AddressEntry").toObject();
    EXPECT_EQ(list.get(L"Type").toText(), L"MAPIPDL");
    EXPECT_EQ(list.get(L"DisplayType").toInteger(), 5);
    EXPECT_EQ(list.get(L"Members").toObject().get(L"Count").toInteger(), 1);
    const Object person = recipients.get(L"Item", 1).toObject().get(L"AddressEntry").toObject();
    EXPECT_FALSE(person.get(L"Members").toObject());
    EXPECT_EQ(person.get(L"SMTPAddress").toText(), L"fallback@example.com");
    const Object plain = item.get(L"Recipients", 1).toObject().get(L"AddressEntry").toObject();
    EXPECT_EQ(errorOf([&] { plain.get(L"SMTPAddress"); }), 438);
    EXPECT_FALSE(plain == person) << "an object of Outlook's with the members of Redemption's";

    const Object attachments = mail.get(L"Attachments").toObject();
    EXPECT_EQ(attachments.get(L"Item", 1).toObject().get(L"Fields", tag(0x3712001E)).toText(), L"logo@1");
    EXPECT_TRUE(attachments.get(L"Item", 2).toObject().get(L"Fields", tag(0x3712001E)).isEmpty());
    EXPECT_EQ(attachments.get(L"Item", 2).toObject().get(L"FileName").toText(), L"plan.pdf");
    EXPECT_EQ(errorOf([&] { item.get(L"Attachments", 1).toObject().get(L"Fields", tag(0x3712001E)); }), 438);
}

TEST(HostSafeItemTest, SeesWhatOutlookHasSaved) {
    host::Outlook outlook({});
    const Object item = outlook.itemOf(outlook.openNewMail(mailTo(L"bob@example.com")));
    const Object mail = safe(outlook, L"vtRedemption.vtSafeMailItem", item);
    const auto expect = [&](const wchar_t* body, const wchar_t* to, std::int32_t attachments) {
        EXPECT_EQ(mail.get(L"Body").toText(), body);
        EXPECT_EQ(mail.get(L"To").toText(), to);
        EXPECT_EQ(mail.get(L"Attachments").toObject().get(L"Count").toInteger(), attachments);
    };
    outlook.typeBody(item, L"Hello");
    expect(L"", L"", 0);
    item.call(L"Save");
    expect(L"Hello", L"Bob", 0);
    outlook.typeBody(item, L"Hello again");
    item.put(L"To", L"ann@example.com");
    item.get(L"Attachments").toObject().call(L"Add", L"C:\\plan.pdf");
    expect(L"Hello", L"Bob", 0);
    mail.call(L"Save");
    expect(L"Hello again", L"ann@example.com", 1);
}

TEST(HostSafeItemTest, WritesWhatOutlookSeesOnceItHasSaved) {
    constexpr auto ownField = tag(0x66660003);
    const struct {
        const char* name;
        bool touched;
        bool saved;
        bool kept;
    } cases[] = {{"left alone", false, false, false},
                 {"saved untouched", false, true, false},
                 {"touched only", true, false, false},
                 {"touched and saved", true, true, true}};
    for (const auto& given : cases) {
        host::Outlook outlook({});
        const Object inspector = outlook.openNewMail(mailTo(L"bob@example.com"));
        const Object item = outlook.itemOf(inspector);
        item.call(L"Save");
        const Object mail = safe(outlook, L"vtRedemption.vtSafeMailItem", item);
        mail.put(L"Body", L"Written");
        mail.put(L"Fields", ownField, 7);
        EXPECT_EQ(mail.get(L"Body").toText(), L"Written") << given.name;
        if (given.touched) {
            item.put(L"Subject", item.get(L"Subject"));
        }
        if (given.saved) {
            item.call(L"Save");
        }
        EXPECT_EQ(outlook.view(item).body == L"Written", given.kept) << given.name;
        const Object sent = outlook.send(inspector).item;
        EXPECT_EQ(sent.get(L"Body").toText() == L"Written", given.kept) << given.name;
        const Object copy = safe(outlook, L"vtRedemption.vtSafeMailItem", sent);
        EXPECT_EQ(copy.get(L"Fields", ownField).isEmpty(), !given.kept) << given.name;
    }
}

TEST(HostSafeItemTest, OfTwoWritersOfOnePartOutlookIsTheLast) {
    host::Outlook outlook({});
    const Object item = outlook.itemOf(outlook.openNewMail(mailTo(L"bob@example.com")));
    item.call(L"Save");
    const Object mail = safe(outlook, L"vtRedemption.vtSafeMailItem", item);
    mail.put(L"Body", L"Written");
    outlook.typeBody(item, L"Typed");
    item.call(L"Save");
    EXPECT_EQ(mail.get(L"Body").toText(), L"Typed");
    EXPECT_EQ(outlook.view(item).body, L"Typed");
}

TEST(HostSafeItemTest, AStoreCanRefuseAProperty) {
    host::Outlook outlook({.refusedFields = {0x812C001E}});
    const Object item = outlook.itemOf(outlook.openNewMail(mailTo(L"bob@example.com")));
    const Object mail = safe(outlook, L"vtRedemption.vtSafeMailItem", item);
    EXPECT_NE(errorOf([&] { mail.put(L"Fields", tag(0x812C001E), L"Work"); }), 0);
    EXPECT_NE(errorOf([&] { mail.put(L"Fields", tag(0x812C001F), L"Work"); }), 0) << "its Unicode form";
    mail.put(L"Fields", tag(0x812D001E), L"Work");
    EXPECT_EQ(mail.get(L"Fields", tag(0x812D001E)).toText(), L"Work");
}

TEST(HostSafeItemTest, TheSessionKnowsAccountsStoresAndMessages) {
    host::Profile profile;
    profile.accounts = {{.name = L"Work", .address = L"me@example.org"},
                        {.name = L"Office", .address = L"office", .type = host::AccountType::Exchange},
                        {.name = L"Directory", .address = L"ldap", .type = host::AccountType::Ldap}};
    profile.stores.push_back(
        {.name = L"Mailbox - Ann", .kind = host::StoreKind::PrimaryExchange, .owner = exchangeUser()});
    host::Outlook outlook(profile);
    const Object session = outlook.automation().createObject(L"vtRedemption.vtRDOSession");
    EXPECT_FALSE(session.get(L"LoggedOn").toBool());
    EXPECT_NE(errorOf([&] { session.get(L"Accounts"); }), 0) << "before the session is tied";
    session.put(L"MAPIOBJECT", outlook.application().get(L"Session").toObject().get(L"MAPIOBJECT"));
    session.call(L"Logon");

    const Object order = session.get(L"Accounts").toObject().call(L"GetOrder", 2).toObject();
    EXPECT_EQ(order.get(L"Count").toInteger(), 2);
    EXPECT_EQ(order.get(L"Item", 1).toObject().get(L"SMTPAddress").toText(), L"me@example.org");
    EXPECT_EQ(errorOf([&] { order.get(L"Item", 2).toObject().get(L"SMTPAddress"); }), 438);
    const Object work = session.get(L"Accounts").toObject().get(L"Item", L"work").toObject();
    EXPECT_FALSE(work.get(L"Stamp").toText().empty());
    EXPECT_FALSE(work.get(L"Fields", tag(0x000E001F)).toText().empty());
    EXPECT_NE(errorOf([&] { session.get(L"Accounts").toObject().get(L"Item", L"Gone"); }), 0);

    const Object stores = session.get(L"Stores").toObject();
    EXPECT_EQ(stores.get(L"Item", 1).toObject().get(L"IPMRootFolder").toObject().get(L"FolderPath").toText(),
              L"\\\\Personal Folders");
    EXPECT_EQ(errorOf([&] { stores.get(L"Item", 1).toObject().get(L"Owner"); }), 438);
    const Object owner = stores.get(L"Item", 2).toObject().get(L"Owner").toObject();
    EXPECT_EQ(owner.get(L"SmtpAddress").toText(), L"fallback@example.com");

    const Object item = outlook.receive(mailTo(L"me@example.org"));
    const Object message = session.call(L"GetMessageFromID", item.get(L"EntryID")).toObject();
    EXPECT_FALSE(message.get(L"Account").toObject());
    writeStamp(message, session.get(L"Accounts").toObject().get(L"Item", L"Office").toObject());
    EXPECT_EQ(message.get(L"Account").toObject().get(L"Name").toText(), L"Office");
    message.put(L"UnRead", false);
    EXPECT_FALSE(outlook.view(item).unread);
    message.call(L"Delete");
    EXPECT_EQ(outlook.itemsIn(L"Deleted Items").size(), 1U);
}

TEST(HostSafeItemTest, RedemptionCanBeMissing) {
    host::Outlook outlook({.redemptionRegistered = false});
    EXPECT_EQ(errorOf([&] { outlook.automation().createObject(L"vtRedemption.vtMAPIUtils"); }), 429);
    const Object application = outlook.automation().createObject(L"outlook.application");
    EXPECT_EQ(application.get(L"Version").toText(), L"14.0.0.4760");
}

}  // namespace
