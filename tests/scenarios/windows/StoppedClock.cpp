#include "tests/scenarios/windows/StoppedClock.h"

#include <windows.h>

#include <oleauto.h>

#include <cstring>
#include <stdexcept>

namespace {

SYSTEMTIME stoppedAt{};

void WINAPI giveStoppedTime(LPSYSTEMTIME time) {
    *time = stoppedAt;
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

}  // namespace

void stopClockOfAddIn(automation::Date time) {
    VariantTimeToSystemTime(time.days, &stoppedAt);
    const HMODULE addIn = GetModuleHandleW(L"Veltro.dll");
    if (!addIn) {
        throw std::runtime_error("Veltro.dll is not loaded");
    }
    ULONG_PTR* const place = importedFunction(addIn, "GetLocalTime");
    DWORD before = 0;
    VirtualProtect(place, sizeof *place, PAGE_READWRITE, &before);
    *place = reinterpret_cast<ULONG_PTR>(&giveStoppedTime);
    VirtualProtect(place, sizeof *place, before, &before);
}
