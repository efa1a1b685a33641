#include "host/RdoSession.h"

#include "host/AddressEntry.h"
#include "host/Folder.h"
#include "host/Item.h"
#include "host/NameSpace.h"
#include "host/RdoAccounts.h"
#include "host/SafeItem.h"
#include "host/World.h"

namespace host {

using automation::Value;

namespace {

Value messageFromId(RdoSession& session, Arguments arguments) {
    session.checkLoggedOn();
    const auto item = session.world().mailbox().itemById(arguments.text(0));
    if (!item) {
        raise::objectNotFound();
    }
    return session.world().makeObject<SafeItem>(SafeItem::Kind::Rdo, item);
}

Value accountsOf(RdoSession& session, Arguments) {
    session.checkLoggedOn();
    std::vector<const Account*> list;
    for (const Account& account : session.world().profile().accounts) {
        list.push_back(&account);
    }
    return session.world().makeObject<RdoAccounts>(std::move(list), false);
}

}  // namespace

void RdoSession::checkLoggedOn() const {
    if (!loggedOn_) {
        throw automation::Error(automation::errors::failed, L"Not logged on. Please log on first.",
                                L"Redemption");
    }
}

constinit const Member<RdoSession> RdoSession::table_[] = {
    {.name = L"LoggedOn",
     .id = 2,
     .get = [](RdoSession& session, Arguments) { return Value(session.loggedOn_); }},
    {.name = L"MAPIOBJECT",
     .id = 3,
     .put =
         [](RdoSession& session, Arguments, const Value& value) {
             required<MapiSession>(value);
             session.loggedOn_ = true;
         }},
    {.name = L"Logon",
     .id = 4,
     .call =
         [](RdoSession& session, Arguments) {
             session.loggedOn_ = true;
             return Value();
         },
     .most = 6},
    {.name = L"Logoff",
     .call =
         [](RdoSession& session, Arguments) {
             session.loggedOn_ = false;
             return Value();
         }},
    {.name = L"Stores",
     .id = 6,
     .get =
         [](RdoSession& session, Arguments) {
             session.checkLoggedOn();
             return Value(session.world().makeObject<RdoStores>());
         }},
    {.name = L"GetMessageFromID", .id = 9, .call = messageFromId, .least = 1, .most = 3},
    {.name = L"CurrentUser",
     .id = 13,
     .get =
         [](RdoSession& session, Arguments) {
             session.checkLoggedOn();
             return Value(session.world().makeObject<AddressEntry>(session.world().currentUser(), true));
         }},
    {.name = L"Accounts", .id = 19, .get = accountsOf},
};

std::span<const Member<RdoSession>> RdoSession::members() {
    return table_;
}

constinit const Member<RdoStores> RdoStores::table_[] = {
    {.name = L"Count",
     .get =
         [](RdoStores& stores, Arguments) {
             return Value(static_cast<std::int32_t>(stores.world().mailbox().stores().size()));
         }},
    {.name = L"Item",
     .id = 0,
     .get =
         [](RdoStores& stores, Arguments arguments) {
             const std::size_t index = position(arguments[0], stores.world().mailbox().stores().size());
             return Value(stores.world().makeObject<RdoStore>(index));
         },
     .least = 1,
     .most = 1},
};

std::span<const Member<RdoStores>> RdoStores::members() {
    return table_;
}

const Mailbox::StoreEntry& RdoStore::entry() const {
    return world().mailbox().stores().at(index_);
}

constinit const Member<RdoStore> RdoStore::table_[] = {
    {.name = L"EntryID", .get = [](RdoStore& store, Arguments) { return Value(store.entry().id); }},
    {.name = L"Name", .get = [](RdoStore& store, Arguments) { return Value(store.entry().store.name); }},
    {.name = L"StoreKind",
     .get = [](RdoStore& store,
               Arguments) { return Value(static_cast<std::int32_t>(store.entry().store.kind)); }},
    {.name = L"IPMRootFolder",
     .get = [](RdoStore& store, Arguments) { return Value(store.entry().root->object()); }},
    {.name = L"Owner",
     .get =
         [](RdoStore& store, Arguments) {
             const auto& owner = store.entry().store.owner;
             return Value(owner ? store.world().makeObject<AddressEntry>(*owner, true)
                                : automation::Object());
         },
     .has =
         [](const RdoStore& store) {
             const StoreKind kind = store.entry().store.kind;
             return kind == StoreKind::PrimaryExchange || kind == StoreKind::DelegateExchange;
         }},
};

std::span<const Member<RdoStore>> RdoStore::members() {
    return table_;
}

constinit const Member<MapiUtils> MapiUtils::table_[] = {
    {.name = L"CleanUp", .call = [](MapiUtils&, Arguments) { return Value(); }},
    {.name = L"MAPIOBJECT",
     .put = [](MapiUtils&, Arguments, const Value& value) { required<MapiSession>(value); }},
};

std::span<const Member<MapiUtils>> MapiUtils::members() {
    return table_;
}

}  // namespace host
