#include "host/LocalTime.h"

#include <chrono>
#include <cstdio>

namespace host {

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
