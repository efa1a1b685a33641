#pragma once

#include <map>
#include <string>
#include <tuple>

#include "tests/host/EventLog.h"
#include "tests/scenarios/AddInWorld.h"

/// An Outlook with something of everything in it.
inline host::Profile fullProfile() {
    host::Profile profile;
    profile.editor = host::Editor::Word;
    profile.addressBook = {{.name = L"Ann", .address = L"ann@example.com"}};
    return profile;
}

inline host::Message fullMessage() {
    host::Message message = mailTo(L"bob@example.com");
    message.from = host::Address{.name = L"Ann", .address = L"ann@example.com"};
    message.cc = {{.name = L"Team", .address = L"t", .type = L"MAPIPDL", .members = {{.name = L"Cy"}}},
                  {.name = L"Di", .address = L"/cn=di", .type = L"EX", .smtpAddress = L"di@example.org"},
                  {.name = L"All", .address = L"/cn=all", .type = L"EX", .distributionList = true}};
    message.replyTo = {{.name = L"List", .address = L"list@example.com"}};
    message.attachments = {{.fileName = L"a.txt", .contentId = L"1"}};
    return message;
}

/// One object of every class, as scripts reach them.
inline std::map<std::wstring, automation::Object> everyObject(host::Outlook& outlook) {
    using automation::Object;
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
    all[L"WordAddIn"] = all[L"WordAddIns"].call(L"Add", (addInFolder() / "Veltro.dot").wstring()).toObject();
    all[L"WordTemplates"] = all[L"Word"].get(L"Templates").toObject();
    all[L"WordWindows"] = all[L"Word"].get(L"Windows").toObject();
    all[L"WordWindow"] = all[L"WordWindows"].get(L"Item", 1).toObject();
    all[L"Recipients"] = all[L"Item"].get(L"Recipients").toObject();
    all[L"Recipient"] = all[L"Recipients"].get(L"Item", 1).toObject();
    all[L"ListEntry"] = all[L"Recipients"].get(L"Item", 2).toObject().get(L"AddressEntry").toObject();
    all[L"Members"] = all[L"ListEntry"].get(L"Members").toObject();
    for (const auto& [name, place, call] : {std::tuple{L"ExchangeUser", 3, L"GetExchangeUser"},
                                            {L"ExchangeList", 4, L"GetExchangeDistributionList"}}) {
        all[name] = all[L"Recipients"]
                        .get(L"Item", place)
                        .toObject()
                        .get(L"AddressEntry")
                        .toObject()
                        .call(call)
                        .toObject();
    }
    all[L"PropertyAccessor"] = all[L"Item"].get(L"PropertyAccessor").toObject();
    all[L"Stores"] = all[L"NameSpace"].get(L"Stores").toObject();
    all[L"Store"] = all[L"Stores"].get(L"Item", 1).toObject();
    all[L"Found"] = all[L"Items"].call(L"Restrict", L"[Subject] = 'x'").toObject();
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
    all[L"Rdo"].call(L"Logon");
    all[L"RdoStores"] = all[L"Rdo"].get(L"Stores").toObject();
    all[L"RdoStore"] = all[L"RdoStores"].get(L"Item", 1).toObject();
    all[L"RdoAccounts"] = all[L"Rdo"].get(L"Accounts").toObject();
    all[L"RdoOrder"] = all[L"RdoAccounts"].call(L"GetOrder", 2).toObject();
    all[L"RdoAccount"] = all[L"RdoOrder"].get(L"Item", 1).toObject();
    all[L"RdoMail"] = all[L"Rdo"].call(L"GetMessageFromID", all[L"Item"].get(L"EntryID")).toObject();
    all[L"RdoFolder"] = all[L"Rdo"].call(L"GetDefaultFolder", 6).toObject();
    all[L"RdoItems"] = all[L"RdoFolder"].get(L"Items").toObject();
    all[L"RdoNew"] = all[L"RdoItems"].call(L"Add", L"IPM.Note").toObject();
    all[L"Utils"] = outlook.automation().createObject(L"vtRedemption.vtMAPIUtils");
    return all;
}
