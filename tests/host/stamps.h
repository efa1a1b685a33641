#pragma once

#include <string>

#include "host/Outlook.h"

/// Writes what a program writes into a mail that is to be sent with an account: `mail` is one of Redemption's
/// objects of it, `account` Redemption's of the account.
inline void writeStamp(const automation::Object& mail, const automation::Object& account) {
    // Tags above 0x7FFFFFFF are negative integers in automation.
    const auto put = [&mail](std::uint32_t tag, const automation::Value& value) {
        mail.put(L"Fields", static_cast<std::int32_t>(tag), value);
    };
    const automation::Value sendStamp = account.get(L"Fields", std::int32_t{0x000E001F});
    put(0x0E28001E, sendStamp);
    put(0x0E29001E, sendStamp);
    put(0x812C001E, account.get(L"Name"));
    put(0x812D001E, account.get(L"Stamp"));
}

/// The same to an item of Outlook's, with the account of this name.
inline void stampItem(host::Outlook& outlook, const automation::Object& item, const std::wstring& account) {
    const auto session = outlook.automation().createObject(L"vtRedemption.vtRDOSession");
    session.put(L"MAPIOBJECT", outlook.application().get(L"Session").toObject().get(L"MAPIOBJECT"));
    const auto mail = outlook.automation().createObject(L"vtRedemption.vtSafeMailItem");
    mail.put(L"Item", item);
    writeStamp(mail, session.get(L"Accounts").toObject().get(L"Item", account).toObject());
    item.put(L"Subject", item.get(L"Subject"));  // Otherwise Outlook sees nothing to save.
    item.call(L"Save");
}
