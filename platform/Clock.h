#pragma once

#include <optional>
#include <string>

#include "platform/automation.h"

namespace platform {

/// The time, and how the user writes dates.
class Clock {
  public:
    virtual ~Clock() = default;
    /// The present local time.
    virtual automation::Date now() = 0;
    /// The day in the user's short form. readDate() gives the day back.
    virtual std::wstring shortDate(automation::Date date) = 0;
    /// The date in a text that the user, or a program in the user's language, has written; nothing when it
    /// is none.
    virtual std::optional<automation::Date> readDate(const std::wstring& text) = 0;
};

}  // namespace platform
