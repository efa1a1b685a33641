#pragma once

#include <memory>

#include "platform/automation.h"
#include "platform/windows/Exporter.h"

namespace platform::windows {

/// Makes and finds the objects of registered classes, in this process or another.
class ComAutomation final : public automation::Automation {
  public:
    explicit ComAutomation(std::shared_ptr<Exporter> exporter) : exporter_(std::move(exporter)) {}

    automation::Object createObject(std::wstring_view progId) override;
    automation::Object activeObject(std::wstring_view progId) override;

  private:
    std::shared_ptr<Exporter> exporter_;
};

}  // namespace platform::windows
