#pragma once

#include "platform/SystemInfo.h"

namespace platform::windows {

class WindowsSystemInfo final : public SystemInfo {
  public:
    std::wstring addInFolder() override;
};

}  // namespace platform::windows
