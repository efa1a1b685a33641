#include "host/AddressEntry.h"

#include "host/Core.h"
#include "host/ExchangeEntry.h"
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

namespace {

bool isOfExchange(const Address& address) {
    return text::equalsIgnoringCase(address.type, L"EX");
}

}  // namespace

automation::Binary entryIdBytes(const Address& address) {
    const wchar_t separator = 0;
    const std::wstring name = isOfExchange(address) ? L"" : address.name;
    const std::string bytes = text::toUtf8(address.type + separator + address.address + separator + name);
    return {bytes.begin(), bytes.end()};
}

std::wstring entryIdOf(const Address& address) {
    return text::hexadecimal(entryIdBytes(address));
}

std::optional<Address> addressOfEntryId(const Core& core, std::wstring_view id) {
    const std::wstring wanted = text::upper(id);
    for (const Address& known : core.profile().addressBook) {
        if (entryIdOf(known) == wanted) {
            return known;
        }
    }
    const auto bytes = fromHexadecimal(wanted);
    if (!bytes) {
        return std::nullopt;
    }
    const std::wstring plain = text::fromUtf8({reinterpret_cast<const char*>(bytes->data()), bytes->size()});
    const auto parts = text::split(plain, 0);
    if (parts.size() != 3) {
        return std::nullopt;
    }
    Address address{
        .name = std::wstring(parts[2]), .address = std::wstring(parts[1]), .type = std::wstring(parts[0])};
    return isOfExchange(address) ? std::nullopt : std::optional(std::move(address));
}

std::wstring AddressEntry::smtpAddress() const {
    return text::equalsIgnoringCase(address_.type, L"SMTP") ? address_.address : address_.smtpAddress;
}

namespace {

bool isSafe(const AddressEntry& entry) {
    return entry.safe();
}

Value fieldOf(AddressEntry& entry, Arguments arguments) {
    return entry.property(mapiTag(arguments[0]));
}

Value membersOf(AddressEntry& entry, Arguments) {
    if (displayTypeOf(entry.address()) == 0) {
        return automation::Object();
    }
    return entry.core().makeObject<AddressEntries>(entry.address().members, entry.safe());
}

}  // namespace

Value AddressEntry::property(std::uint32_t tag) const {
    switch (tag) {
        case 0x3001001E:
            return address_.name;
        case 0x3002001E:
            return address_.type;
        case 0x3003001E:
            return address_.address;
        case 0x39FE001E: {
            std::wstring smtp = smtpAddress();
            return smtp.empty() ? Value() : Value(std::move(smtp));
        }
        case 0x800F101E: {
            automation::Array proxies(address_.proxies.begin(), address_.proxies.end());
            return proxies.empty() ? Value() : Value(std::move(proxies));
        }
        default:
            return {};
    }
}

namespace {

template <bool List>
automation::Object inDirectory(AddressEntry& entry) {
    return exchangeEntry(entry.core(), entry.address(), List);
}

bool hasDirectory(const AddressEntry& entry) {
    return since<12>(entry) && !entry.safe();
}

}  // namespace

constinit const Members<AddressEntry> AddressEntry::members = {
    {.name = L"Name",
     .id = 12289,
     .get = use<&AddressEntry::address_, &Address::name>,
     .guarded = Guarded::Yes},
    {.name = L"Type",
     .id = 12290,
     .get = use<&AddressEntry::address_, &Address::type>,
     .guarded = Guarded::Yes},
    {.name = L"Address",
     .id = 12291,
     .get = use<&AddressEntry::address_, &Address::address>,
     .guarded = Guarded::Yes},
    {.name = L"ID", .id = 61470, .get = use<&AddressEntry::address_, entryIdOf>, .guarded = Guarded::Yes},
    {.name = L"DisplayType",
     .id = 14592,
     .get = use<&AddressEntry::address_, displayTypeOf>,
     .guarded = Guarded::Yes},
    {.name = L"Members", .id = 772, .get = membersOf, .guarded = Guarded::Yes},
    {.name = L"GetExchangeUser",
     .id = 64241,
     .call = use<inDirectory<false>>,
     .has = hasDirectory,
     .guarded = Guarded::Yes},
    {.name = L"GetExchangeDistributionList",
     .call = use<inDirectory<true>>,
     .has = hasDirectory,
     .guarded = Guarded::Yes},
    propertyAccessorRow<AddressEntry>,
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
