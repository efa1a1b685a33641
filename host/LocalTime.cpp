#include "host/LocalTime.h"

#include <algorithm>
#include <charconv>
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
    constexpr std::string_view form = "dddd-dd-ddTdd:dd:dd";
    const auto fits = [](char expected, char found) {
        return expected == 'd' ? found >= '0' && found <= '9' : found == expected;
    };
    if (!std::ranges::equal(form, text, fits)) {
        return std::nullopt;
    }
    const auto number = [text](std::size_t start, std::size_t length) {
        int value = 0;
        std::from_chars(text.data() + start, text.data() + start + length, value);
        return value;
    };
    const CivilTime time{number(0, 4),
                         static_cast<unsigned>(number(5, 2)),
                         static_cast<unsigned>(number(8, 2)),
                         number(11, 2),
                         number(14, 2),
                         number(17, 2)};
    const std::chrono::year_month_day day(std::chrono::year(time.year), std::chrono::month(time.month),
                                          std::chrono::day(time.day));
    constexpr int earliestYear = 100;  // That such dates can hold.
    if (time.year < earliestYear || !day.ok() || time.hour >= 24 || time.minute >= 60 || time.second >= 60) {
        return std::nullopt;
    }
    return toDate(time);
}

}  // namespace host
