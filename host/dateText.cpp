#include "host/dateText.h"

#include <chrono>
#include <cmath>

namespace host {

std::wstring longDate(automation::Date date) {
    using namespace std::chrono;
    constexpr const wchar_t* weekdays[] = {L"Sunday",   L"Monday", L"Tuesday", L"Wednesday",
                                           L"Thursday", L"Friday", L"Saturday"};
    constexpr const wchar_t* months[] = {L"January",   L"February", L"March",    L"April",
                                         L"May",       L"June",     L"July",     L"August",
                                         L"September", L"October",  L"November", L"December"};
    constexpr double limit = 2958466;  // The first day of the year 10000.
    if (!(std::abs(date.days) < limit)) {
        return {};
    }
    // A date before 1899 counts its days down and its time of day up.
    const double whole = std::trunc(date.days);
    auto minutes = static_cast<int>(std::lround(std::abs(date.days - whole) * 1440));
    constexpr sys_days epoch = 1899y / December / 30;
    const sys_days day = epoch + days(static_cast<int>(whole) + minutes / 1440);
    minutes %= 1440;
    const year_month_day calendar(day);
    const int hour = minutes / 60;
    const std::wstring minute = std::to_wstring(100 + minutes % 60).substr(1);
    return std::wstring(weekdays[weekday(day).c_encoding()]) + L", " +
           months[static_cast<unsigned>(calendar.month()) - 1] + L" " +
           std::to_wstring(static_cast<unsigned>(calendar.day())) + L", " +
           std::to_wstring(static_cast<int>(calendar.year())) + L" " +
           std::to_wstring(hour % 12 == 0 ? 12 : hour % 12) + L":" + minute + (hour < 12 ? L" AM" : L" PM");
}

}  // namespace host
