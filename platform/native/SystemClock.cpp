#include "platform/native/SystemClock.h"

#include <time.h>

#include <chrono>

namespace platform::native {

automation::Date SystemClock::now() {
    const time_t seconds = time(nullptr);
    tm local{};
    localtime_r(&seconds, &local);
    using namespace std::chrono;
    constexpr sys_days dayZero = year(1899) / December / 30;
    const sys_days day =
        year(local.tm_year + 1900) / month(static_cast<unsigned>(local.tm_mon + 1)) / local.tm_mday;
    const double timeOfDay = local.tm_hour * 3600.0 + local.tm_min * 60.0 + local.tm_sec;
    return {static_cast<double>((day - dayZero).count()) + timeOfDay / 86400};
}

}  // namespace platform::native
