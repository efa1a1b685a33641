#pragma once

#include <memory>

#include "platform/automation.h"

namespace host {

class Core;

/// Finds and makes the classes that a machine with this Outlook has registered. Making or finding one counts
/// as a call, as it can fail like one.
class HostAutomation : public automation::Automation {
  public:
    explicit HostAutomation(Core& core) : core_(core) {}

    automation::Object createObject(std::wstring_view progId) override;
    automation::Object activeObject(std::wstring_view progId) override;

  private:
    automation::Object untrustedApplication();

    Core& core_;
    /// One for everybody, as long as anybody holds it.
    std::weak_ptr<automation::Target> untrusted_;
};

}  // namespace host
