#include "robot/importTable.h"

#include <oleauto.h>
#include <shellapi.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <cwchar>
#include <stdexcept>
#include <string>
#include <utility>

namespace robot {

namespace {

SYSTEMTIME stoppedAt{};
int daysAhead = 0;
std::function<void(const std::wstring&)> tellOpened;

void WINAPI giveStoppedTime(LPSYSTEMTIME time) {
    *time = stoppedAt;
}

void WINAPI giveLaterTime(LPSYSTEMTIME time) {
    double days = 0;
    GetLocalTime(time);
    SystemTimeToVariantTime(time, &days);
    VariantTimeToSystemTime(days + daysAhead, time);
}

BOOL WINAPI tellOfOpening(SHELLEXECUTEINFOW* call) {
    if (!tellOpened) {
        return ShellExecuteExW(call);
    }
    tellOpened(call->lpFile);
    return TRUE;
}

VS_FIXEDFILEINFO programVersion{};

DWORD WINAPI giveVersionSize(LPCWSTR, LPDWORD) {
    return sizeof programVersion;
}

BOOL WINAPI giveVersion(LPCWSTR, DWORD, DWORD size, LPVOID data) {
    std::memcpy(data, &programVersion, std::min<std::size_t>(size, sizeof programVersion));
    return TRUE;
}

BOOL WINAPI findVersion(LPCVOID data, LPCWSTR, LPVOID* found, PUINT size) {
    *found = const_cast<void*>(data);
    *size = sizeof programVersion;
    return TRUE;
}

template <class T>
T* at(HMODULE module, DWORD address) {
    return reinterpret_cast<T*>(reinterpret_cast<BYTE*>(module) + address);
}

const IMAGE_DATA_DIRECTORY& importsOf(HMODULE module) {
    const auto* const dos = at<IMAGE_DOS_HEADER>(module, 0);
    const auto* const headers = at<IMAGE_NT_HEADERS>(module, static_cast<DWORD>(dos->e_lfanew));
    return headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
}

/// The place that holds the address of an imported function.
ULONG_PTR* importedFunction(HMODULE module, const char* name) {
    const auto* library = at<IMAGE_IMPORT_DESCRIPTOR>(module, importsOf(module).VirtualAddress);
    for (; library->Name != 0; ++library) {
        const auto* names = at<IMAGE_THUNK_DATA>(module, library->OriginalFirstThunk);
        auto* addresses = at<IMAGE_THUNK_DATA>(module, library->FirstThunk);
        for (; names->u1.AddressOfData != 0; ++names, ++addresses) {
            const bool byName = !IMAGE_SNAP_BY_ORDINAL(names->u1.Ordinal);
            const auto entry = static_cast<DWORD>(names->u1.AddressOfData);
            if (byName && std::strcmp(at<IMAGE_IMPORT_BY_NAME>(module, entry)->Name, name) == 0) {
                return reinterpret_cast<ULONG_PTR*>(&addresses->u1.Function);
            }
        }
    }
    throw std::runtime_error(std::string("Veltro.dll does not import ") + name);
}

template <class Function>
void replaceImport(const char* name, Function* replacement) {
    const HMODULE addIn = GetModuleHandleW(L"Veltro.dll");
    if (!addIn) {
        throw std::runtime_error("Veltro.dll is not loaded");
    }
    ULONG_PTR* const place = importedFunction(addIn, name);
    DWORD before = 0;
    VirtualProtect(place, sizeof *place, PAGE_READWRITE, &before);
    *place = reinterpret_cast<ULONG_PTR>(replacement);
    VirtualProtect(place, sizeof *place, before, &before);
}

}  // namespace

void stopClockOfAddIn(automation::Date time) {
    VariantTimeToSystemTime(time.days, &stoppedAt);
    replaceImport("GetLocalTime", &giveStoppedTime);
}

void moveClockOfAddIn(int days) {
    daysAhead = days;
    replaceImport("GetLocalTime", &giveLaterTime);
}

void tellProgramVersion(const std::wstring& version) {
    WORD parts[4] = {};
    const wchar_t* rest = version.c_str();
    for (WORD& part : parts) {
        wchar_t* end = nullptr;
        part = static_cast<WORD>(std::wcstoul(rest, &end, 10));
        rest = *end == L'.' ? end + 1 : end;
    }
    programVersion = {};
    programVersion.dwFileVersionMS = static_cast<DWORD>(MAKELONG(parts[1], parts[0]));
    programVersion.dwFileVersionLS = static_cast<DWORD>(MAKELONG(parts[3], parts[2]));
    replaceImport("GetFileVersionInfoSizeW", &giveVersionSize);
    replaceImport("GetFileVersionInfoW", &giveVersion);
    replaceImport("VerQueryValueW", &findVersion);
}

void catchOpening(std::function<void(const std::wstring&)> opened) {
    tellOpened = std::move(opened);
    replaceImport("ShellExecuteExW", &tellOfOpening);
}

}  // namespace robot
