#include "platform/windows/WindowsSystemInfo.h"

#include <windows.h>

#include <cstring>

#include "platform/windows/ownModule.h"

namespace platform::windows {

std::wstring WindowsSystemInfo::addInFolder() {
    std::wstring path = modulePath(ownModule());
    path.erase(path.find_last_of(L'\\'));
    return path;
}

/// The version that GetVersionEx tells depends on what the program's manifest says of itself.
std::optional<WindowsVersion> WindowsSystemInfo::windowsVersion() {
    using GetVersion = LONG(WINAPI*)(OSVERSIONINFOEXW*);
    const FARPROC found = GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "RtlGetVersion");
    GetVersion getVersion = nullptr;
    static_assert(sizeof found == sizeof getVersion);
    std::memcpy(&getVersion, &found, sizeof getVersion);
    OSVERSIONINFOEXW version{};
    version.dwOSVersionInfoSize = sizeof version;
    if (!getVersion || getVersion(&version) != 0) {
        return std::nullopt;
    }
    return WindowsVersion{version.dwPlatformId, version.dwMajorVersion, version.dwMinorVersion,
                          version.dwBuildNumber, version.wProductType > VER_NT_WORKSTATION};
}

bool WindowsSystemInfo::is64Bit() {
    BOOL narrowOnWide = FALSE;
    return sizeof(void*) == 8 || (IsWow64Process(GetCurrentProcess(), &narrowOnWide) && narrowOnWide);
}

void WindowsSystemInfo::debug(std::string_view line) {
    OutputDebugStringA((debugPrefix + std::string(line) + '\n').c_str());
}

}  // namespace platform::windows
