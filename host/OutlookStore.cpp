#include "host/OutlookStore.h"

#include "host/Folder.h"
#include "host/outlookRows.h"

namespace host {

namespace {

/// OlExchangeStoreType.
int exchangeTypeOf(const Store& store) {
    constexpr int primary = 0;
    constexpr int otherMailbox = 1;
    constexpr int publicFolders = 2;
    constexpr int noExchange = 3;
    switch (store.kind) {
        case StoreKind::PrimaryExchange:
            return primary;
        case StoreKind::DelegateExchange:
            return otherMailbox;
        case StoreKind::PublicFolders:
            return publicFolders;
        default:
            return noExchange;
    }
}

}  // namespace

bool OutlookStore::sameAs(const Target& other) const {
    const auto* const store = dynamic_cast<const OutlookStore*>(&other);
    return store && store->index_ == index_;
}

const Mailbox::StoreEntry& OutlookStore::entry() const {
    return core().mailbox().stores().at(index_);
}

constinit const Members<OutlookStore> OutlookStore::members = {
    applicationRow<OutlookStore>,
    parentRow<OutlookStore, sessionOf>,
    classRow<OutlookStore, 107>,
    sessionRow<OutlookStore>,
    {.name = L"DisplayName",
     .id = 12289,
     .get = use<&OutlookStore::entry, &Mailbox::StoreEntry::store, &Store::name>},
    {.name = L"StoreID", .get = use<&OutlookStore::entry, &Mailbox::StoreEntry::id>},
    {.name = L"ExchangeStoreType",
     .get = use<&OutlookStore::entry, &Mailbox::StoreEntry::store, exchangeTypeOf>},
    {.name = L"GetRootFolder", .call = use<&OutlookStore::entry, &Mailbox::StoreEntry::root>},
};

const std::vector<Mailbox::StoreEntry>& OutlookStores::list() const {
    return core().mailbox().stores();
}

automation::Object OutlookStores::at(std::size_t index) const {
    return core().makeObject<OutlookStore>(index);
}

constinit const Members<OutlookStores> OutlookStores::members = {
    applicationRow<OutlookStores>, parentRow<OutlookStores, sessionOf>,
    classRow<OutlookStores, 108>,  sessionRow<OutlookStores>,
    countRow<OutlookStores>,       itemRow<OutlookStores>,
};

}  // namespace host
