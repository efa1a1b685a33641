#include "host/NameSpace.h"

#include "host/AddressEntry.h"
#include "host/Folder.h"
#include "host/Item.h"
#include "host/ItemAlias.h"
#include "host/MsgFile.h"
#include "host/OutlookAccount.h"
#include "host/OutlookStore.h"
#include "host/PropertyAccessor.h"
#include "host/Recipients.h"
#include "host/outlookRows.h"

namespace host {

using automation::Value;

namespace {

Value currentUser(NameSpace& session, Arguments) {
    auto data = std::make_shared<RecipientData>(RecipientData{0, session.core().currentUser(), true});
    return session.core().makeObject<Recipient>(nullptr, &ItemContent::recipients, std::move(data), false);
}

Value defaultFolderOf(NameSpace& session, Arguments arguments) {
    const auto folder = session.core().mailbox().defaultFolder(arguments[0].toInteger());
    if (!folder) {
        raise::operationFailed();
    }
    return folder->object();
}

Value itemFromId(NameSpace& session, Arguments arguments) {
    const auto item = session.core().mailbox().itemById(arguments.text(0));
    if (!item) {
        raise::objectNotFound();
    }
    item->readAnew();
    return session.core().makeObject<ItemAlias>(item);
}

Value folderFromId(NameSpace& session, Arguments arguments) {
    const auto folder = session.core().mailbox().folderById(arguments.text(0));
    if (!folder) {
        raise::objectNotFound();
    }
    return folder->object();
}

/// The entry behind an id, such as that of a mail's sender.
Value addressEntryFromId(NameSpace& session, Arguments arguments) {
    auto address = addressOfEntryId(session.core(), arguments.text(0));
    if (!address) {
        raise::objectNotFound();
    }
    return session.core().makeObject<AddressEntry>(std::move(*address), false);
}

/// The message of a file, as an item that no folder has yet.
Value openSharedItem(NameSpace& session, Arguments arguments) {
    return session.core().make<Item>(contentOf(readMsgFile(arguments.text(0))))->object();
}

template <class T>
Value makeList(NameSpace& session, Arguments) {
    return session.core().makeObject<T>();
}

}  // namespace

NameSpace::NameSpace(Core& core) : Automated(core), mapiObject_(core.make<MapiSession>()) {}

constinit const Members<NameSpace> NameSpace::members = {
    applicationRow<NameSpace>,
    parentRow<NameSpace>,
    classRow<NameSpace, 1>,
    sessionRow<NameSpace>,
    {.name = L"CurrentUser", .id = 8449, .get = currentUser, .guarded = Guarded::Yes},
    {.name = L"Folders",
     .id = 8451,
     .get = [](NameSpace& session, Arguments) { return Value(session.core().makeObject<Folders>(nullptr)); }},
    {.name = L"Type", .id = 8452, .get = [](NameSpace&, Arguments) { return Value(L"MAPI"); }},
    {.name = L"Logon", .id = 8453, .call = [](NameSpace&, Arguments) { return Value(); }, .most = 4},
    {.name = L"GetFolderFromID", .id = 8456, .call = folderFromId, .least = 1, .most = 2},
    {.name = L"GetItemFromID", .id = 8457, .call = itemFromId, .least = 1, .most = 2},
    {.name = L"GetDefaultFolder", .id = 8459, .call = defaultFolderOf, .least = 1, .most = 1},
    {.name = L"MAPIOBJECT", .id = 61696, .get = use<&NameSpace::mapiObject_>},
    {.name = L"Accounts", .id = 64208, .get = makeList<OutlookAccounts>, .has = since<12, NameSpace>},
    {.name = L"Stores", .get = makeList<OutlookStores>, .has = since<12, NameSpace>},
    {.name = L"GetAddressEntryFromID",
     .call = addressEntryFromId,
     .least = 1,
     .most = 1,
     .has = since<12, NameSpace>},
    {.name = L"OpenSharedItem", .call = openSharedItem, .least = 1, .most = 1, .has = since<12, NameSpace>},
};

}  // namespace host
