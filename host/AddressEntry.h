#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/Collection.h"
#include "host/Message.h"
#include "host/PropertyAccessor.h"

namespace host {

/// An entry of the address book. Redemption's has its MAPI properties too.
class AddressEntry : public Automated<AddressEntry>, public HasProperties {
  public:
    static constexpr std::wstring_view defaultName = L"Name";
    static const Members<AddressEntry> members;

    AddressEntry(Core& core, Address address, bool safe);

    std::wstring className() const override { return safe_ ? L"SafeAddressEntry" : L"AddressEntry"; }
    bool sameAs(const Target& other) const override;
    bool ofRedemption() const override { return safe_; }
    bool safe() const noexcept { return safe_; }
    automation::Value property(std::uint32_t tag) const override;
    const Address& address() const noexcept { return address_; }
    std::wstring smtpAddress() const;

  private:
    Address address_;
    bool safe_;
};

/// The members of a distribution list.
class AddressEntries : public Collection<AddressEntries> {
  public:
    static const Members<AddressEntries> members;

    AddressEntries(Core& core, std::vector<Address> addresses, bool safe);

    std::wstring className() const override { return L"AddressEntries"; }
    const std::vector<Address>& list() const noexcept { return addresses_; }
    automation::Object at(std::size_t index) const;

  private:
    std::vector<Address> addresses_;
    bool safe_;
};

/// 0 user, 1 Exchange distribution list, 5 personal distribution list.
int displayTypeOf(const Address& address);
/// The id of an entry: of Exchange's its place in the directory, of others all that there is of them.
automation::Binary entryIdBytes(const Address& address);
/// The same in hexadecimal digits, as Outlook shows it.
std::wstring entryIdOf(const Address& address);
/// The address of an id, or nothing. What Exchange's directory does not have is not found.
std::optional<Address> addressOfEntryId(const Core& core, std::wstring_view id);

}  // namespace host
