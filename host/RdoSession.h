#pragma once

#include <string>
#include <vector>

#include "host/Collection.h"
#include "host/Mailbox.h"

namespace host {

/// vtRDOSession: Redemption's session, tied to Outlook's by MAPIOBJECT or logged on by itself. Whether one
/// that is only tied counts as logged on is not known: here it does not, and shows neither stores nor users.
class RdoSession : public Automated<RdoSession> {
  public:
    static constexpr std::wstring_view defaultName = L"LoggedOn";
    static const Members<RdoSession> members;

    explicit RdoSession(Core& core) : Automated(core) {}

    std::wstring className() const override { return L"RDOSession"; }
    void checkTied() const { check(tied_ || loggedOn_); }
    void checkLoggedOn() const { check(loggedOn_); }

  private:
    static void check(bool usable);
    void logOn() { loggedOn_ = true; }
    void logOff() { tied_ = loggedOn_ = false; }

    bool tied_ = false;
    bool loggedOn_ = false;
};

/// RDOSession.Stores.
class RdoStores : public Collection<RdoStores> {
  public:
    static const Members<RdoStores> members;

    explicit RdoStores(Core& core) : Collection(core) {}

    std::wstring className() const override { return L"RDOStores"; }
    const std::vector<Mailbox::StoreEntry>& list() const;
    automation::Object at(std::size_t index) const;
};

class RdoStore : public Automated<RdoStore> {
  public:
    static constexpr std::wstring_view defaultName = L"Name";
    static const Members<RdoStore> members;

    RdoStore(Core& core, std::size_t index) : Automated(core), index_(index) {}

    std::wstring className() const override { return L"RDOStore"; }

  private:
    const Mailbox::StoreEntry& entry() const;

    std::size_t index_;
};

/// vtMAPIUtils.
class MapiUtils : public Automated<MapiUtils> {
  public:
    static constexpr std::wstring_view defaultName = L"MAPIOBJECT";
    static const Members<MapiUtils> members;

    explicit MapiUtils(Core& core) : Automated(core) {}

    std::wstring className() const override { return L"MAPIUtils"; }
};

}  // namespace host
