#pragma once

#include <string>
#include <vector>

#include "host/Collection.h"
#include "host/Profile.h"

namespace host {

/// Outlook's MAPI session; Application.Session and GetNamespace give the same one.
class NameSpace : public Automated<NameSpace> {
  public:
    static constexpr std::wstring_view defaultName = L"Type";
    static const Members<NameSpace> members;

    explicit NameSpace(Core& core);

    std::wstring className() const override { return L"NameSpace"; }
    EventSource* eventSource() override { return &events_; }

  private:
    std::shared_ptr<HostObject> mapiObject_;
    EventSource events_{0x0006308C};
};

/// What MAPIOBJECT answers: good only to tie Redemption's objects to the session.
class MapiSession : public Automated<MapiSession> {
  public:
    static constexpr Members<MapiSession> members{};

    explicit MapiSession(Core& core) : Automated(core) {}

    std::wstring className() const override { return L"MAPIOBJECT"; }
};

/// An account as Outlook itself shows it, from version 12 on.
class OutlookAccount : public Automated<OutlookAccount> {
  public:
    static constexpr std::wstring_view defaultName = L"DisplayName";
    static const Members<OutlookAccount> members;

    OutlookAccount(Core& core, std::wstring name);

    std::wstring className() const override { return L"Account"; }
    bool sameAs(const Target& other) const override;
    const std::wstring& name() const noexcept { return name_; }

  private:
    std::wstring name_;
};

/// NameSpace.Accounts.
class OutlookAccounts : public Collection<OutlookAccounts> {
  public:
    static const Members<OutlookAccounts> members;

    explicit OutlookAccounts(Core& core) : Collection(core) {}

    std::wstring className() const override { return L"Accounts"; }
    const std::vector<Account>& list() const;
    automation::Object at(std::size_t index) const;
    static bool isNamed(const Account& account, std::wstring_view name) {
        return text::equalsIgnoringCase(account.name, name);
    }
};

}  // namespace host
