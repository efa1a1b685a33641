#include "host/RdoSession.h"

#include "host/AddressEntry.h"
#include "host/Core.h"
#include "host/Folder.h"
#include "host/Item.h"
#include "host/MsgFile.h"
#include "host/NameSpace.h"
#include "host/RdoAccounts.h"
#include "host/RdoFolder.h"
#include "host/RdoMessage.h"
#include "host/SafeItem.h"

namespace host {

using automation::Object;
using automation::Value;

namespace {

Value messageFromId(RdoSession& session, Arguments arguments) {
    session.checkTied();
    const auto item = session.core().mailbox().itemById(arguments.text(0));
    if (!item) {
        raise::objectNotFound();
    }
    return session.core().makeObject<SafeItem>(SafeItem::Kind::Rdo, item);
}

Value messageFromFile(RdoSession& session, Arguments arguments) {
    session.checkLoggedOn();
    return session.core().makeObject<RdoMessage>(readMsgFile(arguments.text(0)));
}

Value defaultFolderOf(RdoSession& session, Arguments arguments) {
    session.checkLoggedOn();
    const auto folder = session.core().mailbox().defaultFolder(arguments[0].toInteger());
    if (!folder) {
        raise::objectNotFound();
    }
    return session.core().makeObject<RdoFolder>(folder);
}

Object storesOf(RdoSession& session) {
    session.checkLoggedOn();
    return session.core().makeObject<RdoStores>();
}

Object currentUserOf(RdoSession& session) {
    session.checkLoggedOn();
    return session.core().makeObject<AddressEntry>(session.core().currentUser(), true);
}

Value accountsOf(RdoSession& session, Arguments) {
    session.checkTied();
    std::vector<const Account*> list;
    for (const Account& account : session.core().profile().accounts) {
        list.push_back(&account);
    }
    return session.core().makeObject<RdoAccounts>(std::move(list), false);
}

}  // namespace

void RdoSession::check(bool usable) {
    if (!usable) {
        throw automation::Error(automation::errors::failed, L"Not logged on. Please log on first.",
                                L"Redemption");
    }
}

constinit const Members<RdoSession> RdoSession::members = {
    {.name = L"LoggedOn", .id = 2, .get = use<&RdoSession::loggedOn_>},
    {.name = L"MAPIOBJECT",
     .id = 3,
     .put =
         [](RdoSession& session, Arguments, const Value& value) {
             required<MapiSession>(value);
             session.tied_ = true;
         }},
    {.name = L"Logon", .id = 4, .call = use<&RdoSession::logOn>, .most = 6},
    {.name = L"Logoff", .call = use<&RdoSession::logOff>},
    {.name = L"Stores", .id = 6, .get = use<storesOf>},
    {.name = L"GetMessageFromID", .id = 9, .call = messageFromId, .least = 1, .most = 3},
    {.name = L"GetDefaultFolder", .call = defaultFolderOf, .least = 1, .most = 1},
    {.name = L"GetMessageFromMsgFile", .id = 20, .call = messageFromFile, .least = 1, .most = 1},
    {.name = L"CurrentUser", .id = 13, .get = use<currentUserOf>},
    {.name = L"Accounts", .id = 19, .get = accountsOf},
};

const std::vector<Mailbox::StoreEntry>& RdoStores::list() const {
    return core().mailbox().stores();
}

automation::Object RdoStores::at(std::size_t index) const {
    return core().makeObject<RdoStore>(index);
}

constinit const Members<RdoStores> RdoStores::members = {
    countRow<RdoStores, dispatchId::unlisted>,
    itemRow<RdoStores, dispatchId::defaultMember>,
};

const Mailbox::StoreEntry& RdoStore::entry() const {
    return core().mailbox().stores().at(index_);
}

constinit const Members<RdoStore> RdoStore::members = {
    {.name = L"EntryID", .get = use<&RdoStore::entry, &Mailbox::StoreEntry::id>},
    {.name = L"Name", .get = use<&RdoStore::entry, &Mailbox::StoreEntry::store, &Store::name>},
    {.name = L"StoreKind", .get = use<&RdoStore::entry, &Mailbox::StoreEntry::store, &Store::kind>},
    {.name = L"IPMRootFolder", .get = use<&RdoStore::entry, &Mailbox::StoreEntry::root>},
    {.name = L"Owner",
     .get =
         [](RdoStore& store, Arguments) {
             const auto& owner = store.entry().store.owner;
             return Value(owner ? store.core().makeObject<AddressEntry>(*owner, true) : automation::Object());
         },
     .has =
         [](const RdoStore& store) {
             const StoreKind kind = store.entry().store.kind;
             return kind == StoreKind::PrimaryExchange || kind == StoreKind::DelegateExchange;
         }},
};

constinit const Members<MapiUtils> MapiUtils::members = {
    {.name = L"CleanUp", .call = [](MapiUtils&, Arguments) { return Value(); }},
    {.name = L"MAPIOBJECT",
     .put = [](MapiUtils&, Arguments, const Value& value) { required<MapiSession>(value); }},
};

}  // namespace host
