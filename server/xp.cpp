#include <windows.h>

// The compiler's thread library asks for the time by a function that Windows XP does not have; a DLL that
// imports it cannot be loaded there. What the library calls through is defined here instead of in the import
// library.
#ifdef __MINGW32__

namespace {

ULONGLONG WINAPI tickCount() {
    using Function = ULONGLONG(WINAPI*)();
    HMODULE kernel = GetModuleHandleW(L"kernel32.dll");
    const auto function =
        reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(kernel, "GetTickCount64")));
    return function ? function() : GetTickCount();
}

}  // namespace

extern "C" {
extern ULONGLONG(WINAPI* const importedTickCount)() asm(
#ifdef _WIN64
    "__imp_GetTickCount64"
#else
    "__imp__GetTickCount64@0"
#endif
);
ULONGLONG(WINAPI* const importedTickCount)() = &tickCount;
}

#endif
