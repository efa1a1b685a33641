#pragma once

#include <memory>
#include <string>

#include "host/Automated.h"

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

}  // namespace host
