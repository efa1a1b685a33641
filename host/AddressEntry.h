#pragma once

#include <memory>
#include <string>
#include <vector>

#include "host/Automated.h"
#include "host/Message.h"

namespace host {

/// An entry of the address book. Redemption's has its MAPI properties too.
class AddressEntry : public Automated<AddressEntry> {
  public:
    static constexpr std::wstring_view defaultName = L"Name";
    static std::span<const Member<AddressEntry>> members();

    AddressEntry(World& world, Address address, bool safe);

    std::wstring className() const override { return safe_ ? L"SafeAddressEntry" : L"AddressEntry"; }
    bool sameAs(const Target& other) const override;
    bool safe() const noexcept { return safe_; }
    const Address& address() const noexcept { return address_; }
    /// 0 user, 1 Exchange distribution list, 5 personal distribution list.
    int displayType() const;
    std::wstring smtpAddress() const;

  private:
    static const Member<AddressEntry> table_[];
    Address address_;
    bool safe_;
};

/// The members of a distribution list.
class AddressEntries : public Automated<AddressEntries> {
  public:
    static std::span<const Member<AddressEntries>> members();

    AddressEntries(World& world, std::vector<Address> addresses, bool safe);

    std::wstring className() const override { return L"AddressEntries"; }

  private:
    static const Member<AddressEntries> table_[];
    std::vector<Address> addresses_;
    bool safe_;
};

int displayTypeOf(const Address& address);

}  // namespace host
