#pragma once

#include <string>

#include "host/Automated.h"

namespace host {

/// Outlook's MAPI session; Application.Session and GetNamespace give the same one.
class NameSpace : public Automated<NameSpace> {
  public:
    static constexpr std::wstring_view defaultName = L"Type";
    static std::span<const Member<NameSpace>> members();

    explicit NameSpace(World& world);

    std::wstring className() const override { return L"NameSpace"; }
    EventSource* eventSource() override { return &events_; }

  private:
    static const Member<NameSpace> table_[];
    std::shared_ptr<HostObject> mapiObject_;
    EventSource events_{0x0006308C};
};

/// What MAPIOBJECT answers: good only to tie Redemption's objects to the session.
class MapiSession : public Automated<MapiSession> {
  public:
    static std::span<const Member<MapiSession>> members() { return {}; }

    explicit MapiSession(World& world) : Automated(world) {}

    std::wstring className() const override { return L"MAPIOBJECT"; }
};

/// An account as Outlook itself shows it, from version 12 on.
class OutlookAccount : public Automated<OutlookAccount> {
  public:
    static constexpr std::wstring_view defaultName = L"DisplayName";
    static std::span<const Member<OutlookAccount>> members();

    OutlookAccount(World& world, std::wstring name);

    std::wstring className() const override { return L"Account"; }
    bool sameAs(const Target& other) const override;
    const std::wstring& name() const noexcept { return name_; }

  private:
    static const Member<OutlookAccount> table_[];
    std::wstring name_;
};

/// NameSpace.Accounts.
class OutlookAccounts : public Automated<OutlookAccounts> {
  public:
    static std::span<const Member<OutlookAccounts>> members();

    explicit OutlookAccounts(World& world) : Automated(world) {}

    std::wstring className() const override { return L"Accounts"; }

  private:
    static const Member<OutlookAccounts> table_[];
};

}  // namespace host
