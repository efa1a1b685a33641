#pragma once

#include "platform/Clock.h"

namespace platform::windows {

class WindowsClock final : public Clock {
  public:
    automation::Date now() override;
};

}  // namespace platform::windows
