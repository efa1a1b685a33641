#pragma once

#include <memory>

#include "platform/automation.h"

namespace host {

class World;

/// Finds and makes the classes that a machine with this Outlook has registered. Making or finding one counts
/// as a call, as it can fail like one.
class HostAutomation : public automation::Automation {
  public:
    explicit HostAutomation(World& world) : world_(world) {}

    automation::Object createObject(std::wstring_view progId) override;
    automation::Object activeObject(std::wstring_view progId) override;

  private:
    World& world_;
};

}  // namespace host
