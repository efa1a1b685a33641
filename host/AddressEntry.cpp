#include "host/AddressEntry.h"

#include "host/Core.h"
#include "host/mapiTag.h"

namespace host {

using automation::Value;

AddressEntry::AddressEntry(Core& core, Address address, bool safe)
    : Automated(core), address_(std::move(address)), safe_(safe) {}

bool AddressEntry::sameAs(const Target& other) const {
    const auto* const entry = dynamic_cast<const AddressEntry*>(&other);
    // Redemption's object of an entry is another one than Outlook's, with more members.
    return entry && entry->safe_ == safe_ && entry->address_.type == address_.type &&
           entry->address_.address == address_.address && entry->address_.name == address_.name;
}

int displayTypeOf(const Address& address) {
    return text::equalsIgnoringCase(address.type, L"MAPIPDL") ? 5 : address.distributionList ? 1 : 0;
}

std::wstring entryIdOf(const Address& address) {
    return address.type + L':' + address.address;
}

std::wstring AddressEntry::smtpAddress() const {
    return text::equalsIgnoringCase(address_.type, L"SMTP") ? address_.address : address_.smtpAddress;
}

namespace {

bool isSafe(const AddressEntry& entry) {
    return entry.safe();
}

Value fieldOf(AddressEntry& entry, Arguments arguments) {
    const Address& address = entry.address();
    switch (mapiTag(arguments[0])) {
        case 0x3001001E:
            return address.name;
        case 0x3002001E:
            return address.type;
        case 0x3003001E:
            return address.address;
        case 0x39FE001E: {
            std::wstring smtp = entry.smtpAddress();
            return smtp.empty() ? Value() : Value(std::move(smtp));
        }
        case 0x800F101E: {
            automation::Array proxies(address.proxies.begin(), address.proxies.end());
            return proxies.empty() ? Value() : Value(std::move(proxies));
        }
        default:
            return {};
    }
}

Value membersOf(AddressEntry& entry, Arguments) {
    if (displayTypeOf(entry.address()) == 0) {
        return automation::Object();
    }
    return entry.core().makeObject<AddressEntries>(entry.address().members, entry.safe());
}

}  // namespace

constinit const Members<AddressEntry> AddressEntry::members = {
    {.name = L"Name", .id = 12289, .get = use<&AddressEntry::address_, &Address::name>},
    {.name = L"Type", .id = 12290, .get = use<&AddressEntry::address_, &Address::type>},
    {.name = L"Address", .id = 12291, .get = use<&AddressEntry::address_, &Address::address>},
    {.name = L"ID", .id = 61470, .get = use<&AddressEntry::address_, entryIdOf>},
    {.name = L"DisplayType", .id = 14592, .get = use<&AddressEntry::address_, displayTypeOf>},
    {.name = L"Members", .id = 772, .get = membersOf},
    {.name = L"Fields", .id = 1, .get = fieldOf, .least = 1, .most = 1, .has = isSafe},
    {.name = L"SMTPAddress", .get = use<&AddressEntry::smtpAddress>, .has = isSafe},
};

AddressEntries::AddressEntries(Core& core, std::vector<Address> addresses, bool safe)
    : Collection(core), addresses_(std::move(addresses)), safe_(safe) {}

automation::Object AddressEntries::at(std::size_t index) const {
    return core().makeObject<AddressEntry>(addresses_[index], safe_);
}

constinit const Members<AddressEntries> AddressEntries::members = {
    countRow<AddressEntries>,
    itemRow<AddressEntries>,
};

}  // namespace host
