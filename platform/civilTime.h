#pragma once

#include <string>

#include "platform/automation.h"

namespace platform {

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
/// Rounded to the second. Throws automation::Error 6 for a date outside the years 100 to 9999.
CivilTime toCivilTime(automation::Date date);

/// "02-Mar-2024 09:05:00", with English months whatever the user's locale. Throws as toCivilTime does.
std::wstring dayMonthYearText(automation::Date date);

}  // namespace platform
