#include "platform/civilTime.h"

#include <chrono>
#include <cmath>
#include <cwchar>

namespace platform {

namespace {

constexpr std::chrono::sys_days dayZero =
    std::chrono::year(1899) / std::chrono::December / std::chrono::day(30);
constexpr int secondsPerDay = 86400;
/// The first days of the years 100 and 10000.
constexpr double firstDay = -657434;
constexpr double endDay = 2958466;

}  // namespace

automation::Date toDate(const CivilTime& time) {
    const std::chrono::sys_days day =
        std::chrono::year(time.year) / std::chrono::month(time.month) / std::chrono::day(time.day);
    const auto days = static_cast<double>((day - dayZero).count());
    const double fraction = (time.hour * 3600.0 + time.minute * 60.0 + time.second) / secondsPerDay;
    // Before day zero the fraction still is the time of day, away from zero.
    return {days < 0 ? days - fraction : days + fraction};
}

CivilTime toCivilTime(automation::Date date) {
    if (!(date.days > firstDay - 1 && date.days < endDay)) {
        throw automation::Error(automation::errors::overflow, L"Overflow");
    }
    double days = std::trunc(date.days);
    double seconds = std::round(std::abs(date.days - days) * secondsPerDay);
    if (seconds >= secondsPerDay) {
        seconds = 0;
        days += 1;
    }
    const std::chrono::year_month_day day(dayZero + std::chrono::days(static_cast<int>(days)));
    const int second = static_cast<int>(seconds);
    return {static_cast<int>(day.year()),
            static_cast<unsigned>(day.month()),
            static_cast<unsigned>(day.day()),
            second / 3600,
            second / 60 % 60,
            second % 60};
}

std::wstring dayMonthYearText(automation::Date date) {
    constexpr const wchar_t* months[] = {L"Jan", L"Feb", L"Mar", L"Apr", L"May", L"Jun",
                                         L"Jul", L"Aug", L"Sep", L"Oct", L"Nov", L"Dec"};
    const CivilTime time = toCivilTime(date);
    wchar_t text[64];
    std::swprintf(text, sizeof text / sizeof *text, L"%02u-%ls-%04d %02d:%02d:%02d", time.day,
                  months[time.month - 1], time.year, time.hour, time.minute, time.second);
    return text;
}

}  // namespace platform
