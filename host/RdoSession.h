#pragma once

#include <string>

#include "host/Automated.h"
#include "host/Mailbox.h"

namespace host {

/// vtRDOSession: Redemption's session, tied to Outlook's by MAPIOBJECT or logged on by itself.
class RdoSession : public Automated<RdoSession> {
  public:
    static constexpr std::wstring_view defaultName = L"LoggedOn";
    static std::span<const Member<RdoSession>> members();

    explicit RdoSession(World& world) : Automated(world) {}

    std::wstring className() const override { return L"RDOSession"; }
    void checkLoggedOn() const;

  private:
    static const Member<RdoSession> table_[];
    bool loggedOn_ = false;
};

/// RDOSession.Stores.
class RdoStores : public Automated<RdoStores> {
  public:
    static std::span<const Member<RdoStores>> members();

    explicit RdoStores(World& world) : Automated(world) {}

    std::wstring className() const override { return L"RDOStores"; }

  private:
    static const Member<RdoStores> table_[];
};

class RdoStore : public Automated<RdoStore> {
  public:
    static constexpr std::wstring_view defaultName = L"Name";
    static std::span<const Member<RdoStore>> members();

    RdoStore(World& world, std::size_t index) : Automated(world), index_(index) {}

    std::wstring className() const override { return L"RDOStore"; }

  private:
    static const Member<RdoStore> table_[];
    const Mailbox::StoreEntry& entry() const;

    std::size_t index_;
};

/// vtMAPIUtils.
class MapiUtils : public Automated<MapiUtils> {
  public:
    static constexpr std::wstring_view defaultName = L"MAPIOBJECT";
    static std::span<const Member<MapiUtils>> members();

    explicit MapiUtils(World& world) : Automated(world) {}

    std::wstring className() const override { return L"MAPIUtils"; }

  private:
    static const Member<MapiUtils> table_[];
};

}  // namespace host
