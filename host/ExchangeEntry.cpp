#include "host/ExchangeEntry.h"

#include "host/AddressEntry.h"
#include "host/Core.h"

namespace host {

automation::Object exchangeEntry(Core& core, const Address& address, bool list) {
    if (!text::equalsIgnoringCase(address.type, L"EX") || address.distributionList != list) {
        return {};
    }
    if (!address.resolvable) {
        raise::operationFailed();
    }
    return core.makeObject<ExchangeEntry>(address);
}

constinit const Members<ExchangeEntry> ExchangeEntry::members = {
    {.name = L"Name",
     .id = 12289,
     .get = use<&ExchangeEntry::address_, &Address::name>,
     .guarded = Guarded::Yes},
    {.name = L"Type",
     .id = 12290,
     .get = use<&ExchangeEntry::address_, &Address::type>,
     .guarded = Guarded::Yes},
    {.name = L"Address",
     .id = 12291,
     .get = use<&ExchangeEntry::address_, &Address::address>,
     .guarded = Guarded::Yes},
    {.name = L"ID", .id = 61470, .get = use<&ExchangeEntry::address_, entryIdOf>, .guarded = Guarded::Yes},
    {.name = L"PrimarySmtpAddress",
     .id = 64245,
     .get = use<&ExchangeEntry::address_, &Address::smtpAddress>,
     .guarded = Guarded::Yes},
};

}  // namespace host
