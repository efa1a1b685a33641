#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/automation.h"

namespace host {

/// A local time by the calendar; month and day count from 1.
struct CivilTime {
    int year = 1899;
    unsigned month = 12;
    unsigned day = 30;
    int hour = 0;
    int minute = 0;
    int second = 0;
};

automation::Date toDate(const CivilTime& time);
/// Rounded to the second.
CivilTime toCivilTime(automation::Date date);

/// "2024-05-01T09:30:00".
std::string toIsoTime(automation::Date date);
/// Nothing when the text is no such time.
std::optional<automation::Date> parseIsoTime(std::string_view text);

}  // namespace host
