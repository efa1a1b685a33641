#pragma once

#include "platform/Clock.h"

namespace platform::windows {

class WindowsClock final : public Clock {
  public:
    automation::Date now() override;
    std::wstring shortDate(automation::Date date) override;
    std::optional<automation::Date> readDate(const std::wstring& text) override;
};

}  // namespace platform::windows
