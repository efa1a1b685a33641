#include "platform/windows/WindowsSystemInfo.h"

#include <windows.h>

#include <cstring>
#include <vector>

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

std::wstring WindowsSystemInfo::programVersion() {
    return fileVersion(modulePath(nullptr));
}

std::wstring WindowsSystemInfo::fileVersion(const std::wstring& path) {
    DWORD ignored = 0;
    std::vector<BYTE> data(GetFileVersionInfoSizeW(path.c_str(), &ignored));
    void* found = nullptr;
    UINT size = 0;
    if (data.empty() || !GetFileVersionInfoW(path.c_str(), 0, static_cast<DWORD>(data.size()), data.data()) ||
        !VerQueryValueW(data.data(), L"\\", &found, &size) || size < sizeof(VS_FIXEDFILEINFO)) {
        return {};
    }
    const auto& version = *static_cast<const VS_FIXEDFILEINFO*>(found);
    return std::to_wstring(HIWORD(version.dwFileVersionMS)) + L'.' +
           std::to_wstring(LOWORD(version.dwFileVersionMS)) + L'.' +
           std::to_wstring(HIWORD(version.dwFileVersionLS)) + L'.' +
           std::to_wstring(LOWORD(version.dwFileVersionLS));
}

std::uint32_t WindowsSystemInfo::screenDpi() {
    const HDC screen = GetDC(nullptr);
    const int dpi = GetDeviceCaps(screen, LOGPIXELSX);
    ReleaseDC(nullptr, screen);
    constexpr std::uint32_t usual = 96;
    return dpi > 0 ? static_cast<std::uint32_t>(dpi) : usual;
}

void WindowsSystemInfo::debug(std::string_view line) {
    OutputDebugStringA((debugPrefix + std::string(line) + '\n').c_str());
}

}  // namespace platform::windows
