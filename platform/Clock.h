#pragma once

#include "platform/automation.h"

namespace platform {

class Clock {
  public:
    virtual ~Clock() = default;
    /// The present local time.
    virtual automation::Date now() = 0;
};

}  // namespace platform
