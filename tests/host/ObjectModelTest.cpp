#include <gtest/gtest.h>

#include <cmath>

#include "tests/host/EventLog.h"

namespace {

using automation::Access;
using automation::Object;
using automation::Value;

/// An Outlook with something of everything in it.
host::Profile fullProfile() {
    host::Profile profile;
    profile.editor = host::Editor::Word;
    profile.addressBook = {{.name = L"Ann", .address = L"ann@example.com"}};
    return profile;
}

host::Message fullMessage() {
    host::Message message = mailTo(L"bob@example.com");
    message.from = host::Address{.name = L"Ann", .address = L"ann@example.com"};
    message.cc = {{.name = L"Team", .address = L"t", .type = L"MAPIPDL", .members = {{.name = L"Cy"}}}};
    message.replyTo = {{.name = L"List", .address = L"list@example.com"}};
    message.attachments = {{.fileName = L"a.txt", .contentId = L"1"}};
    return message;
}

/// One object of every class, as scripts reach them.
std::map<std::wstring, Object> everyObject(host::Outlook& outlook) {
    std::map<std::wstring, Object> all;
    const Object application = outlook.application();
    all[L"Application"] = application;
    all[L"NameSpace"] = application.get(L"Session").toObject();
    all[L"Folders"] = all[L"NameSpace"].get(L"Folders").toObject();
    all[L"Folder"] = all[L"NameSpace"].call(L"GetDefaultFolder", 6).toObject();
    all[L"Items"] = all[L"Folder"].get(L"Items").toObject();
    all[L"Explorers"] = application.get(L"Explorers").toObject();
    all[L"Explorer"] = application.call(L"ActiveExplorer").toObject();
    all[L"Selection"] = all[L"Explorer"].get(L"Selection").toObject();
    all[L"CommandBars"] = all[L"Explorer"].get(L"CommandBars").toObject();
    all[L"CommandBar"] = all[L"CommandBars"].get(L"Item", 1).toObject();
    all[L"Controls"] = all[L"CommandBar"].get(L"Controls").toObject();
    all[L"Popup"] = all[L"Controls"].get(L"Item", L"Help").toObject();
    all[L"Button"] = all[L"Popup"].get(L"Controls").toObject().call(L"Add", 1).toObject();
    all[L"Item"] = outlook.receive(fullMessage());
    all[L"Inspector"] = outlook.openItem(all[L"Item"]);
    all[L"Inspectors"] = application.get(L"Inspectors").toObject();
    all[L"Document"] = all[L"Inspector"].get(L"WordEditor").toObject();
    all[L"Word"] = all[L"Document"].get(L"Application").toObject();
    all[L"WordAddIns"] = all[L"Word"].get(L"AddIns").toObject();
    all[L"WordAddIn"] = all[L"WordAddIns"].call(L"Add", L"C:\\x.dot").toObject();
    all[L"Recipients"] = all[L"Item"].get(L"Recipients").toObject();
    all[L"Recipient"] = all[L"Recipients"].get(L"Item", 1).toObject();
    all[L"ListEntry"] = all[L"Recipients"].get(L"Item", 2).toObject().get(L"AddressEntry").toObject();
    all[L"Members"] = all[L"ListEntry"].get(L"Members").toObject();
    all[L"Attachments"] = all[L"Item"].get(L"Attachments").toObject();
    all[L"Attachment"] = all[L"Attachments"].get(L"Item", 1).toObject();
    all[L"UserProperties"] = all[L"Item"].get(L"UserProperties").toObject();
    all[L"UserProperty"] = all[L"UserProperties"].call(L"Add", L"P", 1).toObject();
    all[L"CurrentUser"] = all[L"NameSpace"].get(L"CurrentUser").toObject();
    all[L"Accounts"] = all[L"NameSpace"].get(L"Accounts").toObject();
    all[L"Account"] = all[L"Accounts"].get(L"Item", 1).toObject();
    outlook.makeAddIn(L"Veltro.Connect");
    all[L"AddIns"] = application.get(L"COMAddIns").toObject();
    all[L"AddIn"] = all[L"AddIns"].get(L"Item", L"Veltro.Connect").toObject();
    for (const wchar_t* name : {L"vtSafeMailItem", L"vtSafePostItem", L"vtSafeReportItem"}) {
        all[name] = outlook.automation().createObject(L"vtRedemption." + std::wstring(name));
        all[name].put(L"Item", all[L"Item"]);
    }
    all[L"SafeInspector"] = outlook.automation().createObject(L"vtRedemption.vtSafeInspector");
    all[L"SafeRecipient"] = all[L"vtSafeMailItem"].get(L"Recipients", 1).toObject();
    all[L"SafeEntry"] = all[L"SafeRecipient"].get(L"AddressEntry").toObject();
    all[L"SafeAttachment"] = all[L"vtSafeMailItem"].get(L"Attachments", 1).toObject();
    all[L"Rdo"] = outlook.automation().createObject(L"vtRedemption.vtRDOSession");
    all[L"Rdo"].put(L"MAPIOBJECT", all[L"NameSpace"].get(L"MAPIOBJECT"));
    all[L"RdoStores"] = all[L"Rdo"].get(L"Stores").toObject();
    all[L"RdoStore"] = all[L"RdoStores"].get(L"Item", 1).toObject();
    all[L"RdoAccounts"] = all[L"Rdo"].get(L"Accounts").toObject();
    all[L"RdoOrder"] = all[L"RdoAccounts"].call(L"GetOrder", 2).toObject();
    all[L"RdoAccount"] = all[L"RdoOrder"].get(L"Item", 1).toObject();
    all[L"RdoMail"] = all[L"Rdo"].call(L"GetMessageFromID", all[L"Item"].get(L"EntryID")).toObject();
    all[L"Utils"] = outlook.automation().createObject(L"vtRedemption.vtMAPIUtils");
    return all;
}

/// The members that any of the objects has.
constexpr const wchar_t* memberNames[] = {L"Account",
                                          L"Accounts",
                                          L"AccountType",
                                          L"Activate",
                                          L"ActiveDocument",
                                          L"ActiveExplorer",
                                          L"ActiveInspector",
                                          L"ActiveMenuBar",
                                          L"ActiveWindow",
                                          L"Add",
                                          L"AddIns",
                                          L"Address",
                                          L"AddressEntry",
                                          L"Application",
                                          L"Attachments",
                                          L"BCC",
                                          L"BeginGroup",
                                          L"Body",
                                          L"Caption",
                                          L"CC",
                                          L"Class",
                                          L"CleanUp",
                                          L"Close",
                                          L"COMAddIns",
                                          L"CommandBars",
                                          L"Connect",
                                          L"Controls",
                                          L"Count",
                                          L"CreateItem",
                                          L"CurrentFolder",
                                          L"CurrentItem",
                                          L"CurrentUser",
                                          L"DefaultItemType",
                                          L"DeferredDeliveryTime",
                                          L"Delete",
                                          L"Description",
                                          L"Display",
                                          L"DisplayName",
                                          L"DisplayType",
                                          L"Documents",
                                          L"EditorType",
                                          L"Enabled",
                                          L"EntryID",
                                          L"Execute",
                                          L"Explorers",
                                          L"FaceId",
                                          L"Fields",
                                          L"FileName",
                                          L"Find",
                                          L"FolderPath",
                                          L"Folders",
                                          L"Forward",
                                          L"FullName",
                                          L"GetDefaultFolder",
                                          L"GetFolderFromID",
                                          L"GetInspector",
                                          L"GetItemFromID",
                                          L"GetMessageFromID",
                                          L"GetNamespace",
                                          L"GetOrder",
                                          L"Guid",
                                          L"HTMLBody",
                                          L"ID",
                                          L"Index",
                                          L"Inspectors",
                                          L"Installed",
                                          L"IPMRootFolder",
                                          L"IsWordMail",
                                          L"Item",
                                          L"Items",
                                          L"LoggedOn",
                                          L"Logoff",
                                          L"Logon",
                                          L"MAPIOBJECT",
                                          L"Mask",
                                          L"Members",
                                          L"MessageClass",
                                          L"Move",
                                          L"MoveTo",
                                          L"Name",
                                          L"Object",
                                          L"OnAction",
                                          L"Owner",
                                          L"Parameter",
                                          L"Parent",
                                          L"Picture",
                                          L"ProgId",
                                          L"Quit",
                                          L"ReceivedTime",
                                          L"Recipients",
                                          L"Remove",
                                          L"Reply",
                                          L"ReplyAll",
                                          L"ReplyRecipients",
                                          L"Resolve",
                                          L"ResolveAll",
                                          L"Resolved",
                                          L"Run",
                                          L"Save",
                                          L"Saved",
                                          L"Selection",
                                          L"Send",
                                          L"Sender",
                                          L"SenderEmailAddress",
                                          L"SenderEmailType",
                                          L"SenderName",
                                          L"SendUsingAccount",
                                          L"Sent",
                                          L"SentOnBehalfOfName",
                                          L"Session",
                                          L"SmtpAddress",
                                          L"Stamp",
                                          L"StoreID",
                                          L"StoreKind",
                                          L"Stores",
                                          L"Style",
                                          L"Subject",
                                          L"Tag",
                                          L"Templates",
                                          L"To",
                                          L"TooltipText",
                                          L"Type",
                                          L"UnRead",
                                          L"UserName",
                                          L"UserProperties",
                                          L"Value",
                                          L"Version",
                                          L"Visible",
                                          L"Windows",
                                          L"WordEditor"};

std::vector<std::vector<Value>> hostileArguments(Value& variable) {
    std::vector<std::vector<Value>> all = {{}, std::vector<Value>(40, Value(1))};
    for (const Value& value : std::vector<Value>{{},
                                                 true,
                                                 0,
                                                 -1,
                                                 1,
                                                 2147483647,
                                                 1e300,
                                                 std::nan(""),
                                                 automation::Date{-1e12},
                                                 L"",
                                                 L"x",
                                                 L"-2147483648",
                                                 Object(),
                                                 automation::Array{1},
                                                 Value::reference(variable)}) {
        all.push_back({value});
        all.push_back({value, value});
        all.push_back({Value(1), value});
        all.push_back(std::vector<Value>(5, value));
    }
    return all;
}

TEST(HostObjectModelTest, NoCallWhateverItsArgumentsBreaksAnything) {
    Value variable(L"text");
    const auto arguments = hostileArguments(variable);
    host::Outlook probe(fullProfile());
    for (const auto& [name, sample] : everyObject(probe)) {
        std::size_t members = 0;
        for (const wchar_t* member : memberNames) {
            std::int32_t id = 0;
            if (errorOf([&] { id = sample.target()->memberId(member); }) != 0) {
                continue;
            }
            ++members;
            // A fresh Outlook for each member: calls close windows and delete items.
            host::Outlook outlook(fullProfile());
            const Object object = everyObject(outlook).at(name);
            for (const Access access : {Access::Get, Access::Put, Access::Call}) {
                for (const auto& list : arguments) {
                    errorOf([&] { object.target()->invoke(id, access, list); });
                }
            }
            errorOf([&] { object.target()->invoke(id + 1, Access::Get, arguments.back()); });
            EXPECT_NO_THROW(outlook.send(outlook.openNewMail(mailTo(L"bob@example.com"))));
        }
        EXPECT_GE(members, 1U) << std::string(name.begin(), name.end());
    }
}

TEST(HostObjectModelTest, EveryObjectFailsOnceOutlookIsGone) {
    std::map<std::wstring, Object> all;
    std::shared_ptr<host::Meter> meter;
    {
        host::Outlook outlook(fullProfile());
        all = everyObject(outlook);
        meter = outlook.meter();
    }
    for (const auto& [name, object] : all) {
        const std::string label(name.begin(), name.end());
        EXPECT_NE(errorOf([&] { object.target()->memberId(L"Name"); }), 0) << label;
        EXPECT_NE(errorOf([&] { object.target()->invoke(81, Access::Get, {}); }), 0) << label;
        EXPECT_NE(errorOf([&] { object.target()->subscribe(outlook::events::item, {}); }), 0) << label;
    }
    all.clear();
    EXPECT_EQ(meter->liveObjects(), 0U);
}

TEST(HostObjectModelTest, ErrorsAreThoseOfAutomation) {
    host::Outlook outlook({});
    const Object application = outlook.application();
    const Object explorers = application.get(L"Explorers").toObject();
    struct Case {
        const char* what;
        std::function<void()> action;
        std::int32_t number;
    };
    const Case cases[] = {
        {"unknown member", [&] { application.get(L"Nonsense"); }, 438},
        {"write of a read-only property", [&] { application.put(L"Version", L"1"); }, 438},
        {"too many arguments", [&] { application.call(L"ActiveExplorer", 1, 2); }, -2147352562},
        {"too few arguments", [&] { application.call(L"CreateItem"); }, -2147352562},
        {"wrong type", [&] { application.call(L"CreateItem", L"mail"); }, 13},
        {"index 0", [&] { explorers.get(L"Item", 0); }, -2147352567},
        {"index beyond the end", [&] { explorers.get(L"Item", 2); }, -2147352567},
        {"unknown class", [&] { outlook.automation().createObject(L"No.Such"); }, 429},
        {"names in any case", [&] { application.get(L"vERSION"); }, 0},
        {"a collection indexed by its property", [&] { application.get(L"Explorers", 1); }, 0},
    };
    for (const Case& test : cases) {
        EXPECT_EQ(errorOf(test.action), test.number) << test.what;
    }
}

TEST(HostObjectModelTest, DispatchIdsAreOutlooks) {
    host::Outlook outlook(fullProfile());
    auto all = everyObject(outlook);
    struct Case {
        const wchar_t* object;
        const wchar_t* member;
        std::int32_t id;
    };
    const Case cases[] = {
        {L"Application", L"ActiveInspector", 274},
        {L"NameSpace", L"GetDefaultFolder", 8459},
        {L"Explorer", L"Selection", 8706},
        {L"Inspector", L"EditorType", 8464},
        {L"Item", L"Subject", 55},
        {L"Item", L"DeferredDeliveryTime", 15},
        {L"Item", L"SendUsingAccount", 64209},
        {L"Recipients", L"ResolveAll", 126},
        {L"Recipient", L"AddressEntry", 121},
        {L"ListEntry", L"Members", 772},
        {L"Folder", L"FolderPath", 64120},
        {L"UserProperties", L"Find", 103},
        {L"UserProperty", L"Delete", 108},
        {L"vtSafeMailItem", L"Fields", 12245937},
        {L"Rdo", L"GetMessageFromID", 9},
        {L"RdoAccount", L"Stamp", 7},
        {L"AddIn", L"ProgId", 3},
    };
    for (const Case& test : cases) {
        EXPECT_EQ(all.at(test.object).target()->memberId(test.member), test.id);
    }
}

}  // namespace
