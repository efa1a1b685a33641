#pragma once

#include <string>
#include <vector>

#include "host/Automated.h"
#include "host/Profile.h"

namespace host {

/// An account as Redemption shows it.
class RdoAccount : public Automated<RdoAccount> {
  public:
    static constexpr std::wstring_view defaultName = L"Name";
    static std::span<const Member<RdoAccount>> members();

    /// `account` is one of the profile's.
    RdoAccount(World& world, const Account& account);

    std::wstring className() const override { return L"RDOAccount"; }
    bool sameAs(const Target& other) const override;

  private:
    static const Member<RdoAccount> table_[];
    /// The profile lives as long as the world, without which no call comes here.
    const Account& account_;
};

/// The accounts of the profile, all of them or in the order of a category.
class RdoAccounts : public Automated<RdoAccounts> {
  public:
    static std::span<const Member<RdoAccounts>> members();

    RdoAccounts(World& world, std::vector<const Account*> list, bool ordered);

    std::wstring className() const override { return ordered_ ? L"RDOAccountOrderList" : L"RDOAccounts"; }
    bool ordered() const noexcept { return ordered_; }

  private:
    static const Member<RdoAccounts> table_[];
    automation::Value at(Arguments arguments);

    std::vector<const Account*> list_;
    bool ordered_;
};

}  // namespace host
