#include "platform/windows/WindowsClock.h"

#include <windows.h>

#include <oleauto.h>

#include <cmath>
#include <cwchar>
#include <iterator>

#include "platform/civilTime.h"
#include "platform/windows/Bstr.h"
#include "platform/windows/comErrors.h"

namespace platform::windows {

automation::Date WindowsClock::now() {
    SYSTEMTIME time{};
    GetLocalTime(&time);
    automation::Date date;
    SystemTimeToVariantTime(&time, &date.days);
    return date;
}

/// Users make short forms of their own that no program can read back; the standard's is read everywhere.
std::wstring WindowsClock::shortDate(automation::Date date) {
    BSTR written = nullptr;
    check(VarBstrFromDate(date.days, LOCALE_USER_DEFAULT, VAR_DATEVALUEONLY, &written));
    std::wstring text = Bstr::toText(Bstr::adopt(written).get());
    const auto read = readDate(text);
    if (!read || read->days != std::floor(date.days)) {
        const CivilTime day = toCivilTime(date);
        wchar_t standard[32];
        std::swprintf(standard, std::size(standard), L"%04d-%02u-%02u", day.year, day.month, day.day);
        text = standard;
    }
    return text;
}

std::optional<automation::Date> WindowsClock::readDate(const std::wstring& text) {
    automation::Date date;
    const HRESULT result = VarDateFromStr(Bstr(text).get(), LOCALE_USER_DEFAULT, 0, &date.days);
    return SUCCEEDED(result) ? std::optional(date) : std::nullopt;
}

}  // namespace platform::windows
