#include "platform/windows/comErrors.h"

#include <oleauto.h>
#include <olectl.h>

#include <memory>

#include "platform/windows/Bstr.h"

namespace platform::windows {

namespace {

using automation::Error;

/// The results that automation clients know by numbers of their own.
struct Translation {
    HRESULT result;
    std::int32_t number;
    const wchar_t* description;
};
constexpr Translation translations[] = {
    {E_INVALIDARG, 5, L"Invalid procedure call or argument"},
    {DISP_E_OVERFLOW, automation::errors::overflow, L"Overflow"},
    {E_FAIL, automation::errors::failed, L"The operation failed."},
    {E_OUTOFMEMORY, automation::errors::outOfMemory, L"Out of memory"},
    {DISP_E_BADINDEX, 9, L"Subscript out of range"},
    {DISP_E_TYPEMISMATCH, automation::errors::typeMismatch, L"Type mismatch"},
    {E_ACCESSDENIED, 70, L"Permission denied"},
    {REGDB_E_CLASSNOTREG, automation::errors::cannotCreateObject, L"ActiveX component can't create object"},
    {CO_E_CLASSSTRING, automation::errors::cannotCreateObject, L"ActiveX component can't create object"},
    {MK_E_UNAVAILABLE, automation::errors::cannotCreateObject, L"ActiveX component can't create object"},
    {E_NOINTERFACE, 430, L"Class does not support Automation or does not support expected interface"},
    {DISP_E_UNKNOWNNAME, automation::errors::memberNotFound,
     L"Object doesn't support this property or method"},
    {DISP_E_MEMBERNOTFOUND, automation::errors::memberNotFound,
     L"Object doesn't support this property or method"},
    {DISP_E_NONAMEDARGS, 446, L"Object doesn't support named arguments"},
    {DISP_E_UNKNOWNLCID, 447, L"Object doesn't support current locale setting"},
    {DISP_E_PARAMNOTFOUND, 448, L"Named argument not found"},
    {DISP_E_PARAMNOTOPTIONAL, 449, L"Argument not optional"},
    {DISP_E_BADPARAMCOUNT, 450, L"Wrong number of arguments or invalid property assignment"},
    {CONNECT_E_NOCONNECTION, 459, L"Object or class does not support the set of events"},
    {CONNECT_E_CANNOTCONNECT, 459, L"Object or class does not support the set of events"},
};

/// Results of this facility are automation's own error numbers in disguise.
constexpr std::uint32_t controlFacility = 0x800A0000;
constexpr std::uint32_t facilityMask = 0xFFFF0000;

std::int32_t numberOf(HRESULT result) {
    const auto bits = static_cast<std::uint32_t>(result);
    if ((bits & facilityMask) == controlFacility) {
        return static_cast<std::int32_t>(bits & ~facilityMask);
    }
    for (const Translation& translation : translations) {
        if (translation.result == result) {
            return translation.number;
        }
    }
    return static_cast<std::int32_t>(result);
}

std::wstring descriptionOf(HRESULT result) {
    const std::int32_t number = numberOf(result);
    for (const Translation& translation : translations) {
        if (translation.number == number) {
            return translation.description;
        }
    }
    std::wstring message = systemMessage(static_cast<DWORD>(result));
    return message.empty() ? L"Automation error" : message;
}

Error exceptionOf(const EXCEPINFO& details) {
    const HRESULT result = FAILED(details.scode) ? details.scode : E_FAIL;
    // Outlook gives both, and its code is 4096 whatever has failed.
    const bool byCode = details.wCode != 0 && !FAILED(details.scode);
    const std::int32_t number = byCode ? details.wCode : numberOf(result);
    std::wstring description = Bstr::toText(details.bstrDescription);
    if (description.empty()) {
        description = descriptionOf(result);
    }
    return Error(number, std::move(description), Bstr::toText(details.bstrSource));
}

}  // namespace

std::wstring systemMessage(DWORD code) {
    wchar_t* buffer = nullptr;
    const DWORD length = FormatMessageW(
        FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
        code, 0, reinterpret_cast<wchar_t*>(&buffer), 0, nullptr);
    const std::unique_ptr<wchar_t, decltype(&LocalFree)> owner(buffer, &LocalFree);
    std::wstring message(buffer ? buffer : L"", length);
    message.erase(message.find_last_not_of(L"\r\n ") + 1);
    return message;
}

Error errorOf(HRESULT result) {
    return Error(numberOf(result), descriptionOf(result));
}

void check(HRESULT result) {
    if (FAILED(result)) {
        throw errorOf(result);
    }
}

void checkInvoke(HRESULT result, EXCEPINFO& details) {
    if (result == DISP_E_EXCEPTION && details.pfnDeferredFillIn) {
        details.pfnDeferredFillIn(&details);
    }
    const Bstr source = Bstr::adopt(details.bstrSource);
    const Bstr description = Bstr::adopt(details.bstrDescription);
    const Bstr helpFile = Bstr::adopt(details.bstrHelpFile);
    if (result == DISP_E_EXCEPTION) {
        throw exceptionOf(details);
    }
    check(result);
}

HRESULT resultOf(const Error& error) {
    const std::int32_t number = error.number();
    if (number > 0 && number <= 0xFFFF) {
        return static_cast<HRESULT>(controlFacility | static_cast<std::uint32_t>(number));
    }
    // A number that means success would hide the failure.
    return number < 0 ? static_cast<HRESULT>(number) : E_FAIL;
}

void describe(const Error& error, EXCEPINFO& details) {
    details = {};
    details.scode = resultOf(error);
    details.bstrDescription = Bstr(error.description()).detach();
    details.bstrSource = Bstr(error.source()).detach();
}

}  // namespace platform::windows
