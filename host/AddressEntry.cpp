#include "host/AddressEntry.h"

#include "host/World.h"
#include "host/mapiTag.h"

namespace host {

using automation::Value;

AddressEntry::AddressEntry(World& world, Address address, bool safe)
    : Automated(world), address_(std::move(address)), safe_(safe) {}

bool AddressEntry::sameAs(const Target& other) const {
    const auto* const entry = dynamic_cast<const AddressEntry*>(&other);
    // Redemption's object of an entry is another one than Outlook's, with more members.
    return entry && entry->safe_ == safe_ && entry->address_.type == address_.type &&
           entry->address_.address == address_.address && entry->address_.name == address_.name;
}

int displayTypeOf(const Address& address) {
    return text::equalsIgnoringCase(address.type, L"MAPIPDL") ? 5 : address.distributionList ? 1 : 0;
}

int AddressEntry::displayType() const {
    return displayTypeOf(address_);
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
    if (entry.displayType() == 0) {
        return automation::Object();
    }
    return entry.world().makeObject<AddressEntries>(entry.address().members, entry.safe());
}

}  // namespace

constinit const Member<AddressEntry> AddressEntry::table_[] = {
    {.name = L"Name",
     .id = 12289,
     .get = [](AddressEntry& entry, Arguments) { return Value(entry.address_.name); }},
    {.name = L"Type",
     .id = 12290,
     .get = [](AddressEntry& entry, Arguments) { return Value(entry.address_.type); }},
    {.name = L"Address",
     .id = 12291,
     .get = [](AddressEntry& entry, Arguments) { return Value(entry.address_.address); }},
    {.name = L"ID",
     .id = 61470,
     .get = [](AddressEntry& entry,
               Arguments) { return Value(entry.address_.type + L":" + entry.address_.address); }},
    {.name = L"DisplayType",
     .id = 14592,
     .get = [](AddressEntry& entry, Arguments) { return Value(entry.displayType()); }},
    {.name = L"Members", .id = 772, .get = membersOf},
    {.name = L"Fields", .id = 1, .get = fieldOf, .least = 1, .most = 1, .has = isSafe},
    {.name = L"SMTPAddress",
     .get = [](AddressEntry& entry, Arguments) { return Value(entry.smtpAddress()); },
     .has = isSafe},
};

std::span<const Member<AddressEntry>> AddressEntry::members() {
    return table_;
}

AddressEntries::AddressEntries(World& world, std::vector<Address> addresses, bool safe)
    : Automated(world), addresses_(std::move(addresses)), safe_(safe) {}

constinit const Member<AddressEntries> AddressEntries::table_[] = {
    {.name = L"Count",
     .id = 80,
     .get = [](AddressEntries& entries,
               Arguments) { return Value(static_cast<std::int32_t>(entries.addresses_.size())); }},
    {.name = L"Item",
     .id = 81,
     .get =
         [](AddressEntries& entries, Arguments arguments) {
             const std::size_t index = position(arguments[0], entries.addresses_.size());
             return Value(entries.world().makeObject<AddressEntry>(entries.addresses_[index], entries.safe_));
         },
     .least = 1,
     .most = 1},
};

std::span<const Member<AddressEntries>> AddressEntries::members() {
    return table_;
}

}  // namespace host
