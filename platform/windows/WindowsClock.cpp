#include "platform/windows/WindowsClock.h"

#include <windows.h>

#include <oleauto.h>

namespace platform::windows {

automation::Date WindowsClock::now() {
    SYSTEMTIME time{};
    GetLocalTime(&time);
    automation::Date date;
    SystemTimeToVariantTime(&time, &date.days);
    return date;
}

}  // namespace platform::windows
