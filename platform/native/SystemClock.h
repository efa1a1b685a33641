#pragma once

#include "platform/Clock.h"

namespace platform::native {

/// Dates as they are written in the United States, or by the standard: "5/15/2024" or "2024-05-15".
class PlainCalendar : public Clock {
  public:
    std::wstring shortDate(automation::Date date) override;
    std::optional<automation::Date> readDate(const std::wstring& text) override;
};

/// The machine's local time, in whole seconds.
class SystemClock : public PlainCalendar {
  public:
    /// As many days later than it is.
    explicit SystemClock(int daysLater = 0) : daysLater_(daysLater) {}

    automation::Date now() override;

  private:
    int daysLater_;
};

/// A clock that stands where it is set.
class SetClock : public PlainCalendar {
  public:
    explicit SetClock(automation::Date time = {}) : time_(time) {}

    automation::Date now() override { return time_; }
    void set(automation::Date time) { time_ = time; }

  private:
    automation::Date time_;
};

}  // namespace platform::native
