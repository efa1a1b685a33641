#include <gtest/gtest.h>

#include <cmath>
#include <sstream>

#include "platform/text.h"
#include "tests/host/everyObject.h"

namespace {

using automation::Access;
using automation::Object;
using automation::Value;

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
                                          L"UTCToLocalTime",
                                          L"StringToBinary",
                                          L"SetProperty",
                                          L"SetProperties",
                                          L"Restrict",
                                          L"PropertyAccessor",
                                          L"PrimarySmtpAddress",
                                          L"OpenSharedItem",
                                          L"LocalTimeToUTC",
                                          L"GetRootFolder",
                                          L"GetProperty",
                                          L"GetProperties",
                                          L"GetExchangeUser",
                                          L"GetExchangeDistributionList",
                                          L"GetAddressEntryFromID",
                                          L"ExchangeStoreType",
                                          L"DeleteProperty",
                                          L"BinaryToString",
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
                                          L"CopyTo",
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
                                          L"GetMessageFromMsgFile",
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
                                          L"SentOn",
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
            for (const Access access : {Access::Get, Access::Put, Access::PutReference, Access::Call}) {
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
        const wchar_t* members;
    };
    const Case cases[] = {
        {L"Application",
         L"Application 61440 Class 61450 Session 61451 CreateItem 266 GetNamespace 272 ActiveExplorer 273 "
         L"ActiveInspector 274 Quit 275 Version 278 COMAddIns 280 Explorers 281 Inspectors 282 ActiveWindow "
         L"287 Name 12289"},
        {L"NameSpace",
         L"Application 61440 Parent 61441 Class 61450 Session 61451 CurrentUser 8449 Folders 8451 Type 8452 "
         L"Logon 8453 GetFolderFromID 8456 GetItemFromID 8457 GetDefaultFolder 8459 MAPIOBJECT 61696 "
         L"Accounts 64208"},
        {L"Accounts", L"Count 80 Item 81"},
        {L"Account", L"DisplayName 12289 AccountType 64210 UserName 64211 SmtpAddress 64212"},
        {L"PropertyAccessor", L"Class 61450 Parent 61441 GetProperty 64251 SetProperty 64252"},
        {L"ExchangeUser", L"Name 12289 Type 12290 Address 12291 ID 61470 PrimarySmtpAddress 64245"},
        {L"Stores", L"Count 80 Item 81"},
        {L"Explorers", L"Count 80 Item 81 Add 95"},
        {L"Explorer",
         L"Application 61440 Parent 61441 Class 61450 Session 61451 CommandBars 8448 CurrentFolder 8449 "
         L"Close 8451 Display 8452 Caption 8465 Activate 8467 Selection 8706"},
        {L"Selection", L"Count 80 Item 81"},
        {L"Inspectors", L"Count 80 Item 81 Add 95"},
        {L"Inspector",
         L"Application 61440 Parent 61441 Class 61450 Session 61451 CommandBars 8448 CurrentItem 8450 Close "
         L"8451 Display 8452 IsWordMail 8453 WordEditor 8463 EditorType 8464 Caption 8465 Activate 8467"},
        {L"Item",
         L"Application 61440 Parent 61441 Class 61450 Session 61451 Subject 55 Body 37120 HTMLBody 62468 To "
         L"3588 CC 3587 BCC 3586 Recipients 63508 Attachments 63509 UserProperties 63510 EntryID 61470 Saved "
         L"61603 Sent 62466 DeferredDeliveryTime 15 MessageClass 26 SenderName 3098 SenderEmailType 3102 "
         L"SenderEmailAddress 3103 Reply 63504 ReplyAll 63505 Forward 63507 Send 61557 Save 61512 Close "
         L"61475 Display 61606 Delete 61514 Move 61492 GetInspector 61502 SendUsingAccount 64209 PropertyAccessor 64253 UnRead 61468 ReceivedTime 3590"},
        {L"Recipients", L"Count 80 Item 81 Add 111 Remove 84 ResolveAll 126"},
        {L"Recipient",
         L"Name 12289 Address 12291 AddressEntry 121 Type 3093 Resolved 100 EntryID 61470 DisplayType 14592 "
         L"Delete 110 Resolve 113"},
        {L"ListEntry",
         L"Name 12289 Type 12290 Address 12291 ID 61470 DisplayType 14592 Members 772 GetExchangeUser 64241"},
        {L"SafeEntry", L"Name 12289 Type 12290 Address 12291 Fields 1"},
        {L"Members", L"Count 80 Item 81"},
        {L"Attachments", L"Count 80 Item 81 Add 101 Remove 84"},
        {L"Attachment", L"FileName 14084 DisplayName 12289 Delete 105"},
        {L"Folders", L"Count 80 Item 81 Add 95 Remove 84"},
        {L"Folder",
         L"Application 61440 Parent 61441 Class 61450 Session 61451 Name 12289 EntryID 61470 StoreID 12552 "
         L"Folders 8451 Items 12544 MoveTo 61492 Delete 61509 FolderPath 64120"},
        {L"Items", L"Count 80 Item 81 Add 95 Find 98 Restrict 100"},
        {L"UserProperties", L"Count 80 Item 81 Add 102 Find 103 Remove 82"},
        {L"UserProperty", L"Value 0 Name 112 Type 109 Delete 108"},
        {L"CommandBars", L"Item 0 ActiveMenuBar 1610809345 Count 1610809347"},
        {L"CommandBar", L"Controls 1610874883 FindControl 1610874887 Index 1610874890 Name 1610874894"},
        {L"Controls", L"Item 0 Add 1610809344 Count 1610809345"},
        {L"Button",
         L"BeginGroup 1610874880 Caption 1610874883 Delete 1610874887 Enabled 1610874890 Execute 1610874892 Id "
         L"1610874899 Index 1610874900 OnAction 1610874906 Parameter 1610874909 Tag 1610874915 TooltipText "
         L"1610874917 Type 1610874920 Visible 1610874921 FaceId 1610940419 Style 1610940426 Picture 1610940430 "
         L"Mask 1610940432"},
        {L"Popup", L"Controls 1610940417"},
        {L"AddIns", L"Item 0 Count 1"},
        {L"AddIn", L"Description 0 ProgId 3 Guid 4 Connect 6 Object 7"},
        {L"vtSafeMailItem",
         L"Item 12245934 Fields 12245937 Sender 12245930 Body 37120 HTMLBody 62468 Recipients 63508 "
         L"Attachments 63509"},
        {L"Rdo",
         L"LoggedOn 2 MAPIOBJECT 3 Logon 4 Stores 6 GetMessageFromID 9 CurrentUser 13 Accounts 19 "
         L"GetMessageFromMsgFile 20"},
        {L"RdoAccount", L"Name 4 ID 6 Stamp 7 Fields 13"},
        {L"Word", L"Run 445 AddIns 22 Templates 67"},
        {L"WordAddIns", L"Item 0 Count 1 Add 2"},
        {L"WordAddIn", L"Name 0 Installed 4"},
    };
    for (const Case& test : cases) {
        std::wistringstream members(test.members);
        std::wstring member;
        for (std::int32_t id = 0; members >> member >> id;) {
            EXPECT_EQ(all.at(test.object).target()->memberId(member), id)
                << text::toUtf8(test.object + (L'.' + member));
        }
    }
}

}  // namespace
