#include "mail/MapiSession.h"

#include "mail/errorTrap.h"

namespace redemption {

Session::Session(const mail::Globals& globals)
    : Front(globals.platform.automation.createObject(progId::session)) {
    object_.put(L"MAPIOBJECT", globals.outlook.mapiNameSpace().mapiObject());
}

void Session::logonIfNeeded() const {
    if (!object_.get(L"LoggedOn").toBool()) {
        object_.call(L"Logon");
    }
}

outlook::Collection<Account> Session::accountsInOrder() const {
    const automation::Object accounts = object_.get(L"Accounts").toObject();
    return outlook::Collection<Account>(accounts.call(L"GetOrder", mailAccountOrder).toObject());
}

Account Session::account(const std::wstring& name) const {
    return Account(object_.get(L"Accounts").toObject().get(L"Item", name).toObject());
}

std::wstring Session::currentUserType() const {
    return object_.get(L"CurrentUser").toObject().get(L"Type").toText();
}

void Session::receiveFile(const std::wstring& path, automation::Date now) const {
    const automation::Object message = object_.call(L"GetMessageFromMsgFile", path).toObject();
    const automation::Object inbox = object_.call(L"GetDefaultFolder", outlook::folderId::inbox).toObject();
    const automation::Object copy = inbox.get(L"Items").toObject().call(L"Add", L"IPM.Note").toObject();
    // Before the first save alone a message can be marked as one that was sent.
    copy.put(L"Sent", true);
    message.call(L"CopyTo", copy);
    // The copy may have brought the file's own.
    copy.put(L"MessageClass", L"IPM.Note");
    copy.put(L"UnRead", true);
    // Without times it would stand below all mails of the Inbox.
    copy.put(L"SentOn", now);
    copy.put(L"ReceivedTime", now);
    copy.call(L"Save");
}

void cleanUp(automation::Automation& automation) {
    automation.createObject(progId::mapiUtils).call(L"CleanUp");
}

MapiCleanUp::MapiCleanUp(automation::Automation& automation) {
    mail::skipErrors([&] {
        utils_ = automation.createObject(progId::mapiUtils);
        utils_.call(L"CleanUp");
    });
}

MapiCleanUp::~MapiCleanUp() {
    mail::skipErrors([&] { utils_.call(L"CleanUp"); });
}

void MapiCleanUp::tieTo(const outlook::NameSpace& nameSpace) const {
    utils_.put(L"MAPIOBJECT", nameSpace.mapiObject());
}

}  // namespace redemption
