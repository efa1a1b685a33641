#include "platform/native/SystemClock.h"

#include <time.h>

#include <charconv>
#include <chrono>
#include <string_view>
#include <vector>

#include "platform/civilTime.h"
#include "platform/text.h"

namespace platform::native {

namespace {

/// The numbers between the separators; nothing unless there are three.
std::optional<std::vector<int>> threeNumbers(std::wstring_view text, wchar_t separator) {
    std::vector<int> numbers;
    for (const std::wstring_view part : text::split(text, separator)) {
        const std::string digits = text::toUtf8(part);
        int number = 0;
        const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
        if (error != std::errc() || end != digits.data() + digits.size()) {
            return std::nullopt;
        }
        numbers.push_back(number);
    }
    return numbers.size() == 3 ? std::optional(numbers) : std::nullopt;
}

}  // namespace

std::wstring PlainCalendar::shortDate(automation::Date date) {
    const CivilTime time = toCivilTime(date);
    return std::to_wstring(time.month) + L'/' + std::to_wstring(time.day) + L'/' + std::to_wstring(time.year);
}

std::optional<automation::Date> PlainCalendar::readDate(const std::wstring& text) {
    using namespace std::chrono;
    year_month_day day{};
    if (const auto american = threeNumbers(text::trim(text), L'/')) {
        day = year((*american)[2]) / (*american)[0] / (*american)[1];
    } else if (const auto standard = threeNumbers(text::trim(text), L'-')) {
        day = year((*standard)[0]) / (*standard)[1] / (*standard)[2];
    }
    if (!day.ok() || day.year() < year(100) || day.year() > year(9999)) {
        return std::nullopt;
    }
    return toDate({.year = static_cast<int>(day.year()),
                   .month = static_cast<unsigned>(day.month()),
                   .day = static_cast<unsigned>(day.day()),
                   .hour = 0,
                   .minute = 0,
                   .second = 0});
}

automation::Date SystemClock::now() {
    const time_t seconds = time(nullptr);
    tm local{};
    localtime_r(&seconds, &local);
    using namespace std::chrono;
    constexpr sys_days dayZero = year(1899) / December / 30;
    const sys_days day =
        year(local.tm_year + 1900) / month(static_cast<unsigned>(local.tm_mon + 1)) / local.tm_mday;
    const double timeOfDay = local.tm_hour * 3600.0 + local.tm_min * 60.0 + local.tm_sec;
    return {static_cast<double>((day - dayZero).count() + daysLater_) + timeOfDay / 86400};
}

}  // namespace platform::native
