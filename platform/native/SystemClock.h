#pragma once

#include "platform/Clock.h"

namespace platform::native {

/// The machine's local time, in whole seconds.
class SystemClock : public Clock {
  public:
    automation::Date now() override;
};

/// A clock that stands where it is set.
class SetClock : public Clock {
  public:
    explicit SetClock(automation::Date time = {}) : time_(time) {}

    automation::Date now() override { return time_; }
    void set(automation::Date time) { time_ = time; }

  private:
    automation::Date time_;
};

}  // namespace platform::native
