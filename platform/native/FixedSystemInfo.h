#pragma once

#include <utility>

#include "platform/SystemInfo.h"

namespace platform::native {

/// A system as it is described to it.
class FixedSystemInfo : public SystemInfo {
  public:
    explicit FixedSystemInfo(std::wstring addInFolder) : addInFolder_(std::move(addInFolder)) {}

    std::wstring addInFolder() override { return addInFolder_; }

  private:
    std::wstring addInFolder_;
};

}  // namespace platform::native
