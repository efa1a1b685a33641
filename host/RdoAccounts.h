#pragma once

#include <string>
#include <vector>

#include "host/Collection.h"
#include "host/Profile.h"

namespace host {

/// An account as Redemption shows it.
class RdoAccount : public Automated<RdoAccount> {
  public:
    static constexpr std::wstring_view defaultName = L"Name";
    static const Members<RdoAccount> members;

    /// `account` is one of the profile's.
    RdoAccount(Core& core, const Account& account);

    std::wstring className() const override { return L"RDOAccount"; }
    bool sameAs(const Target& other) const override;

  private:
    /// The profile lives as long as the core, without which no call comes here.
    const Account* account_;
};

/// The accounts of the profile, all of them or in the order of a category.
class RdoAccounts : public Collection<RdoAccounts> {
  public:
    static const Members<RdoAccounts> members;

    RdoAccounts(Core& core, std::vector<const Account*> list, bool ordered);

    std::wstring className() const override { return ordered_ ? L"RDOAccountOrderList" : L"RDOAccounts"; }
    bool ordered() const noexcept { return ordered_; }
    const std::vector<const Account*>& list() const noexcept { return list_; }
    automation::Object at(std::size_t index) const;
    static bool isNamed(const Account* account, std::wstring_view name) {
        return text::equalsIgnoringCase(account->name, name);
    }

  private:
    std::vector<const Account*> list_;
    bool ordered_;
};

}  // namespace host
