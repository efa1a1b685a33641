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
