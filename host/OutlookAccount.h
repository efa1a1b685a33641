#pragma once

#include <string>
#include <vector>

#include "host/Collection.h"
#include "host/Profile.h"

namespace host {

/// An account as Outlook itself shows it, from version 12 on.
class OutlookAccount : public Automated<OutlookAccount> {
  public:
    static constexpr std::wstring_view defaultName = L"DisplayName";
    static const Members<OutlookAccount> members;

    OutlookAccount(Core& core, std::wstring name);

    std::wstring className() const override { return L"Account"; }
    /// Throws when the profile has the account no more.
    void checkUsable() const override { account(); }
    bool sameAs(const Target& other) const override;
    const std::wstring& name() const noexcept { return name_; }

  private:
    const Account& account() const;

    std::wstring name_;
};

/// NameSpace.Accounts: those that mails leave with, so no directories.
class OutlookAccounts : public Collection<OutlookAccounts> {
  public:
    static const Members<OutlookAccounts> members;

    explicit OutlookAccounts(Core& core) : Collection(core) {}

    std::wstring className() const override { return L"Accounts"; }
    std::vector<const Account*> list() const;
    automation::Object at(std::size_t index) const;
    static bool isNamed(const Account* account, std::wstring_view name) {
        return text::equalsIgnoringCase(account->name, name);
    }
};

}  // namespace host
