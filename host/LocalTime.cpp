#include "host/LocalTime.h"

#include <chrono>
#include <cmath>
#include <cstdio>

namespace host {

namespace {

constexpr std::chrono::sys_days dayZero =
    std::chrono::year(1899) / std::chrono::December / std::chrono::day(30);
constexpr int secondsPerDay = 86400;

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

std::string toIsoTime(automation::Date date) {
    const CivilTime time = toCivilTime(date);
    char text[64];
    std::snprintf(text, sizeof text, "%04d-%02u-%02uT%02d:%02d:%02d", time.year, time.month, time.day,
                  time.hour, time.minute, time.second);
    return text;
}

std::optional<automation::Date> parseIsoTime(std::string_view text) {
    CivilTime time;
    int read = 0;
    const std::string terminated(text);
    const int fields = std::sscanf(terminated.c_str(), "%4d-%2u-%2uT%2d:%2d:%2d%n", &time.year, &time.month,
                                   &time.day, &time.hour, &time.minute, &time.second, &read);
    const std::chrono::year_month_day day(std::chrono::year(time.year), std::chrono::month(time.month),
                                          std::chrono::day(time.day));
    const bool inDay = time.hour >= 0 && time.hour < 24 && time.minute >= 0 && time.minute < 60 &&
                       time.second >= 0 && time.second < 60;
    if (fields != 6 || read != static_cast<int>(terminated.size()) || !day.ok() || !inDay) {
        return std::nullopt;
    }
    return toDate(time);
}

}  // namespace host
